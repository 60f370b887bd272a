#include "app/LinksList.h"

#include "app/EditorBar.h"
#include "shared/LinksFile.h"
#include "shared/SavedLinks.h"
#include "widgets/WindowHelpers.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

LinksList::LinksList(ImgMap& imgMap, QLineEdit* field, QListWidget* list, const LinkButtons& buttons)
    : QObject(list)
    , imgMap_(imgMap)
    , field_(field)
    , list_(list)
{
    connect(buttons.Add, &QPushButton::clicked, this, &LinksList::btnAdd_Click);
    connect(buttons.Delete, &QPushButton::clicked, this, &LinksList::btnDelete_Click);
    connect(buttons.Save, &QPushButton::clicked, this, &LinksList::btnSave_Click);
    LeaveCommandKeys(field_);
}

QString LinksList::LinksPath() const
{
    return imgMap_.ProgramFolder + u'/' + linksFileName;
}

void LinksList::Load()
{
    const SavedLinks saved = ReadSavedLinks(LinksPath());
    std::size_t slot = 0;
    for (const SavedLink& link : saved.links) {
        ++slot;
        imgMap_.SavedLinkURL[slot] = link.Url;
        imgMap_.SavedLinkMark[slot] = link.Mark;
        list_->addItem(link.Url);
    }
    if (saved.isDamaged) {
        ShowMessage(list_->window(), QMessageBox::Warning, linksDamagedText.toString());
    }
}

void LinksList::btnAdd_Click()
{
    const QString url = field_->text();
    if (IsSavedLinksFull(imgMap_)) {
        ShowMessage(
            list_->window(), QMessageBox::Warning,
            QStringLiteral("Sorry, you entered maximum number of the links ! "));
    } else if (url.isEmpty()) {
        ShowMessage(
            list_->window(), QMessageBox::Information,
            QStringLiteral("To Add a new URL, enter the URL in the Links field! "));
    } else {
        list_->addItem(url);
        AddSavedLink(imgMap_, url);
        field_->clear();
    }
}

void LinksList::btnDelete_Click()
{
    if (list_->count() == 0) {
        ShowMessage(
            list_->window(), QMessageBox::Information,
            QStringLiteral("There is no saved URLs in the URLs List Box! "));
        return;
    }
    const QList<QListWidgetItem*> selected = list_->selectedItems();
    if (selected.isEmpty()) {
        ShowMessage(
            list_->window(), QMessageBox::Information,
            QStringLiteral("To Delete the URL, highlight the URL first ! "));
        return;
    }
    const int row = list_->row(selected.constFirst());
    DeleteSavedLink(imgMap_, static_cast<std::size_t>(row) + 1);
    delete list_->takeItem(row);
    // The next click must not delete the neighbour unasked.
    list_->clearSelection();
}

void LinksList::btnSave_Click()
{
    // A failure is not told: the links stay in the list, and the next save may succeed.
    (void)WriteSavedLinks(LinksPath(), imgMap_);
}
