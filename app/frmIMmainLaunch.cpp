// The main window's ways to the world outside: preview, printing, help, home page and About.

#include "app/Desktop.h"
#include "app/ShellErrors.h"
#include "app/TemporaryCopy.h"
#include "app/frmIMmain.h"
#include "help/HelpDisplay.h"
#include "ui_frmIMmain.h"
#include "widgets/WindowHelpers.h"

#include <QIcon>
#include <QLabel>
#include <QUrl>

namespace {

constexpr int showMaximised = 3;
constexpr const char* creditLine = "Made by the Cartolen authors";
constexpr const char* licenceLine = "Free software under the MIT License";
constexpr QSize aboutLogoSize(64, 64);

} // namespace

void frmIMmain::ShellRun(const QString& verb, const QString& target)
{
    // To the user the copy of a new document is missing, not the program's own folder for it, of which he
    // knows nothing.
    const int missingFolder = IsNeverSaved() ? shellFileNotFound : shellPathNotFound;
    Launch(
        { .Window = winId(),
          .Verb = verb,
          .Target = target,
          .Parameters = QStringLiteral("0"),
          .Folder = target,
          .ShowMode = 0 },
        missingFolder);
}

/** Tells of an error, of a missing folder as `missingFolder`. */
void frmIMmain::Launch(const ShellRequest& request, int missingFolder)
{
    const QPointer<frmIMmain> window(this);
    desktop_.Execute(request, [window, missingFolder](int code) {
        if (window != nullptr && code < leastShellSuccess) {
            window->ShowShellError(code == shellPathNotFound ? missingFolder : code);
        }
    });
}

void frmIMmain::ShowShellError(int code)
{
    ShowMessage(this, QMessageBox::Critical, ShellErrorText(code));
}

QString frmIMmain::WriteTemporaryCopy(const QString& ending)
{
    QString path = IsNeverSaved() ? TemporaryCopyOfNew(imgMap_.ProgramFolder, ending)
                                  : TemporaryCopyOf(DocumentName(), ending);
    // A failure has been told; what there is of an older copy is still launched.
    (void)WriteText(path);
    return path;
}

void frmIMmain::PrintDocument()
{
    if (ui_->MapsText1->TextLength() == 0) {
        ShowMessage(
            this, QMessageBox::Information,
            QStringLiteral("There is no contents to print in the current document!"));
        return;
    }
    ShellRun(QStringLiteral("Print"), WriteTemporaryCopy(QStringLiteral("txt")));
}

void frmIMmain::PreviewDocument()
{
    if (ui_->MapsText1->TextLength() == 0) {
        ShowMessage(
            this, QMessageBox::Information,
            QStringLiteral("There is no contents to display in the current document!"));
        return;
    }
    ShellRun(QStringLiteral("Open"), WriteTemporaryCopy(QStringLiteral("html")));
}

void frmIMmain::ShowHelpContents()
{
    GoToProgramFolder(imgMap_);
    help_->ShowContents(this);
}

void frmIMmain::ShowHelpSearch()
{
    GoToProgramFolder(imgMap_);
    help_->ShowSearch(this);
}

void frmIMmain::Help_LinkToOutside(const QUrl& url)
{
    OpenAddress(url.toString(QUrl::FullyEncoded));
}

void frmIMmain::OpenHomePage()
{
    OpenAddress(homePage.toString());
}

void frmIMmain::OpenAddress(const QString& address)
{
    Launch(
        { .Window = winId(),
          .Verb = QStringLiteral("Open"),
          .Target = address,
          .Parameters = QString(),
          .Folder = address,
          .ShowMode = showMaximised },
        shellPathNotFound);
}

void frmIMmain::ShowAbout()
{
    const QString application = applicationTitle.toString();
    const QString details = QStringLiteral("V%1.%2\n%3")
                                .arg(CARTOLEN_MAJOR)
                                .arg(CARTOLEN_MINOR)
                                .arg(QString::fromLatin1(creditLine));
    if (!desktop_.ShowAboutBox(winId(), application, details)) {
        ShowOwnAboutBox(application + u'\n' + details);
    }
}

void frmIMmain::ShowOwnAboutBox(const QString& text)
{
    QMessageBox box(QMessageBox::Information, QStringLiteral("About"), text, QMessageBox::Ok, this);
    const QString address = homePage.toString();
    box.setInformativeText(
        QStringLiteral("%1<br><a href=\"%2\">%2</a>").arg(QString::fromLatin1(licenceLine), address));
    // It stays a box of information to screen readers; only its picture is another.
    if (auto* const picture = box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"))) {
        picture->setPixmap(
            QIcon(QStringLiteral(":/icons/cartolen.svg")).pixmap(aboutLogoSize, devicePixelRatioF()));
    }
    if (auto* const links = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"))) {
        links->setOpenExternalLinks(false);
        connect(links, &QLabel::linkActivated, this, &frmIMmain::OpenAddress);
    }
    box.exec();
}
