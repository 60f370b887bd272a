#include "imagemap/model/FigureStore.h"

#include <algorithm>

namespace {

/** Writes the shape of a figure into a slot, leaving its texts as they are. */
void WriteShape(FigureRecord* slot, const FigureStore& store)
{
    if (slot == nullptr) {
        return;
    }
    slot->Kind = store.CurrentKind;
    slot->X1 = store.StartX;
    slot->Y1 = store.StartY;
    slot->X2 = store.EndX;
    slot->Y2 = store.EndY;
}

void ClearLink(FigureRecord* slot)
{
    if (slot != nullptr) {
        slot->Link.clear();
    }
}

} // namespace

FigureRecord* FigureStore::At(Records& records, int index)
{
    return index >= 0 && index < records.size() ? &records[index] : nullptr;
}

const FigureRecord* FigureStore::At(const Records& records, int index)
{
    return index >= 0 && index < records.size() ? &records[index] : nullptr;
}

void FigureStore::AppendFigure()
{
    FigureRecord* const slot = At(Figures, FigureCount);
    WriteShape(slot, *this);
    if (slot != nullptr && CurrentKind == kindCircle) {
        slot->Radius = CurrentRadius;
    }
    ++FigureCount;
}

void FigureStore::AppendSide()
{
    WriteShape(At(Figures, FigureCount), *this);
    WriteShape(At(PolygonLines, PolygonLineCount), *this);
    WriteShape(At(CurrentPolygon, CurrentPolygonLineCount), *this);
    ++FigureCount;
    ++PolygonLineCount;
    ++CurrentPolygonLineCount;
}

void FigureStore::RetractLastSide()
{
    --PolygonLineCount;
    --FigureCount;
}

void FigureStore::ResetCurrentPolygon()
{
    for (int i = CurrentPolygonLineCount; i >= 1; --i) {
        ClearLink(At(CurrentPolygon, i));
    }
    CurrentPolygonLineCount = 0;
}

void FigureStore::RemoveCurrentPolygon()
{
    FigureCount = std::max(0, FigureCount - CurrentPolygonLineCount);
    PolygonLineCount = std::max(0, PolygonLineCount - CurrentPolygonLineCount);
    ResetCurrentPolygon();
}

void FigureStore::RemoveLast()
{
    const FigureRecord* const last = LastFigure();
    if (last == nullptr) {
        return;
    }
    if (last->Kind == kindLine) {
        RemoveLastPolygon();
    } else {
        --FigureCount;
    }
}

void FigureStore::RemoveLastPolygon()
{
    const int saved = PolygonLineCount;
    const FigureRecord* side = nullptr;
    do {
        --PolygonLineCount;
        side = At(PolygonLines, PolygonLineCount - 1);
    } while (side != nullptr && side->Link.isEmpty());
    const bool ranOffTheStart = side == nullptr;

    ClearLink(At(PolygonLines, saved - 1));
    ClearLink(At(PolygonLines, PolygonLineCount - 1));
    if (ranOffTheStart) {
        PolygonLineCount = 0;
    }
    FigureCount = std::max(0, FigureCount - (saved - PolygonLineCount));
}

void FigureStore::Clear()
{
    for (; PolygonLineCount > 0; --PolygonLineCount) {
        ClearLink(At(PolygonLines, PolygonLineCount));
    }
    ClearLink(At(Figures, FigureCount));
    FigureCount = 0;
    PolygonLineCount = 0;
}
