#include "app/OutsideCommands.h"

#include "app/Desktop.h"
#include "app/DocumentCommands.h"
#include "app/SourceEditor.h"
#include "app/rules/DocumentFile.h"
#include "app/rules/ShellErrors.h"
#include "shared/ImgMap.h"
#include "widgets/WindowHelpers.h"

#include <QIcon>
#include <QLabel>
#include <QPointer>

namespace {

constexpr int showMaximised = 3;
constexpr const char* creditLine = "Made by the Cartolen authors";
constexpr const char* licenceLine = "Free software under the MIT License";
constexpr QSize aboutLogoSize(64, 64);

} // namespace

OutsideCommands::OutsideCommands(
    QWidget* window, Desktop& desktop, DocumentCommands& documents, const DocumentFile& file,
    const SourceEditor& editor)
    : QObject(window)
    , window_(window)
    , desktop_(desktop)
    , documents_(documents)
    , file_(file)
    , editor_(editor)
{
}

void OutsideCommands::ShellRun(const QString& verb, const QString& target)
{
    // To the user the copy of a new document is missing, not the program's own folder for it, of which he
    // knows nothing.
    const int missingFolder = file_.IsNeverSaved() ? shellFileNotFound : shellPathNotFound;
    Launch(
        { .Window = window_->winId(),
          .Verb = verb,
          .Target = target,
          .Parameters = QStringLiteral("0"),
          .Folder = target,
          .ShowMode = 0,
          .Encoding = file_.Encoding() },
        missingFolder);
}

/** Tells of an error, of a missing folder as `missingFolder`. */
void OutsideCommands::Launch(const ShellRequest& request, int missingFolder)
{
    const QPointer<OutsideCommands> self(this);
    desktop_.Execute(request, [self, missingFolder](int code) {
        if (self != nullptr && code < leastShellSuccess) {
            self->ShowShellError(code == shellPathNotFound ? missingFolder : code);
        }
    });
}

void OutsideCommands::ShowShellError(int code)
{
    ShowMessage(window_, QMessageBox::Critical, ShellErrorText(code));
}

void OutsideCommands::PrintDocument()
{
    if (editor_.TextLength() == 0) {
        ShowMessage(
            window_, QMessageBox::Information,
            QStringLiteral("There is no contents to print in the current document!"));
        return;
    }
    ShellRun(QStringLiteral("Print"), documents_.WriteTemporaryCopy(QStringLiteral("txt")));
}

void OutsideCommands::PreviewDocument()
{
    if (editor_.TextLength() == 0) {
        ShowMessage(
            window_, QMessageBox::Information,
            QStringLiteral("There is no contents to display in the current document!"));
        return;
    }
    ShellRun(QStringLiteral("Open"), documents_.WriteTemporaryCopy(QStringLiteral("html")));
}

void OutsideCommands::OpenHomePage()
{
    OpenAddress(homePage.toString());
}

void OutsideCommands::OpenAddress(const QString& address)
{
    Launch(
        { .Window = window_->winId(),
          .Verb = QStringLiteral("Open"),
          .Target = address,
          .Parameters = QString(),
          .Folder = address,
          .ShowMode = showMaximised,
          .Encoding = {} },
        shellPathNotFound);
}

void OutsideCommands::ShowAbout()
{
    const QString application = applicationTitle.toString();
    const QString details = QStringLiteral("V%1.%2\n%3")
                                .arg(CARTOLEN_MAJOR)
                                .arg(CARTOLEN_MINOR)
                                .arg(QString::fromLatin1(creditLine));
    if (!desktop_.ShowAboutBox(window_->winId(), application, details)) {
        ShowOwnAboutBox(application + u'\n' + details);
    }
}

void OutsideCommands::ShowOwnAboutBox(const QString& text)
{
    QMessageBox box(QMessageBox::Information, QStringLiteral("About"), text, QMessageBox::Ok, window_);
    const QString address = homePage.toString();
    box.setInformativeText(
        QStringLiteral("%1<br><a href=\"%2\">%2</a>").arg(QString::fromLatin1(licenceLine), address));
    // It stays a box of information to screen readers; only its picture is another.
    if (auto* const picture = box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"))) {
        picture->setPixmap(QIcon(QStringLiteral(":/icons/cartolen.svg"))
                               .pixmap(aboutLogoSize, window_->devicePixelRatioF()));
    }
    if (auto* const links = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"))) {
        links->setOpenExternalLinks(false);
        connect(links, &QLabel::linkActivated, this, &OutsideCommands::OpenAddress);
    }
    box.exec();
}
