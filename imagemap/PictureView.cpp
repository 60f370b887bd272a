#include "imagemap/PictureView.h"

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
    return QWidget::event(event);
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
