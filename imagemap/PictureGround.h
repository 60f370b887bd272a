#pragma once

#include "imagemap/KeptGround.h"
#include "imagemap/drawing/DrawingView.h"
#include "imagemap/model/MapArea.h"

#include <QColor>
#include <QImage>
#include <optional>

class QWidget;

/** A picture and what is drawn on it. */
struct DrawnPicture
{
    QImage Picture;
    double Zoom = 1;
    PaintedFigures Figures;
    QColor ForegroundColor = Qt::black; ///< of all figures
    MapAreas Areas;                     ///< shown closed, filled and numbered, if there are any
};

/**
 * What a surface shows below the selection: the picture, what is drawn on it, and a figure that follows the
 * mouse. Where much is drawn it keeps what it has painted.
 */
class PictureGround
{
public:
    [[nodiscard]] const DrawnPicture& Drawn() const { return drawn_; }

    /** To change it by; what was kept is forgotten. */
    [[nodiscard]] DrawnPicture& ToChange();

    /** For when colours or font have changed. */
    void Forget();

    [[nodiscard]] const std::optional<PaintedFigure>& Rubber() const { return rubber_; }
    void SetRubber(const std::optional<PaintedFigure>& rubber) { rubber_ = rubber; }

    /** The pixels of the widget that a figure may touch. */
    [[nodiscard]] QRect PlaceOf(const PaintedFigure& figure) const;

    /** Paints what is in `exposed` on `surface`. */
    void Paint(QPainter& painter, const QWidget& surface, const QRect& exposed);

private:
    void PaintDrawn(QPainter& painter, const QWidget& surface, const QRect& exposed);
    void PaintPicture(QPainter& painter, const QWidget& surface, const QRect& exposed);

    DrawnPicture drawn_;
    std::optional<PaintedFigure> rubber_;
    KeptGround kept_;
    KeptPart underRubber_;
};

/** Where the screen's pixels do not meet the picture's, those at the border belong to both sides of it. */
inline constexpr int sharedBorder = 1;

[[nodiscard]] inline QRect Grown(const QRect& rect, int by)
{
    return rect.adjusted(-by, -by, by, by);
}

/** Cuts nothing off, but Qt paints thin lines several times as fast when it is told a clip. */
void ClipForLines(QPainter& painter, const QRect& surface);
