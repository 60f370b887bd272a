#include "imagemap/PictureGround.h"

#include "imagemap/FigurePainting.h"
#include "imagemap/SelectionPainting.h"
#include "imagemap/ZoomedPicture.h"

#include <QPainter>
#include <QWidget>
#include <algorithm>

namespace {

/** How far beyond its bounds a figure with its edge reaches. */
constexpr int edgeWidth = 1;
/** With more figures or areas than this, what was painted is kept. */
constexpr int keptFrom = 64;

/** `figure` of the picture as the screen shows it. */
PaintedFigure FigureOnScreen(const PaintedFigure& figure, double zoom)
{
    return zoom == 1 ? figure : Zoomed(figure, zoom);
}

/** Those of `figures` that `place` of the screen shows something of, as it shows them. */
PaintedFigures FiguresIn(const PaintedFigures& figures, double zoom, const QRect& place)
{
    PaintedFigures shown;
    for (const PaintedFigure& one : figures) {
        const PaintedFigure figure = FigureOnScreen(one, zoom);
        if (Grown(BoundsOf(figure), edgeWidth).intersects(place)) {
            shown << figure;
        }
    }
    return shown;
}

} // namespace

void ClipForLines(QPainter& painter, const QRect& surface)
{
    painter.setClipRect(Grown(surface, sharedBorder));
}

DrawnPicture& PictureGround::ToChange()
{
    Forget();
    return drawn_;
}

void PictureGround::Forget()
{
    kept_.Forget();
    underRubber_.Forget();
}

QRect PictureGround::PlaceOf(const PaintedFigure& figure) const
{
    return Grown(BoundsOf(FigureOnScreen(figure, drawn_.Zoom)), edgeWidth + sharedBorder);
}

void PictureGround::Paint(QPainter& painter, const QWidget& surface, const QRect& exposed)
{
    if (!rubber_ && std::max(drawn_.Figures.size(), drawn_.Areas.size()) > keptFrom) {
        kept_.Paint(painter, exposed, [this, &surface, exposed](QPainter& keeper) {
            PaintDrawn(keeper, surface, exposed);
        });
    } else {
        PaintDrawn(painter, surface, exposed);
    }
}

void PictureGround::PaintDrawn(QPainter& painter, const QWidget& surface, const QRect& exposed)
{
    PaintPicture(painter, surface, exposed);
    if (!drawn_.Areas.isEmpty()) {
        ClipForLines(painter, surface.rect());
        PaintAreas(painter, drawn_.Areas, drawn_.Zoom, surface.palette(), exposed);
    }
}

void PictureGround::PaintPicture(QPainter& painter, const QWidget& surface, const QRect& exposed)
{
    const bool hasRubber = rubber_ && BoundsOf(FigureOnScreen(*rubber_, drawn_.Zoom)).intersects(exposed);
    const bool isKept = hasRubber && drawn_.Figures.size() > keptFrom;
    if (drawn_.Zoom == 1 && !hasRubber && FiguresIn(drawn_.Figures, drawn_.Zoom, exposed).isEmpty()) {
        painter.drawImage(exposed, drawn_.Picture, exposed);
        return;
    }
    // In the picture's own pixels, so that figures look the same at every scaling.
    const auto make = [this](const QRect& place) {
        QImage drawn =
            drawn_.Zoom == 1 ? drawn_.Picture.copy(place) : ZoomedPart(drawn_.Picture, drawn_.Zoom, place);
        const PaintedFigures figures = FiguresIn(drawn_.Figures, drawn_.Zoom, place);
        if (!figures.isEmpty()) {
            PaintFigures(drawn, place.topLeft(), figures, drawn_.ForegroundColor);
        }
        return drawn;
    };
    const QRect seen = Grown(surface.visibleRegion().boundingRect(), sharedBorder) & surface.rect();
    QImage part = isKept ? underRubber_.Of(exposed, seen, make) : make(exposed);
    if (hasRubber) {
        PaintRubber(part, exposed.topLeft(), FigureOnScreen(*rubber_, drawn_.Zoom));
    }
    painter.drawImage(exposed, part);
}
