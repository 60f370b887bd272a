#include "imagemap/drawing/SelectionReadout.h"

#include "imagemap/model/AreaGeometry.h"

namespace {

bool IsOneCircle(const MapAreas& areas)
{
    return areas.size() == 1 && areas.constFirst().Shape == AreaShape::Circle && IsWhole(areas.constFirst());
}

} // namespace

QString NoteOf(const MapAreas& areas)
{
    const QRect bounds = BoundsOf(areas);
    const QString place = QStringLiteral("%1, %2").arg(bounds.left()).arg(bounds.top());
    if (IsOneCircle(areas)) {
        const QList<int>& circle = areas.constFirst().Coordinates;
        return QStringLiteral("%1, %2: %3").arg(circle[0]).arg(circle[1]).arg(circle[2]);
    }
    return place + QStringLiteral(": %1 x %2").arg(bounds.width() - 1).arg(bounds.height() - 1);
}

void ShowPlaceOf(DrawingStatus& status, const MapAreas& areas)
{
    if (areas.isEmpty()) {
        return;
    }
    const QRect bounds = BoundsOf(areas);
    const bool isCircle = IsOneCircle(areas);
    status.SetLabel(DrawingLabel::StartPosition1, QString::number(bounds.left()) + u',');
    status.SetLabel(DrawingLabel::StartPosition2, QString::number(bounds.top()));
    status.SetLabel(DrawingLabel::EndPosition1, QString::number(bounds.right()) + u',');
    status.SetLabel(DrawingLabel::EndPosition2, QString::number(bounds.bottom()));
    status.SetLabel(
        DrawingLabel::Dimensions1, isCircle ? QString::number(areas.constFirst().Coordinates.constLast())
                                            : QString::number(bounds.right() - bounds.left()) + u',');
    status.SetLabel(
        DrawingLabel::Dimensions2, isCircle ? QString() : QString::number(bounds.bottom() - bounds.top()));
}
