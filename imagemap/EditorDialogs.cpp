#include "imagemap/EditorDialogs.h"

#include "imagemap/AreaList.h"
#include "imagemap/EditorPanels.h"
#include "imagemap/PicturePane.h"
#include "imagemap/frmJSOptions.h"
#include "imagemap/model/MapDocument.h"
#include "linkdialog/frmIMLink.h"
#include "widgets/WindowHelpers.h"

namespace {

QString FullStoreMessage(FullStoreText text)
{
    return QStringLiteral("         The array is full.\n      You have entered the\nmaximum number of %1.")
        .arg(text == FullStoreText::Lines ? u"lines" : u"figures");
}

} // namespace

EditorDialogs::EditorDialogs(const Parts& parts)
    : parts_(parts)
{
}

EditorDialogs::~EditorDialogs() = default;

bool EditorDialogs::IsLinking() const
{
    return isMessagePending_ || (linkDialog_ != nullptr && !linkDialog_->IsUnloaded());
}

void EditorDialogs::EditSelectedArea()
{
    if (!parts_.map.Areas().isEmpty()) {
        EditArea(QStringLiteral("To edit already set data, double click on an Item !"));
    }
}

void EditorDialogs::EditArea(const QString& hint)
{
    const std::optional<qsizetype> selected = parts_.list.SelectedArea();
    if (!selected) {
        ShowMessage(&parts_.window, QMessageBox::Information, hint);
    } else if (linkDialog_ == nullptr || !linkDialog_->isVisible()) {
        parts_.panels.ShowStatus(TextsOf(parts_.map.Script().Mode()).replacePrompt);
        OpenLinkDialog(selected);
    }
}

void EditorDialogs::OpenLinkDialog(std::optional<qsizetype> replaced, const std::function<void(bool)>& done)
{
    linkDialog_ = new frmIMLink(parts_.imgMap, parts_.map, &parts_.window);
    connect(linkDialog_, &QDialog::finished, this, [this, done](int result) {
        if (done) {
            done(result == QDialog::Accepted);
        }
        Q_EMIT Closed();
    });
    linkDialog_->Form_Load(replaced);
    if (!linkDialog_->IsUnloaded()) {
        parts_.panels.ShowHint(linkingHint);
        linkDialog_->show();
    }
}

void EditorDialogs::OpenOptions()
{
    parts_.panels.ShowStatus(u"Set Java Script Options!");
    jsOptions_ = new frmJSOptions(parts_.imgMap, parts_.map, parts_.help, &parts_.window);
    connect(jsOptions_, &QDialog::finished, this, &EditorDialogs::Closed);
    jsOptions_->Form_Load();
    jsOptions_->show();
}

void EditorDialogs::Close(bool mayDelete)
{
    if (linkDialog_ != nullptr) {
        linkDialog_->setAttribute(Qt::WA_DeleteOnClose, mayDelete);
        // It may be hidden yet, behind a message, where closing it would do nothing.
        linkDialog_->reject();
    }
    if (jsOptions_ != nullptr) {
        jsOptions_->setAttribute(Qt::WA_DeleteOnClose, mayDelete);
        jsOptions_->close();
    }
}

template<class Act> void EditorDialogs::AfterTheMouse(Act act)
{
    // A dialog that opens inside a mouse handler would swallow the button's release.
    isMessagePending_ = true;
    parts_.pane.HoldTool(true);
    const auto run = [this, act] {
        isMessagePending_ = false;
        parts_.pane.HoldTool(false);
        act();
    };
    QMetaObject::invokeMethod(this, run, Qt::QueuedConnection);
}

void EditorDialogs::ReportFullStore(FullStoreText text)
{
    AfterTheMouse([this, text] {
        ShowMessage(&parts_.window, QMessageBox::Warning, FullStoreMessage(text));
        Q_EMIT MessageRead();
    });
}

void EditorDialogs::LinkNewFigure()
{
    AfterTheMouse([this] { OpenLinkDialog(); });
}

void EditorDialogs::LinkMadeArea(qsizetype number, std::function<void(bool)> done)
{
    AfterTheMouse([this, number, done = std::move(done)] {
        parts_.panels.ShowStatus(TextsOf(parts_.map.Script().Mode()).newPrompt);
        OpenLinkDialog(number, done);
    });
}
