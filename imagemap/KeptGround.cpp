#include "imagemap/KeptGround.h"

#include <QPainter>

namespace {

/** In pixels of the screen. */
constexpr qint64 keptAtMost = 8LL * 1024 * 1024;

QRect PlaceOnScreen(const QTransform& toScreen, const QRect& place)
{
    return toScreen.mapRect(QRectF(place)).toRect();
}

} // namespace

bool KeptGround::IsKept(const QTransform& toScreen, const QRect& place) const
{
    if (picture_.isNull() || !place_.contains(place)) {
        return false;
    }
    const QPointF shift = toScreen.map(QPointF()) - toScreen_.map(QPointF());
    // By parts of a pixel everything would be rounded otherwise.
    return shift == shift.toPoint() &&
           toScreen_ * QTransform::fromTranslate(shift.x(), shift.y()) == toScreen;
}

void KeptGround::Keep(const QPainter& painter, const QRect& place, const Painting& paint)
{
    const QTransform toScreen = painter.deviceTransform();
    const QRect onScreen = PlaceOnScreen(toScreen, place);
    const bool isTooLarge = qint64(onScreen.width()) * onScreen.height() > keptAtMost;
    picture_ = isTooLarge ? QImage() : QImage(onScreen.size(), QImage::Format_RGB32);
    if (picture_.isNull()) {
        return;
    }
    place_ = place;
    toScreen_ = toScreen;
    QPainter keeper(&picture_);
    keeper.setFont(painter.font());
    keeper.setTransform(toScreen * QTransform::fromTranslate(-onScreen.x(), -onScreen.y()));
    paint(keeper);
}

void KeptGround::Paint(QPainter& painter, const QRect& place, const Painting& paint)
{
    const QTransform toScreen = painter.deviceTransform();
    if (!IsKept(toScreen, place)) {
        Keep(painter, place, paint);
    }
    if (picture_.isNull()) {
        paint(painter);
        return;
    }
    const QRect shown = PlaceOnScreen(toScreen, place);
    painter.save();
    painter.setTransform(toScreen.inverted(), true);
    painter.drawImage(shown, picture_, shown.translated(-PlaceOnScreen(toScreen, place_).topLeft()));
    painter.restore();
}

QImage KeptPart::Of(const QRect& place, const QRect& seen, const Making& make)
{
    if (picture_.isNull() || !place_.contains(place)) {
        place_ = place | seen;
        if (qint64(place_.width()) * place_.height() > keptAtMost) {
            place_ = place;
        }
        picture_ = make(place_);
    }
    return picture_.copy(place.translated(-place_.topLeft()));
}
