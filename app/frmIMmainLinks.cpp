// The main window's list of saved links. The table in memory always equals the list that the user sees.

#include "app/frmIMmain.h"
#include "shared/LinksFile.h"
#include "shared/SavedLinks.h"
#include "ui_frmIMmain.h"
#include "widgets/WindowHelpers.h"

QString frmIMmain::LinksPath() const
{
    return imgMap_.ProgramFolder + u'/' + linksFileName;
}

void frmIMmain::LoadSavedLinks()
{
    const SavedLinks saved = ReadSavedLinks(LinksPath());
    std::size_t slot = 0;
    for (const SavedLink& link : saved.links) {
        ++slot;
        imgMap_.SavedLinkURL[slot] = link.Url;
        imgMap_.SavedLinkMark[slot] = link.Mark;
        ui_->ListView1->addItem(link.Url);
    }
    if (saved.isDamaged) {
        ShowMessage(this, QMessageBox::Warning, linksDamagedText.toString());
    }
}

void frmIMmain::btnAdd_Click()
{
    const QString url = ui_->txtCTags->text();
    if (IsSavedLinksFull(imgMap_)) {
        ShowMessage(
            this, QMessageBox::Warning, QStringLiteral("Sorry, you entered maximum number of the links ! "));
    } else if (url.isEmpty()) {
        ShowMessage(
            this, QMessageBox::Information,
            QStringLiteral("To Add a new URL, enter the URL in the Links field! "));
    } else {
        ui_->ListView1->addItem(url);
        AddSavedLink(imgMap_, url);
        ui_->txtCTags->clear();
    }
}

void frmIMmain::btnDelete_Click()
{
    if (ui_->ListView1->count() == 0) {
        ShowMessage(
            this, QMessageBox::Information, QStringLiteral("There is no saved URLs in the URLs List Box! "));
        return;
    }
    const QList<QListWidgetItem*> selected = ui_->ListView1->selectedItems();
    if (selected.isEmpty()) {
        ShowMessage(
            this, QMessageBox::Information, QStringLiteral("To Delete the URL, highlight the URL first ! "));
        return;
    }
    const int row = ui_->ListView1->row(selected.constFirst());
    DeleteSavedLink(imgMap_, static_cast<std::size_t>(row) + 1);
    delete ui_->ListView1->takeItem(row);
    // The next click must not delete the neighbour unasked.
    ui_->ListView1->clearSelection();
}

void frmIMmain::btnSave_Click()
{
    // A failure is not told: the links stay in the list, and the next save may succeed.
    (void)WriteSavedLinks(LinksPath(), imgMap_);
}
