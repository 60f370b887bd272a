#pragma once

#include "imagemap/KeptOutlines.h"
#include "imagemap/PictureGround.h"
#include "imagemap/drawing/DrawingView.h"
#include "imagemap/drawing/KeyedDrawing.h"
#include "imagemap/drawing/SelectionView.h"

#include <QColor>
#include <QImage>
#include <QWidget>
#include <optional>

/**
 * The widget that shows the picture: one pixel of it is one pixel of the picture at any scaling of the
 * screen, or so many times as large as the zoom says. Over the picture it shows the figures that it is given,
 * one that follows the mouse, and what is selected. It needs memory for what is seen of it alone.
 *
 * It only forwards the mouse, a double click as two presses; what a press means is decided elsewhere.
 */
class PictureSurface : public QWidget, public DrawingSurface, public SelectionSurface, public CrossSurface
{
    Q_OBJECT

public:
    explicit PictureSurface(QWidget* parent = nullptr);

    /** Shows `picture` without any figures and takes its size; a null picture leaves an empty surface. */
    void SetPicture(const QImage& picture);

    /** The picture without anything on it; null when there is none. */
    [[nodiscard]] const QImage& Picture() const { return ground_.Drawn().Picture; }

    /** Shows a pixel of the picture so many times as large. */
    void SetZoom(double zoom);
    [[nodiscard]] double Zoom() const override { return ground_.Drawn().Zoom; }

    /** Where a pixel of the widget lies in the picture. */
    [[nodiscard]] QPointF ToPicture(QPointF place) const { return place / Zoom(); }

    /** The pixels of the widget that show those pixels of the picture. */
    [[nodiscard]] QRect FromPicture(const QRect& pixels) const;

    /** Shows these areas closed, filled and numbered over the picture; none to show them as they are drawn.
     */
    void ShowAreas(const MapAreas& areas);
    void ShowSelection(const SelectionPicture& selection) override;
    void ShowCross(QPoint place) override;
    void HideCross() override;

    [[nodiscard]] QColor ForegroundColor() const { return ground_.Drawn().ForegroundColor; }

    /** The colour of all figures. */
    void SetForegroundColor(const QColor& color);

    [[nodiscard]] int PictureWidth() const override { return ground_.Drawn().Picture.width(); }
    [[nodiscard]] int PictureHeight() const override { return ground_.Drawn().Picture.height(); }
    void ShowFigures(const PaintedFigures& figures) override;
    void ShowRubberFigure(const PaintedFigure& figure) override;
    void EraseRubberFigure() override;
    void SetPointer(SurfacePointer pointer) override;

Q_SIGNALS:
    /** The keys held with the mouse event that is told of next. */
    void KeysHeld(Qt::KeyboardModifiers keys);
    /** The cross that keys draw with is at that pixel of the picture. */
    void CrossMoved(QPoint place);
    /** The press told of last was the second of two. */
    void DoubleClicked(float x, float y);
    void MouseDown(int button, float x, float y);
    void MouseMove(float x, float y);
    void MouseUp(int button, float x, float y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void UpdateSelection(const SelectionPicture& selection);

    PictureGround ground_;
    SelectionPicture selection_;
    std::optional<QPoint> cross_;
    KeptOutlines outlines_;
};
