#pragma once

#include <QList>
#include <QString>

/** The figures' kinds; the number is the index of the menu item that selects the tool. */
inline constexpr qint16 kindRectangle = 5;
inline constexpr qint16 kindCircle = 6;
inline constexpr qint16 kindLine = 7;

/** The states of `FigureStore::DrawState`. */
inline constexpr qint16 drawIdle = 0;
inline constexpr qint16 drawDrawing = 1; ///< the second point follows the mouse
inline constexpr qint16 drawMoving = 2;  ///< the whole figure follows the mouse

/** One drawn element: a rectangle, a circle or one side of a polygon. Positions are picture pixels. */
struct FigureRecord
{
    qint16 Kind = 0;
    qint16 X1 = 0; ///< where the figure was started; for a circle its centre
    qint16 Y1 = 0;
    qint16 X2 = 0; ///< the opposite corner, the end of the side, or the point that sets the radius
    qint16 Y2 = 0;
    qint16 Radius = 0; ///< circles only
    QString Link;
    QString Target;
    QString Message;

    bool operator==(const FigureRecord&) const = default;
};

/**
 * The ledger of the drawing tools: everything drawn on the picture, and the figure being drawn at this
 * moment.
 *
 * A polygon is told by its sides: in `PolygonLines` the last side of each finished polygon carries that
 * polygon's `Link`, all others an empty one, so a non-empty `Link` marks the end of a polygon. A freed slot
 * keeps its old contents until it is written again.
 *
 * Copies share their records until one of them is changed.
 */
struct FigureStore
{
    /** So many figures and sides the tools may have on the picture; a ledger made otherwise may be longer. */
    static constexpr int capacity = 500;
    /** Slots, used from the first one up. */
    using Records = QList<FigureRecord>;

    Records Figures = Records(capacity);        ///< every committed element in drawing order
    Records PolygonLines = Records(capacity);   ///< every committed side of every polygon
    Records CurrentPolygon = Records(capacity); ///< the sides of the polygon being drawn, from its first
    int FigureCount = 0;
    int PolygonLineCount = 0;
    int CurrentPolygonLineCount = 0;

    qint16 CurrentKind = 0; ///< the chosen tool; 0 until one has been chosen
    qint16 DrawState = drawIdle;
    qint16 StartX = 0;
    qint16 StartY = 0;
    qint16 EndX = 0;
    qint16 EndY = 0;
    qint16 CurrentRadius = 0; ///< of the circle painted last

    bool operator==(const FigureStore&) const = default;

    /** The record at `index`, or null outside the slots: an access out of range is skipped, never made. */
    [[nodiscard]] static FigureRecord* At(Records& records, int index);
    [[nodiscard]] static const FigureRecord* At(const Records& records, int index);

    /** The last committed element, or null when there is none. */
    [[nodiscard]] FigureRecord* LastFigure() { return At(Figures, FigureCount - 1); }
    [[nodiscard]] const FigureRecord* LastFigure() const { return At(Figures, FigureCount - 1); }

    /** Whether a figure or side follows the mouse. */
    [[nodiscard]] bool IsDrawing() const { return DrawState != drawIdle; }

    /** Whether another figure or side may be started. */
    [[nodiscard]] bool HasRoom() const { return FigureCount < capacity; }

    /** Whether sides of a polygon are committed that no area belongs to yet. */
    [[nodiscard]] bool HasUnfinishedPolygon() const { return CurrentPolygonLineCount > 0; }

    /** Appends the figure in progress as a rectangle or circle. `Link` and the other texts stay unwritten. */
    void AppendFigure();

    /** Appends the figure in progress as a side of the current polygon, to all three arrays. */
    void AppendSide();

    /** Takes the last side out of the figures again, but keeps it as a corner of the current polygon. */
    void RetractLastSide();

    /** Forgets the sides of the current polygon; they stay in the other arrays. */
    void ResetCurrentPolygon();

    /** Takes the sides of the current polygon, which must be the last figures, out of all arrays. */
    void RemoveCurrentPolygon();

    /**
     * Removes the last rectangle or circle, or the sides of the last polygon, whose end is found by the end
     * mark of the polygon before it. That mark goes too, so a polygon drawn and removed after this takes the
     * one before with it. Without such a mark all sides go. Does nothing to an empty store.
     */
    void RemoveLast();

    /** Empties the figures. The records' own texts stay, but for the slots just past the last ones. */
    void Clear();

private:
    void RemoveLastPolygon();
};
