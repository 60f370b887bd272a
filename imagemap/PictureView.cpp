#include "imagemap/PictureView.h"

#include <QWheelEvent>

PictureView::PictureView(QWidget* parent)
    : QWidget(parent)
{
}

void PictureView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Q_EMIT Resized();
}

void PictureView::wheelEvent(QWheelEvent* event)
{
    const bool sideways = event->modifiers().testFlag(Qt::ShiftModifier);
    const QPoint angle = event->angleDelta();
    Q_EMIT WheelTurned(sideways && angle.x() == 0 ? angle.transposed() : angle);
    event->accept();
}
