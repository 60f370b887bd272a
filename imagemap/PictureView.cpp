#include "imagemap/PictureView.h"

#include <QGestureEvent>
#include <QNativeGestureEvent>
#include <QWheelEvent>
#include <cmath>

namespace {

/** A notch of the wheel makes the picture so many times as large, and has so many eighths of a degree. */
constexpr double notchFactor = 1.25;
constexpr double eighthsOfANotch = 120;

} // namespace

PictureView::PictureView(QWidget* parent)
    : QWidget(parent)
{
    grabGesture(Qt::PinchGesture);
}

void PictureView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Q_EMIT Resized();
}

bool PictureView::event(QEvent* event)
{
    if (event->type() == QEvent::NativeGesture) {
        const auto& gesture = *static_cast<QNativeGestureEvent*>(event);
        if (gesture.gestureType() == Qt::ZoomNativeGesture) {
            // Its own position stays that in the picture when it comes from there.
            Q_EMIT ZoomTurned(1 + gesture.value(), mapFromGlobal(gesture.globalPosition()).toPoint());
            return true;
        }
    }
    if (event->type() == QEvent::Gesture) {
        auto& gestures = *static_cast<QGestureEvent*>(event);
        if (const auto* const pinch = dynamic_cast<QPinchGesture*>(gestures.gesture(Qt::PinchGesture))) {
            Pinch(*pinch);
            return true;
        }
    }
    return QWidget::event(event);
}

/** Two fingers on the screen itself. */
void PictureView::Pinch(const QPinchGesture& pinch)
{
    if (pinch.state() == Qt::GestureStarted) {
        Q_EMIT PinchBegun();
    } else if (pinch.state() == Qt::GestureUpdated) {
        Q_EMIT ZoomTurned(pinch.scaleFactor(), mapFromGlobal(pinch.centerPoint()).toPoint());
    }
}

void PictureView::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        Q_EMIT ZoomTurned(
            std::pow(notchFactor, event->angleDelta().y() / eighthsOfANotch), event->position().toPoint());
        event->accept();
        return;
    }
    const bool sideways = event->modifiers().testFlag(Qt::ShiftModifier);
    const QPoint angle = event->angleDelta();
    Q_EMIT WheelTurned(sideways && angle.x() == 0 ? angle.transposed() : angle);
    event->accept();
}
