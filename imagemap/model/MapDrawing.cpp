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
    }
}
