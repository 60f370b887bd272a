#include "imagemap/ZoomControls.h"

#include "imagemap/PicturePane.h"
#include "imagemap/ZoomedPicture.h"
#include "widgets/OneLineField.h"
#include "widgets/WindowHelpers.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStatusBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double wholeZoom = 100;

/** In tenths of a per cent at most. */
QString ZoomText(double zoom)
{
    constexpr double tenths = 10;
    return QStringLiteral("%1 %").arg(std::round(zoom * wholeZoom * tenths) / tenths);
}

/** The zoom that `text` tells, as "200 %", "12.5" or "3,200 %"; 0 where it tells none. */
double ZoomIn(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("^\\s*(\\d{1,3}(?:[, ]\\d{3})+|\\d+)(?:[.,](\\d+))?\\D*$"));
    const QRegularExpressionMatch match = form.match(text);
    const QString digits = match.captured(1).remove(u',').remove(u' ');
    return QString(digits + u'.' + match.captured(2)).toDouble() / wholeZoom;
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
    Pane_ZoomChanged();
    cmbZoom_->setEnabled(false);
    bar.addPermanentWidget(cmbZoom_);
    HoldOneLine(&bar);
    cmbZoom_->installEventFilter(this);
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

/** In the field arrows and wheel go on from the zoom in force, which need not be one of the list. */
bool ZoomControls::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut) {
        // What was typed and not entered goes, so that the field tells what is.
        Pane_ZoomChanged();
    }
    if (event->type() == QEvent::Wheel) {
        const int way = static_cast<QWheelEvent*>(event)->angleDelta().y();
        if (way != 0) {
            way > 0 ? In() : Out();
        }
        return true;
    }
    if (event->type() != QEvent::KeyPress) {
        return QObject::eventFilter(watched, event);
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool isArrow = key.key() == Qt::Key_Down || key.key() == Qt::Key_Up;
    if (!isArrow || (key.modifiers() & ~Qt::KeypadModifier) != 0) {
        return QObject::eventFilter(watched, event);
    }
    // The list grows downwards.
    key.key() == Qt::Key_Down ? In() : Out();
    return true;
}

void ZoomControls::Pane_ZoomChanged()
{
    const auto* const above =
        std::upper_bound(zoomSteps.begin(), zoomSteps.end(), pane_.Zoom() * wholeZoom + 1 / 2.0);
    cmbZoom_->setCurrentIndex(static_cast<int>(above - zoomSteps.begin()) - 1);
    cmbZoom_->setEditText(ZoomText(pane_.Zoom()));
}

void ZoomControls::cmbZoom_Chosen()
{
    const double zoom = ZoomIn(cmbZoom_->currentText());
    // What is told already may be told in fewer figures than it has.
    if (zoom > 0 && cmbZoom_->currentText() != ZoomText(pane_.Zoom())) {
        SetFitting(false);
        pane_.SetZoom(zoom);
    }
    // What cannot be understood, or lies beyond the limits, gives way to what is.
    Pane_ZoomChanged();
}
