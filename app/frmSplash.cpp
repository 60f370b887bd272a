#include "app/frmSplash.h"

#include "ui_frmSplash.h"
#include "widgets/WindowHelpers.h"

#include <QIcon>
#include <QPainter>

namespace {

constexpr int shownMilliseconds = 3000;

} // namespace

frmSplash::frmSplash(ImgMap& imgMap, QWidget* parent)
    : QWidget(parent, Qt::SplashScreen)
    , imgMap_(imgMap)
    , ui_(std::make_unique<Ui::frmSplash>())
    , timer1_(this)
{
    ui_->setupUi(this);
    setFixedSize(size());
    timer1_.setObjectName(QStringLiteral("Timer1"));
    timer1_.setSingleShot(true);
    timer1_.setTimerType(Qt::PreciseTimer);
    timer1_.setInterval(shownMilliseconds);
    connect(&timer1_, &QTimer::timeout, this, &frmSplash::Timer1_Timer);
}

frmSplash::~frmSplash() = default;

void frmSplash::Form_Load()
{
    GoToProgramFolder(imgMap_);
    CentreOnScreen(this);
    ShowHourglass();
    ui_->lblProductName->setText(applicationTitle.toString());
    ui_->lblVersion->setText(QStringLiteral("Version %1.%2").arg(CARTOLEN_MAJOR).arg(CARTOLEN_MINOR));
    timer1_.start();
}

void frmSplash::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, QIcon(QStringLiteral(":/icons/splash.svg")).pixmap(size(), devicePixelRatioF()));
}
