#pragma once

#include "imagemap/DrawingView.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QWidget>
#include <optional>

/**
 * The widget that shows the picture: one pixel of it is one pixel of the picture at any scaling of the
 * screen. Figures painted with the copy pen stay on it, with a light edge outside where the picture would
 * swallow them; one figure at a time follows the mouse, inverted or in whatever colour can be seen.
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

    /** The colour of figures painted from now on; those that are there keep theirs until they are painted
     * anew. */
    void SetForegroundColor(const QColor& color);

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
    void PaintForGood(const PaintedFigure& figure);
    void UpdateFigure(const PaintedFigure& figure);
    void LightenEdges(QImage& part, const QRect& place) const;
    void ShowRubber(QImage& part, const QRect& place) const;

    QImage picture_;
    QImage drawing_;       ///< the picture with its figures; shares the picture's pixels until the first one
    QImage outlines_;      ///< a mask of what figures were painted on; none before the first
    QImage edges_;         ///< a mask of what lies just outside of figures
    QList<QRect> painted_; ///< where figures were painted since the drawing was the bare picture
    std::optional<PaintedFigure> rubber_;
    QColor foregroundColor_ = Qt::black;
};
