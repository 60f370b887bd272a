// The main window's document: new, open, save, save as, and the question before changes are lost.

#include "app/frmIMmain.h"
#include "shared/AnsiCodePage.h"
#include "shared/FileWriting.h"
#include "ui_frmIMmain.h"
#include "widgets/ElidedLabel.h"
#include "widgets/FileDialog.h"
#include "widgets/WindowHelpers.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <algorithm>
#include <new>

namespace {

constexpr QStringView newDocumentName = u"New Document";
constexpr const char* newFileName = "newmap.htm";
constexpr const char* defaultSuffix = "htm";
/** How much of a document's name tells that it was never saved. */
constexpr qsizetype neverSavedLength = 15;
/** Larger files than this cannot be edited: what the editor keeps of a text is counted in 32-bit numbers. */
constexpr qint64 largestDocument = qint64(1) << 29;

/** What the editor takes of memory in bytes, rounded up: in all, for a line, and to lay the longest one out.
 */
constexpr qsizetype bytesPerCharacter = 8;
constexpr qsizetype bytesPerLine = 160;
constexpr qsizetype bytesPerLaidOutCharacter = 64;

/**
 * Whether there is the memory that it takes to show `text`. It is asked for here, where having none can be
 * told: within the editor the program would end.
 */
bool IsRoomFor(QStringView text)
{
    qsizetype lines = 1;
    qsizetype longest = 0;
    qsizetype start = 0;
    for (qsizetype i = 0; i <= text.size(); ++i) {
        if (i == text.size() || text[i] == u'\n' || text[i] == u'\r') {
            longest = std::max(longest, i - start);
            start = i + 1;
            ++lines;
        }
    }
    try {
        const QByteArray room(
            text.size() * bytesPerCharacter + lines * bytesPerLine + longest * bytesPerLaidOutCharacter,
            Qt::Uninitialized);
        return !room.isEmpty();
    } catch (const std::bad_alloc&) {
        return false;
    }
}

/** The text of the file `path`, or nothing when it cannot be read whole. */
std::optional<QString> ReadDocument(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > largestDocument) {
        return std::nullopt;
    }
    try {
        const QByteArray bytes = file.readAll();
        if (file.error() != QFileDevice::NoError || bytes.size() < file.size()) {
            return std::nullopt;
        }
        const QString text = AnsiCodePage::Decode(bytes);
        return IsRoomFor(text) ? std::optional(text) : std::nullopt;
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

/** The file that a name typed without an ending means: itself where it exists, else the page of that name. */
QString WithDefaultSuffix(const QString& path)
{
    const QFileInfo file(path);
    const bool isPage = !file.exists() && !file.fileName().contains(u'.');
    return isPage ? path + u'.' + QString::fromLatin1(defaultSuffix) : path;
}

} // namespace

QString frmIMmain::DocumentName() const
{
    return panel3_->text();
}

void frmIMmain::SetDocumentName(const QString& name)
{
    panel3_->setText(name);
    panel3_->setToolTip(PlainToolTip(name));
}

bool frmIMmain::IsNeverSaved() const
{
    return DocumentName().left(neverSavedLength) == newDocumentName;
}

void frmIMmain::MapsText1_Change()
{
    documentChanged_ = true;
}

void frmIMmain::ClearDocument()
{
    ui_->MapsText1->LoadText(QString());
    SetDocumentName(newDocumentName.toString());
    documentChanged_ = false;
}

void frmIMmain::NewDocument()
{
    if (documentChanged_) {
        (void)MayDiscardChanges();
    } else {
        ClearDocument();
    }
}

void frmIMmain::OpenDocument()
{
    GoToProgramFolder(imgMap_);
    if (documentChanged_ && !MayDiscardChanges()) {
        return;
    }
    const std::optional<QString> path = AskForOpenPath();
    if (!path) {
        return;
    }
    ShowHourglass();
    const std::optional<QString> text = ReadDocument(*path);
    if (text) {
        ui_->MapsText1->LoadText(*text);
        SetDocumentName(*path);
        documentChanged_ = false;
    }
    ShowDefaultPointer();
    if (!text) {
        ShowMessage(this, QMessageBox::Information, QStringLiteral("Can't open file: ") + *path);
    }
}

void frmIMmain::SaveDocument()
{
    GoToProgramFolder(imgMap_);
    const std::optional<QString> path = IsNeverSaved() ? AskForSavePath() : DocumentName();
    if (path && !path->isEmpty()) {
        WriteDocument(*path);
    }
}

void frmIMmain::SaveDocumentAs()
{
    GoToProgramFolder(imgMap_);
    const std::optional<QString> path = AskForSavePath();
    if (path && !path->isEmpty()) {
        WriteDocument(*path);
    }
}

void frmIMmain::WriteDocument(const QString& path)
{
    if (WriteText(path)) {
        SetDocumentName(path);
        documentChanged_ = false;
    }
}

bool frmIMmain::WriteText(const QString& path)
{
    ShowHourglass();
    const std::optional<QString> error =
        WriteWholeFile(path, AnsiCodePage::Encode(ui_->MapsText1->Text()) + "\r\n");
    ShowDefaultPointer();
    if (error) {
        ShowMessage(this, QMessageBox::Warning, *error);
    }
    return !error;
}

/** Runs the save prompt; false when the user wants to keep the document as it is. */
bool frmIMmain::MayDiscardChanges()
{
    imgMap_.ContinueAction = true;
    PromptSaveChanges();
    const bool mayContinue = imgMap_.ContinueAction;
    imgMap_.ContinueAction = false;
    return mayContinue;
}

void frmIMmain::PromptSaveChanges()
{
    const QString name = DocumentName();
    const QMessageBox::StandardButton answer = ShowMessage(
        this, QMessageBox::Warning,
        u"The text in [" + name + u"] has changed.\n\rDo you want to save the changes?",
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::No) {
        ClearDocument();
        return;
    }
    const std::optional<QString> path = answer != QMessageBox::Yes ? std::nullopt
                                        : IsNeverSaved()           ? AskForSavePath()
                                                                   : name;
    if (!path) {
        imgMap_.ContinueAction = false;
        return;
    }
    // A failed save keeps everything but does not stop the caller.
    if (!path->isEmpty() && WriteText(*path)) {
        ClearDocument();
    }
}

std::optional<QString> frmIMmain::AskForSavePath()
{
    FileDialog dialog(this, QStringLiteral("CommonDialog1"), QFileDialog::AnyFile, documentFilter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QString::fromLatin1(defaultSuffix));
    dialog.setDirectory(imgMap_.ProgramFolder);
    dialog.selectFile(IsNeverSaved() ? QString::fromLatin1(newFileName) : DocumentName());
    return dialog.Choose();
}

std::optional<QString> frmIMmain::AskForOpenPath()
{
    FileDialog dialog(this, QStringLiteral("CommonDialog1"), QFileDialog::AnyFile, documentFilter);
    dialog.setDirectory(imgMap_.ProgramFolder);
    const std::optional<QString> path = dialog.Choose();
    return path ? std::optional(WithDefaultSuffix(*path)) : std::nullopt;
}

bool frmIMmain::QueryUnload()
{
    return !documentChanged_ || MayDiscardChanges();
}
