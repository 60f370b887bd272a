#pragma once

#include "imagemap/model/FigureStore.h"

#include <QTest>

inline void Draw(FigureStore& store, qint16 kind)
{
    store.CurrentKind = kind;
    store.AppendFigure();
}

/** Draws the sides of a polygon as the mouse does: the last one closes it and leaves the figures again. */
inline void DrawSides(FigureStore& store, int drawn)
{
    store.CurrentKind = kindLine;
    for (int side = 0; side < drawn; ++side) {
        store.AppendSide();
    }
    store.RetractLastSide();
}

/** The polygon sides with a link, which are the ends of polygons, by their slots. */
inline QList<int> EndMarks(const FigureStore& store)
{
    QList<int> marks;
    for (int slot = 0; slot < store.PolygonLines.size(); ++slot) {
        if (!store.PolygonLines[slot].Link.isEmpty()) {
            marks << slot;
        }
    }
    return marks;
}

using Counts = QList<int>;

/** Figures, polygon sides and sides of the current polygon. */
inline Counts CountsOf(const FigureStore& store)
{
    return { store.FigureCount, store.PolygonLineCount, store.CurrentPolygonLineCount };
}
