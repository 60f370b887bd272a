#include "outline/RegionCandidates.h"

#include "outline/RegionShape.h"

#include <QStringList>

namespace {

/** Why a region of that role is no area at first; nothing where it is. */
QString RoleNote(RegionRole role)
{
    switch (role) {
    case RegionRole::Ground:
        return QStringLiteral("background");
    case RegionRole::Line:
        return QStringLiteral("line or letter");
    case RegionRole::Area:
        break;
    }
    return {};
}

} // namespace

AreaCandidate
CandidateOf(const PictureRegion& region, qsizetype number, double precision, const StopSign& stop)
{
    const RegionShape shape = ShapeOf(region.contour, precision, stop);
    QStringList notes(RoleNote(region.role));
    if (shape.HasGivenWay(precision)) {
        notes << QStringLiteral("up to %1 px off").arg(shape.deviation, 0, 'f', 1);
    }
    notes.removeAll(QString());
    return { .Area = shape.area,
             .Name = QStringLiteral("Region %1").arg(number),
             .Note = notes.join(QStringLiteral("; ")),
             .IsTicked = region.role == RegionRole::Area,
             .Pixels = region.region.pixels,
             .Colour = region.colour };
}
