#pragma once

#include "imagemap/drawing/DrawingView.h"

#include <QColor>
#include <QImage>
#include <QWidget>
#include <optional>

/**
 * The widget that shows the picture: one pixel of it is one pixel of the picture at any scaling of the
 * screen. Over the picture it shows the figures that it is given, and one that follows the mouse.
 *
 * It only forwards the mouse, a double click as two presses; what a press means is decided elsewhere.
 */
class PictureSurface : public QWidget, public DrawingSurface
{
    Q_OBJECT

public:
    explicit PictureSurface(QWidget* parent = nullptr);

    /** Shows `picture` without any figures and takes its size; a null picture leaves an empty surface. */
    void SetPicture(const QImage& picture);

    [[nodiscard]] QColor ForegroundColor() const { return foregroundColor_; }

    /** The colour of all figures. */
    void SetForegroundColor(const QColor& color);

    [[nodiscard]] int PictureWidth() const override { return picture_.width(); }
    [[nodiscard]] int PictureHeight() const override { return picture_.height(); }
    void ShowFigures(const PaintedFigures& figures) override;
    void ShowRubberFigure(const PaintedFigure& figure) override;
    void EraseRubberFigure() override;
    void SetPointer(SurfacePointer pointer) override;

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
    void UpdateFigure(const PaintedFigure& figure);
    [[nodiscard]] PaintedFigures FiguresIn(const QRect& place) const;
    void PaintFigures(QImage& part, QPoint place, const PaintedFigures& figures) const;
    void PaintRubber(QImage& part, QPoint place) const;

    QImage picture_;
    PaintedFigures figures_;
    std::optional<PaintedFigure> rubber_;
    QColor foregroundColor_ = Qt::black;
};
