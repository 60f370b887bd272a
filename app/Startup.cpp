#include "app/Startup.h"

#include "app/SessionGuard.h"
#include "app/frmIMmain.h"
#include "app/frmSplash.h"

#include <QApplication>
#include <QFont>
#include <QIcon>

/** The icons lie in a static library, from which nothing else would fetch them. */
static void LoadIcons()
{
    Q_INIT_RESOURCE(icons);
}

/** Lets fonts that take as much room stand in for those of Windows where they are missing. */
static void NameStandInFonts()
{
    const QStringList standIns = { QStringLiteral("Liberation Sans"), QStringLiteral("Arimo"),
                                   QStringLiteral("Nimbus Sans"), QStringLiteral("DejaVu Sans Condensed") };
    QFont::insertSubstitutions(QStringLiteral("Tahoma"), standIns);
    QFont::insertSubstitutions(QStringLiteral("MS Sans Serif"), standIns);
}

Startup::Startup(ImgMap& imgMap, Desktop& desktop)
    : imgMap_(imgMap)
    , desktop_(desktop)
{
    LoadIcons();
    NameStandInFonts();
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
    mainWindow_ = std::make_unique<frmIMmain>(imgMap_, desktop_);
    mainWindow_->Form_Load();
    splash_->hide();
    splash_.release()->deleteLater();
    mainWindow_->setWindowTitle(applicationTitle.toString());
    mainWindow_->show();
    sessionGuard_ = std::make_unique<SessionGuard>(*mainWindow_);
}
