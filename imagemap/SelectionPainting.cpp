#include "imagemap/SelectionPainting.h"

#include "imagemap/KeptOutlines.h"
#include "imagemap/ZoomedPicture.h"

#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <algorithm>

namespace {

/** Pixels of the screen. */
constexpr int handleSize = 7;
constexpr int middleSize = 5;
constexpr int aroundHandles = 6;
constexpr int noteDistance = 16;
constexpr int noteMargin = 3;
constexpr int crossArm = 9;

/** Beyond so many areas, dashes cost more than they show, and so do lines as wide as the screen's scaling. */
constexpr qsizetype fewAreas = 50;
constexpr qreal dashLength = 4;
constexpr int fillOpacity = 60;
constexpr QColor guideColor(208, 32, 138);

QPainterPath OutlineOf(const MapArea& area, double zoom)
{
    QPainterPath outline;
    if (!IsWhole(area)) {
        return outline;
    }
    const QRect bounds = BoundsOf(area);
    switch (area.Shape) {
    case AreaShape::Rectangle:
        outline.addRect(QRectF(Zoomed(bounds.topLeft(), zoom), Zoomed(bounds.bottomRight(), zoom)));
        break;
    case AreaShape::Circle: {
        const double radius = area.Coordinates[2] * zoom;
        outline.addEllipse(Zoomed(QPoint(area.Coordinates[0], area.Coordinates[1]), zoom), radius, radius);
        break;
    }
    case AreaShape::Polygon: {
        QPolygonF corners;
        for (const QPoint corner : CornersOf(area)) {
            corners << Zoomed(corner, zoom);
        }
        outline.addPolygon(corners);
        outline.closeSubpath();
        break;
    }
    case AreaShape::Default:
        break;
    }
    return outline;
}

QRect OnScreen(const QRect& place, double zoom)
{
    return QRectF(Zoomed(place.topLeft(), zoom), Zoomed(place.bottomRight(), zoom)).toAlignedRect();
}

/** A line that is seen on any ground: light, with the selection's colour in dashes. */
void PaintTwoTone(QPainter& painter, const QPainterPath& path, const QColor& color)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawPath(path);
    QPen pen(color, 1);
    pen.setDashPattern({ dashLength, dashLength });
    painter.setPen(pen);
    painter.drawPath(path);
}

/** A line for one of so many areas. */
void PaintPlain(QPainter& painter, const QPainterPath& path, const QColor& color, qsizetype areas)
{
    QPen pen(color, 1);
    pen.setCosmetic(areas > fewAreas);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(pen);
    painter.drawPath(path);
}

void PaintHandle(
    QPainter& painter, const AreaHandle& handle, double zoom, const QColor& color, bool isSelected)
{
    const bool isMiddle = handle.kind == HandleKind::Middle;
    const int size = isMiddle ? middleSize : handleSize;
    const QPoint middle = Zoomed(handle.place, zoom).toPoint();
    const QRect box(middle - QPoint(size / 2, size / 2), QSize(size - 1, size - 1));
    painter.setPen(QPen(color, 1));
    painter.setBrush(isSelected ? color : QColor(Qt::white));
    if (isMiddle) {
        painter.drawEllipse(box);
    } else {
        painter.drawRect(box);
    }
}

QRect NoteBox(const QPainter& painter, const SelectionPicture& selection, double zoom, const QRect& visible)
{
    const QSize size = painter.fontMetrics().size(Qt::TextSingleLine, selection.note) +
                       QSize(2 * noteMargin, 2 * noteMargin);
    const QPoint place = Zoomed(selection.notePlace, zoom).toPoint() + QPoint(noteDistance, noteDistance);
    // At the right and the lower end it keeps in sight.
    return { QPoint(
                 std::max(std::min(place.x(), visible.right() - size.width()), visible.left()),
                 std::max(std::min(place.y(), visible.bottom() - size.height()), visible.top())),
             size };
}

void PaintNote(QPainter& painter, const QString& text, const QRect& box, const QPalette& palette)
{
    painter.setPen(palette.color(QPalette::ToolTipText));
    painter.setBrush(palette.color(QPalette::ToolTipBase));
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.drawText(box, Qt::AlignCenter, text);
}

} // namespace

QRect BoundsOf(const SelectionPicture& selection, double zoom)
{
    QRect bounds = selection.frame.isNull() ? QRect() : OnScreen(selection.frame, zoom);
    for (const MapArea& area : selection.areas) {
        if (IsWhole(area)) {
            bounds |= OnScreen(BoundsOf(area), zoom);
        }
    }
    return bounds.isNull() ? bounds
                           : bounds.adjusted(-aroundHandles, -aroundHandles, aroundHandles, aroundHandles);
}

void PaintOutlines(
    QPainter& painter, const MapAreas& areas, double zoom, const QColor& color, const QRect& visible)
{
    for (const MapArea& area : areas) {
        if (IsWhole(area) && OnScreen(BoundsOf(area), zoom).adjusted(-1, -1, 1, 1).intersects(visible)) {
            const QPainterPath outline = OutlineOf(area, zoom);
            if (areas.size() <= fewAreas) {
                PaintTwoTone(painter, outline, color);
            } else {
                PaintPlain(painter, outline, color, areas.size());
            }
        }
    }
}

void PaintSelection(
    QPainter& painter, const SelectionPicture& selection, double zoom, const QPalette& palette,
    const QRect& visible, KeptOutlines& kept)
{
    const QColor color = palette.color(QPalette::Highlight);
    if (selection.areas.size() <= fewAreas) {
        kept.Forget();
        PaintOutlines(painter, selection.areas, zoom, color, visible);
    } else {
        kept.Paint(painter, selection, zoom, color, visible);
    }
    painter.setPen(QPen(guideColor, 1));
    for (const QLine& line : selection.guides) {
        painter.drawLine(Zoomed(line.p1(), zoom), Zoomed(line.p2(), zoom));
    }
    if (!selection.frame.isNull()) {
        QPainterPath frame;
        frame.addRect(
            QRectF(Zoomed(selection.frame.topLeft(), zoom), Zoomed(selection.frame.bottomRight(), zoom)));
        PaintTwoTone(painter, frame, color);
    }
    for (const AreaHandle& handle : selection.handles) {
        const bool isSelected = handle.kind == HandleKind::Vertex && selection.vertex == handle.index;
        PaintHandle(painter, handle, zoom, color, isSelected);
    }
    if (!selection.note.isEmpty()) {
        PaintNote(painter, selection.note, NoteBox(painter, selection, zoom, visible), palette);
    }
}

void PaintAreas(
    QPainter& painter, const MapAreas& areas, double zoom, const QPalette& palette, const QRect& exposed)
{
    QColor fill = palette.color(QPalette::Highlight);
    fill.setAlpha(fillOpacity);
    // The first is on top, so it is painted last.
    for (qsizetype i = areas.size() - 1; i >= 0; --i) {
        const QRect place = IsWhole(areas[i]) ? OnScreen(BoundsOf(areas[i]), zoom) : QRect();
        const QString number = QString::number(i + 1);
        const QSize room = painter.fontMetrics().size(Qt::TextSingleLine, number) + QSize(2 * noteMargin, 0);
        QRect label(QPoint(0, 0), room);
        label.moveCenter(place.center());
        if (place.isNull() || !place.united(label).adjusted(-1, -1, 1, 1).intersects(exposed)) {
            continue;
        }
        const QPainterPath outline = OutlineOf(areas[i], zoom);
        painter.fillPath(outline, fill);
        PaintPlain(painter, outline, palette.color(QPalette::Highlight), areas.size());
        painter.fillRect(label, palette.color(QPalette::Highlight));
        painter.setPen(palette.color(QPalette::HighlightedText));
        painter.drawText(label, Qt::AlignCenter, number);
    }
}

QRect CrossBounds(QPoint place, double zoom)
{
    const QPoint middle = Zoomed(place, zoom).toPoint();
    const QPoint arm(crossArm + 1, crossArm + 1);
    return { middle - arm, middle + arm };
}

void PaintCross(QPainter& painter, QPoint place, double zoom)
{
    const QPoint middle = Zoomed(place, zoom).toPoint();
    for (const auto& [color, width] : { std::pair(QColor(Qt::white), 3), std::pair(QColor(Qt::black), 1) }) {
        painter.setPen(QPen(color, width));
        painter.drawLine(middle - QPoint(crossArm, 0), middle + QPoint(crossArm, 0));
        painter.drawLine(middle - QPoint(0, crossArm), middle + QPoint(0, crossArm));
    }
}
