#include "imagemap/ZoomControls.h"

#include "imagemap/PicturePane.h"
#include "imagemap/ZoomedPicture.h"
#include "widgets/OneLineField.h"
#include "widgets/WindowHelpers.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStatusBar>
#include <cmath>
#include <utility>

namespace {

constexpr double wholeZoom = 100;

QString ZoomText(double zoom)
{
    return QStringLiteral("%1 %").arg(std::lround(zoom * wholeZoom));
}

} // namespace

ZoomControls::ZoomControls(PicturePane& pane, QStatusBar& bar)
    : QObject(&pane)
    , pane_(pane)
    , cmbZoom_(new QComboBox(&bar))
{
    cmbZoom_->setObjectName(QStringLiteral("cmbZoom"));
    cmbZoom_->setAccessibleName(QStringLiteral("Zoom"));
    cmbZoom_->setToolTip(QStringLiteral("Zoom"));
    cmbZoom_->setEditable(true);
    cmbZoom_->setInsertPolicy(QComboBox::NoInsert);
    cmbZoom_->setCompleter(nullptr);
    NameParts(cmbZoom_);
    for (const int step : zoomSteps) {
        cmbZoom_->addItem(ZoomText(step / wholeZoom));
    }
    cmbZoom_->setEditText(ZoomText(1));
    cmbZoom_->setEnabled(false);
    bar.addPermanentWidget(cmbZoom_);
    HoldOneLine(&bar);
    connect(cmbZoom_, &QComboBox::activated, this, &ZoomControls::cmbZoom_Chosen);
    connect(cmbZoom_->lineEdit(), &QLineEdit::returnPressed, this, &ZoomControls::cmbZoom_Chosen);
    connect(&pane_, &PicturePane::ZoomChanged, this, &ZoomControls::Pane_ZoomChanged);
    connect(&pane_, &PicturePane::RoomChanged, this, &ZoomControls::Pane_RoomChanged);
}

void ZoomControls::In()
{
    SetFitting(false);
    pane_.SetZoom(NextZoom(pane_.Zoom(), 1));
}

void ZoomControls::Out()
{
    SetFitting(false);
    pane_.SetZoom(NextZoom(pane_.Zoom(), -1));
}

void ZoomControls::ActualSize()
{
    SetFitting(false);
    pane_.SetZoom(1);
}

void ZoomControls::ToggleFit()
{
    SetFitting(!isFitting_);
    Fit();
}

void ZoomControls::FitTo(const QRect& part)
{
    SetFitting(false);
    pane_.FitTo(part);
}

void ZoomControls::SetFitting(bool fits)
{
    isFitting_ = fits;
    Q_EMIT FittingChanged();
}

void ZoomControls::BeginPicture()
{
    cmbZoom_->setEnabled(pane_.Surface().PictureWidth() > 0);
    pane_.SetZoom(isFitting_ ? pane_.FittingZoom() : 1);
}

void ZoomControls::Fit()
{
    if (isFitting_ && pane_.Surface().PictureWidth() > 0) {
        pane_.SetZoom(pane_.FittingZoom());
    }
}

void ZoomControls::Pane_RoomChanged()
{
    Fit();
}

void ZoomControls::Pane_ZoomChanged()
{
    cmbZoom_->setEditText(ZoomText(pane_.Zoom()));
}

void ZoomControls::cmbZoom_Chosen()
{
    static const QRegularExpression number(QStringLiteral("\\d+([.,]\\d+)?"));
    const QString typed = number.match(cmbZoom_->currentText()).captured().replace(u',', u'.');
    const double zoom = typed.toDouble() / wholeZoom;
    if (zoom > 0) {
        SetFitting(false);
        pane_.SetZoom(zoom);
    }
    // What cannot be understood, or lies beyond the limits, gives way to what is.
    Pane_ZoomChanged();
}
