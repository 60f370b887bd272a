#pragma once

#include <QWidget>

class QPinchGesture;

/** The visible area of the picture; two scroll bars beside it shift what lies inside. */
class PictureView : public QWidget
{
    Q_OBJECT

public:
    explicit PictureView(QWidget* parent = nullptr);

Q_SIGNALS:
    /** The room inside the frame has changed. */
    void Resized();

    /** The wheel was turned by so many eighths of a degree; positive is up or left. */
    void WheelTurned(QPoint angle);

    /** The wheel was turned with Ctrl held, or fingers spread: to be so many times as large about `place`. */
    void ZoomTurned(double factor, QPoint place);

    /** Two fingers have come down on the screen: what the first of them began is not meant. */
    void PinchBegun();

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Pinch(const QPinchGesture& pinch);
};
