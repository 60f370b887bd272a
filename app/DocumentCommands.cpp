#include "app/DocumentCommands.h"

#include "app/SourceEditor.h"
#include "app/rules/DocumentFile.h"
#include "app/rules/TodayPageFrame.h"
#include "widgets/FileDialog.h"
#include "widgets/WindowHelpers.h"

#include <QFileInfo>
#include <QLocale>

namespace {

constexpr const char* newFileName = "newmap.htm";
constexpr const char* defaultSuffix = "htm";
/** The file that a name typed without an ending means: itself where it exists, else the page of that name. */
QString WithDefaultSuffix(const QString& path)
{
    const QFileInfo file(path);
    const bool isPage = !file.exists() && !file.fileName().contains(u'.');
    return isPage ? path + u'.' + QString::fromLatin1(defaultSuffix) : path;
}

} // namespace

DocumentCommands::DocumentCommands(QWidget* window, ImgMap& imgMap, SourceEditor& editor, DocumentFile& file)
    : window_(window)
    , imgMap_(imgMap)
    , editor_(editor)
    , file_(file)
{
}

void DocumentCommands::ClearDocument()
{
    const bool isUtf8 = imgMap_.Remembered.Value(Setting::newPagesUtf8);
    file_.StartNew(isUtf8 ? std::optional(TextEncoding::Utf8) : std::nullopt);
    ShowText(QString());
}

void DocumentCommands::ShowText(const QString& text)
{
    const bool isUtf8 = file_.Encoding() != TextEncoding::Windows1252;
    editor_.SetLayoutCharacters(isUtf8 ? LayoutCharacters::AsBytes : LayoutCharacters::AsSaved);
    editor_.LoadText(text);
}

QString DocumentCommands::TextToWrite() const
{
    return file_.IsHandledAnew() ? editor_.TextAsLoaded() : editor_.Text();
}

void DocumentCommands::NewDocument()
{
    if (file_.IsChanged()) {
        (void)MayDiscardChanges();
    } else {
        ClearDocument();
    }
}

void DocumentCommands::mnuPNewPage_Click()
{
    // What could not be saved is still there, and stays.
    if (file_.IsChanged() && (!MayDiscardChanges() || file_.IsChanged())) {
        return;
    }
    const TodayPageFrame frame = MakeTodayPageFrame(QLocale::system().bcp47Name());
    file_.StartNew(TextEncoding::Utf8);
    ShowText(frame.Text);
    editor_.Select(frame.Caret, 0);
    editor_.setFocus();
}

void DocumentCommands::OpenDocument()
{
    GoToProgramFolder(imgMap_);
    if (file_.IsChanged() && !MayDiscardChanges()) {
        return;
    }
    if (const std::optional<QString> path = AskForOpenPath()) {
        ReadDocument(*path);
    }
}

void DocumentCommands::OpenNamed(const QString& path)
{
    GoToProgramFolder(imgMap_);
    // Nobody has asked for this here: a text that could not be saved stays.
    if (!file_.IsChanged() || (MayDiscardChanges() && !file_.IsChanged())) {
        ReadDocument(path);
    }
}

void DocumentCommands::ReadDocument(const QString& path)
{
    ShowHourglass();
    const bool readUtf8 = imgMap_.Remembered.Value(Setting::readUtf8);
    const std::optional<QString> text = file_.Open(
        path, readUtf8 ? DocumentFile::Utf8Pages::ReadAsUtf8 : DocumentFile::Utf8Pages::ReadAsOthers);
    if (text) {
        ShowText(*text);
    }
    ShowDefaultPointer();
    if (!text) {
        ShowMessage(window_, QMessageBox::Information, QStringLiteral("Can't open file: ") + path);
    }
}

void DocumentCommands::SaveDocument()
{
    GoToProgramFolder(imgMap_);
    const std::optional<QString> path = file_.IsNeverSaved() ? AskForSavePath() : file_.Name();
    if (path && !path->isEmpty()) {
        WriteDocument(*path);
    }
}

void DocumentCommands::SaveDocumentAs()
{
    GoToProgramFolder(imgMap_);
    const std::optional<QString> path = AskForSavePath();
    if (path && !path->isEmpty()) {
        WriteDocument(*path);
    }
}

void DocumentCommands::WriteDocument(const QString& path)
{
    (void)IsWritten([this, &path] { return file_.Save(path, TextToWrite()); });
}

QString DocumentCommands::WriteTemporaryCopy(const QString& ending)
{
    QString path = file_.CopyPath(imgMap_.ProgramFolder, ending);
    // A failure has been told; what there is of an older copy is still launched.
    (void)IsWritten([this, &path] { return file_.WriteCopy(path, TextToWrite()); });
    return path;
}

/** Lets `write` write a file and tells its error. */
bool DocumentCommands::IsWritten(const std::function<std::optional<QString>()>& write)
{
    ShowHourglass();
    const std::optional<QString> error = write();
    ShowDefaultPointer();
    if (error) {
        ShowMessage(window_, QMessageBox::Warning, *error);
    }
    return !error;
}

/** Runs the save prompt; false when the user wants to keep the document as it is. */
bool DocumentCommands::MayDiscardChanges()
{
    imgMap_.ContinueAction = true;
    PromptSaveChanges();
    const bool mayContinue = imgMap_.ContinueAction;
    imgMap_.ContinueAction = false;
    return mayContinue;
}

void DocumentCommands::PromptSaveChanges()
{
    const QString name = file_.Name();
    const QMessageBox::StandardButton answer = ShowMessage(
        window_, QMessageBox::Warning,
        u"The text in [" + name + u"] has changed.\n\rDo you want to save the changes?",
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::No) {
        ClearDocument();
        return;
    }
    const std::optional<QString> path = answer != QMessageBox::Yes ? std::nullopt
                                        : file_.IsNeverSaved()     ? AskForSavePath()
                                                                   : name;
    if (!path) {
        imgMap_.ContinueAction = false;
        return;
    }
    // A failed save keeps everything but does not stop the caller.
    const auto save = [this, &path] { return file_.SaveBeforeLeaving(*path, TextToWrite()); };
    if (!path->isEmpty() && IsWritten(save)) {
        ClearDocument();
    }
}

std::optional<QString> DocumentCommands::AskForSavePath()
{
    FileDialog dialog(window_, QStringLiteral("CommonDialog1"), QFileDialog::AnyFile, documentFilter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QString::fromLatin1(defaultSuffix));
    dialog.setDirectory(imgMap_.ProgramFolder);
    dialog.selectFile(file_.IsNeverSaved() ? QString::fromLatin1(newFileName) : file_.Name());
    return dialog.Choose();
}

std::optional<QString> DocumentCommands::AskForOpenPath()
{
    FileDialog dialog(window_, QStringLiteral("CommonDialog1"), QFileDialog::AnyFile, documentFilter);
    dialog.setDirectory(imgMap_.ProgramFolder);
    const std::optional<QString> path = dialog.Choose();
    return path ? std::optional(WithDefaultSuffix(*path)) : std::nullopt;
}

bool DocumentCommands::QueryUnload()
{
    return !file_.IsChanged() || MayDiscardChanges();
}
