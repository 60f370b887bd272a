#pragma once

#include <QObject>

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

    /** Takes the sides of an unfinished polygon away; a figure in progress goes on. */
    void GiveUpSides();

Q_SIGNALS:
    /** The sides of an unfinished polygon went. */
    void SidesGivenUp();

    /** Nothing follows the mouse any more. */
    void GivenUp();

private:
    MapDocument& map_;
};
