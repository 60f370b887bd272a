#pragma once

#include "imagemap/DrawingView.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QWidget>
#include <optional>

/**
 * The widget that shows the picture: one pixel of it is one pixel of the picture at any scaling of the
 * screen. Figures painted with the copy pen stay on it; one figure at a time follows the mouse.
 *
 * It only forwards the mouse, a double click as two presses; what a press means is decided elsewhere.
 */
class PictureSurface : public QWidget
{
    Q_OBJECT

public:
    explicit PictureSurface(QWidget* parent = nullptr);

    /** Shows `picture` without any drawing and takes its size; a null picture leaves an empty surface. */
    void SetPicture(const QImage& picture);

    [[nodiscard]] QColor ForegroundColor() const { return foregroundColor_; }

    /** The colour of figures painted from now on. */
    void SetForegroundColor(const QColor& color) { foregroundColor_ = color; }

    void PaintFigure(const PaintedFigure& figure, Pen pen);
    void EraseRubberFigure();

    /** Takes all figures off the picture. */
    void ClearDrawing();

Q_SIGNALS:
    void MouseDown(int button, float x, float y);
    void MouseMove(float x, float y);
    void MouseUp(int button, float x, float y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QImage picture_;
    QImage drawing_;       ///< the picture with its figures; shares the picture's pixels until the first one
    QList<QRect> painted_; ///< where figures were painted since the drawing was the bare picture
    std::optional<PaintedFigure> rubber_;
    QColor foregroundColor_ = Qt::black;
};
