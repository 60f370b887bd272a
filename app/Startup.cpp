#include "app/Startup.h"

#include "app/LookStyle.h"
#include "app/SessionGuard.h"
#include "app/frmIMmain.h"
#include "app/frmSplash.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QIcon>
#include <utility>

/** The icons lie in a static library, from which nothing else would fetch them. */
static void LoadIcons()
{
    Q_INIT_RESOURCE(icons);
}

constexpr const char* windowFont = "Tahoma";
/** How long files wait before it is looked again whether a dialog is still open. */
constexpr std::chrono::milliseconds afterAnswers(250);

/** Lets fonts that take as much room stand in for those of Windows where they are missing. */
static void NameStandInFonts()
{
    const QStringList standIns = { QStringLiteral("Liberation Sans"), QStringLiteral("Arimo"),
                                   QStringLiteral("Nimbus Sans"), QStringLiteral("DejaVu Sans Condensed") };
    QFont::insertSubstitutions(QString::fromLatin1(windowFont), standIns);
    QFont::insertSubstitutions(QStringLiteral("MS Sans Serif"), standIns);
}

/**
 * Where a stand-in is taken for the windows' font, menus, tool tips, message boxes and the help take it too.
 * Sizes stay the desktop's.
 */
static void UseOneTypeface()
{
    if (!QFontDatabase::hasFamily(QString::fromLatin1(windowFont))) {
        QFont font = QApplication::font();
        font.setFamilies({ QString::fromLatin1(windowFont) });
        QApplication::setFont(font);
    }
}

static void UseOwnLook()
{
    if (qobject_cast<LookStyle*>(QApplication::style()) == nullptr) {
        QApplication::setStyle(new LookStyle);
    }
}

Startup::Startup(ImgMap& imgMap, MapDocument& map, Desktop& desktop)
    : imgMap_(imgMap)
    , map_(map)
    , desktop_(desktop)
{
    LoadIcons();
    NameStandInFonts();
    UseOneTypeface();
    UseOwnLook();
    waitingTimer_.setSingleShot(true);
    connect(&waitingTimer_, &QTimer::timeout, this, &Startup::OpenWaiting);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/cartolen.svg")));
}

Startup::~Startup() = default;

void Startup::Begin()
{
    splash_ = std::make_unique<frmSplash>(imgMap_);
    connect(splash_.get(), &frmSplash::Timer1_Timer, this, &Startup::ShowMainWindow);
    splash_->Form_Load();
    splash_->show();
}

void Startup::ShowMainWindow()
{
    mainWindow_ = std::make_unique<frmIMmain>(imgMap_, map_, desktop_);
    mainWindow_->Form_Load();
    splash_->hide();
    splash_.release()->deleteLater();
    mainWindow_->setWindowTitle(applicationTitle.toString());
    mainWindow_->show();
    sessionGuard_ = std::make_unique<SessionGuard>(*mainWindow_);
    OpenWaiting();
}

void Startup::OpenFiles(const QStringList& files)
{
    waiting_ << files;
    OpenWaiting();
}

void Startup::OpenWaiting()
{
    if (waiting_.isEmpty() || mainWindow_ == nullptr || !mainWindow_->isVisible()) {
        return;
    }
    if (QApplication::activeModalWidget() != nullptr) {
        waitingTimer_.start(afterAnswers);
        return;
    }
    mainWindow_->OpenFiles(std::exchange(waiting_, {}));
}
