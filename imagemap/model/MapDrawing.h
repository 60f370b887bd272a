#pragma once

#include <QObject>
#include <QPoint>

class MapDocument;

/** What is being drawn on a map at this moment: a figure that follows the mouse, or sides of a polygon. */
class MapDrawing final : public QObject
{
    Q_OBJECT

public:
    explicit MapDrawing(MapDocument& map)
        : map_(map)
    {
    }

    /** Whether something is being drawn, or sides of a polygon wait for the next. */
    [[nodiscard]] bool IsInProgress() const;

    /** Gives up the figure in progress, a polygon with all its sides; everything finished stays. */
    void GiveUp();

    /** The figure in progress becomes a side of the polygon. */
    void AddSide();

    /** Takes the sides of an unfinished polygon away; a figure in progress goes on. */
    void GiveUpSides();

    /** The corners of an unfinished polygon, in the order of drawing; none before its first side is there. */
    [[nodiscard]] QList<QPoint> Corners() const;

Q_SIGNALS:
    /** The sides of an unfinished polygon went. */
    void SidesGivenUp();

    /** An unfinished polygon got a side, or lost them all. */
    void SidesChanged();

    /** Nothing follows the mouse any more. */
    void GivenUp();

private:
    MapDocument& map_;
};
