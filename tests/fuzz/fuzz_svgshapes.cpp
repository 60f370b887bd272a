// The shapes of any drawing are areas within the picture, or there is something to be told.

#include "FuzzTarget.h"
#include "imagemap/model/AreaGeometry.h"
#include "outline/ContourThinning.h"
#include "outline/ShapeAreas.h"
#include "outline/SvgPath.h"
#include "outline/SvgShapes.h"

namespace {

constexpr QSize pictureSize(300, 200);

/** A circle that reaches over the edge would have been cut off there. */
void TryShape(const MapArea& area)
{
    Demand(IsWhole(area), "a shape can be drawn");
    Demand(
        QRect(QPoint(-1, -1), pictureSize + QSize(2, 2)).contains(BoundsOf(area)),
        "a shape is in the picture");
    Demand(area.Coordinates.size() <= 2 * mostCorners, "a polygon has no more corners");
    Demand(!area.Link.startsWith(u"javascript:", Qt::CaseInsensitive), "no link runs a script");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = BytesOf(data, size).toByteArray();
    const SvgShapesReading reading = ReadSvgShapes(bytes, pictureSize);
    Demand(reading.Problem.isEmpty() || reading.Shapes.isEmpty(), "there are shapes or a problem");
    for (const AreaCandidate& shape : reading.Shapes) {
        TryShape(shape.Area);
    }
    // Most bytes are no drawing; as path data they tell more.
    for (const QPolygonF& outline :
         OutlinesOf(SvgPath(QString::fromLatin1(bytes)), QRectF(QPointF(), QSizeF(pictureSize))).Outer) {
        if (const MapArea area = AreaOfOutline(outline); IsWhole(area)) {
            TryShape(area);
        }
    }
    return 0;
}
