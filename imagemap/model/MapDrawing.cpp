#include "imagemap/model/MapDrawing.h"

#include "imagemap/model/MapDocument.h"

bool MapDrawing::IsInProgress() const
{
    const FigureStore& figures = map_.Figures();
    return figures.IsDrawing() || figures.HasUnfinishedPolygon();
}

void MapDrawing::GiveUp()
{
    if (IsInProgress()) {
        map_.Ledger().DrawState = drawIdle;
        GiveUpSides();
        Q_EMIT GivenUp();
    }
}

void MapDrawing::GiveUpSides()
{
    if (map_.Figures().HasUnfinishedPolygon()) {
        map_.Ledger().RemoveCurrentPolygon();
        map_.History().Amend();
        Q_EMIT SidesGivenUp();
        Q_EMIT SidesChanged();
    }
}

void MapDrawing::AddSide()
{
    map_.Ledger().AppendSide();
    Q_EMIT SidesChanged();
}

QList<QPoint> MapDrawing::Corners() const
{
    const FigureStore& figures = map_.Figures();
    QList<QPoint> corners;
    for (int i = 0; i < figures.CurrentPolygonLineCount; ++i) {
        if (const FigureRecord* const side = FigureStore::At(figures.CurrentPolygon, i)) {
            if (corners.isEmpty()) {
                corners << QPoint(side->X1, side->Y1);
            }
            corners << QPoint(side->X2, side->Y2);
        }
    }
    return corners;
}
