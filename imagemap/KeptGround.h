#pragma once

#include <QImage>
#include <QRect>
#include <QTransform>
#include <functional>

class QPainter;

/**
 * What lies below the things that follow the mouse, kept as it was painted: where much is drawn, a movement
 * then paints what moves and nothing else. It is kept in the pixels of the screen, so that it looks as if it
 * were painted anew, and only as much as a large screen shows.
 */
class KeptGround
{
public:
    using Painting = std::function<void(QPainter& painter)>;

    /** For whenever anything of the ground has changed. */
    void Forget() { picture_ = {}; }

    /** Paints `place`: what is kept of it, or else what `paint` paints there, which is kept then. */
    void Paint(QPainter& painter, const QRect& place, const Painting& paint);

private:
    [[nodiscard]] bool IsKept(const QTransform& toScreen, const QRect& place) const;
    void Keep(const QPainter& painter, const QRect& place, const Painting& paint);

    QImage picture_;
    QRect place_;         ///< what of the widget it shows
    QTransform toScreen_; ///< from there to the screen, when it was painted
};

/** The same for what is drawn over pixel by pixel, kept in the pixels of the widget. */
class KeptPart
{
public:
    using Making = std::function<QImage(const QRect& place)>;

    void Forget() { picture_ = {}; }

    /** What `make` makes of `place`; where it is not kept, of all that is `seen`, which is kept then. */
    [[nodiscard]] QImage Of(const QRect& place, const QRect& seen, const Making& make);

private:
    QImage picture_;
    QRect place_; ///< what of the widget it shows
};
