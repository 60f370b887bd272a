#include "imagemap/KeptOutlines.h"

#include "imagemap/SelectionPainting.h"

#include <QPainter>
#include <algorithm>

namespace {

/** In pixels of the screen. */
constexpr qint64 outlinesAtMost = 8LL * 1024 * 1024;

bool IsMoved(const MapArea& from, const MapArea& to, QPoint by)
{
    const QList<int>& before = from.Coordinates;
    const QList<int>& now = to.Coordinates;
    if (from.Shape != to.Shape || before.size() != now.size()) {
        return false;
    }
    if (by.isNull()) {
        return before == now;
    }
    // What stands behind the places is a circle's radius.
    const qsizetype places = from.Shape == AreaShape::Circle ? 2 : before.size();
    for (qsizetype i = 0; i < before.size(); ++i) {
        const int step = i >= places ? 0 : i % 2 == 0 ? by.x() : by.y();
        if (now[i] - before[i] != step) {
            return false;
        }
    }
    return true;
}

/** How far all of the areas have moved, if they all did alike and nothing else. */
std::optional<QPoint> CommonMove(const MapAreas& from, const MapAreas& to)
{
    constexpr qsizetype leastNumbers = 2;
    if (from.isEmpty() || from.size() != to.size() ||
        std::min(from.constFirst().Coordinates.size(), to.constFirst().Coordinates.size()) < leastNumbers) {
        return std::nullopt;
    }
    const QList<int>& before = from.constFirst().Coordinates;
    const QList<int>& now = to.constFirst().Coordinates;
    const QPoint by(now[0] - before[0], now[1] - before[1]);
    const bool isCommon =
        std::equal(from.begin(), from.end(), to.begin(), [by](const MapArea& one, const MapArea& other) {
            return IsMoved(one, other, by);
        });
    return isCommon ? std::optional(by) : std::nullopt;
}

} // namespace

std::optional<QPointF> KeptOutlines::ShiftTo(
    const SelectionPicture& selection, double zoom, const QColor& color, const QTransform& toScreen) const
{
    if (picture_.isNull() || zoom != zoom_ || color != color_) {
        return std::nullopt;
    }
    const QPointF scrolled = toScreen.map(QPointF()) - toScreen_.map(QPointF());
    if (toScreen_ * QTransform::fromTranslate(scrolled.x(), scrolled.y()) != toScreen) {
        return std::nullopt;
    }
    const std::optional<QPoint> by = CommonMove(areas_, selection.areas);
    if (!by) {
        return std::nullopt;
    }
    const QPointF shift = scrolled + toScreen.map(QPointF(*by) * zoom) - toScreen.map(QPointF());
    // Only those that follow the mouse have a note beside it.
    const bool isExact = shift == shift.toPoint();
    return isExact || !selection.note.isEmpty() ? std::optional(shift) : std::nullopt;
}

void KeptOutlines::Keep(
    const SelectionPicture& selection, double zoom, const QColor& color, const QTransform& toScreen)
{
    Forget();
    const QRect bounds = BoundsOf(selection, zoom);
    const QRect place = toScreen.mapRect(QRectF(bounds)).toAlignedRect();
    if (qint64(place.width()) * place.height() > outlinesAtMost) {
        return;
    }
    areas_ = selection.areas;
    zoom_ = zoom;
    color_ = color;
    toScreen_ = toScreen;
    place_ = place.topLeft();
    picture_ = QImage(place.size(), QImage::Format_ARGB32_Premultiplied);
    picture_.fill(Qt::transparent);
    QPainter keeper(&picture_);
    keeper.setTransform(toScreen * QTransform::fromTranslate(-place_.x(), -place_.y()));
    keeper.setClipRect(bounds);
    PaintOutlines(keeper, selection.areas, zoom, color, bounds);
}

void KeptOutlines::Paint(
    QPainter& painter, const SelectionPicture& selection, double zoom, const QColor& color,
    const QRect& visible)
{
    const QTransform toScreen = painter.deviceTransform();
    std::optional<QPointF> shift = ShiftTo(selection, zoom, color, toScreen);
    if (!shift) {
        Keep(selection, zoom, color, toScreen);
        shift = QPointF();
    }
    if (picture_.isNull()) {
        PaintOutlines(painter, selection.areas, zoom, color, visible);
        return;
    }
    painter.save();
    painter.setTransform(toScreen.inverted(), true);
    painter.drawImage(place_ + shift->toPoint(), picture_);
    painter.restore();
}
