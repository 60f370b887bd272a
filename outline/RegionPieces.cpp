#include "outline/RegionPieces.h"

namespace {

bool IsOfPiece(quint8 marks)
{
    return (marks & MarkPiece) != 0;
}

/** Marks as outside what of the box is not enclosed by the piece: it hangs together with the box's rim. */
void MarkTheOutside(PixelMask& mask, const QRect& box, const StopSign& stop)
{
    MarkedPixels around([](quint8 marks) { return (marks & (MarkPiece | MarkOutside)) == 0; }, MarkOutside);
    RegionFill fill(mask, box, around, stop);
    Region outside;
    for (int x = box.left(); x <= box.right(); ++x) {
        fill.AddTo(outside, { x, box.top() });
        fill.AddTo(outside, { x, box.bottom() });
    }
    for (int y = box.top(); y <= box.bottom(); ++y) {
        fill.AddTo(outside, { box.left(), y });
        fill.AddTo(outside, { box.right(), y });
    }
}

std::vector<Contour> HolesOf(PixelMask& mask, const QRect& box, const StopSign& stop)
{
    MarkTheOutside(mask, box, stop);
    MarkedPixels enclosed(
        [](quint8 marks) { return (marks & (MarkPiece | MarkOutside | MarkHole)) == 0; }, MarkHole);
    MarkedPixels hole([](quint8 marks) { return (marks & MarkHole) != 0; }, MarkOutside, MarkHole);
    RegionFill mark(mask, box, enclosed, stop);
    RegionFill settle(mask, box, hole, stop);
    std::vector<Contour> holes;
    for (int y = box.top(); y <= box.bottom() && !stop.IsUpFor(box.width()); ++y) {
        const quint8* const row = mask.Row(y);
        for (int x = box.left(); x <= box.right(); ++x) {
            if ((row[x] & (MarkPiece | MarkOutside)) != 0) {
                continue;
            }
            Region found;
            mark.AddTo(found, { x, y });
            holes.push_back(ContourOf(mask, found.first, MarkHole, stop));
            // Holes that touch at a corner are two, so none may keep the mark.
            Region settled;
            settle.AddTo(settled, found.first);
        }
    }
    mask.Clear(box, MarkOutside);
    return holes;
}

} // namespace

std::vector<RegionPiece> PiecesOf(
    PixelMask& mask, const QRect& box, const std::function<bool(quint8)>& belongs, PieceHoles holes,
    const StopSign& stop)
{
    const QRect inside = box & mask.Box();
    MarkedPixels fresh(
        [&belongs](quint8 marks) { return (marks & MarkSeen) == 0 && belongs(marks); }, MarkPiece | MarkSeen);
    MarkedPixels taken(IsOfPiece, 0, MarkPiece);
    RegionFill mark(mask, inside, fresh, stop);
    RegionFill settle(mask, inside, taken, stop);
    std::vector<RegionPiece> pieces;
    for (int y = inside.top(); y <= inside.bottom() && !stop.IsUpFor(inside.width()); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            fresh.SetRow(mask.Row(y), y);
            if (!fresh(x)) {
                continue;
            }
            RegionPiece piece;
            mark.AddTo(piece.region, { x, y });
            piece.contour = ContourOf(mask, piece.region.first, MarkPiece, stop);
            if (holes == PieceHoles::Found) {
                piece.holes = HolesOf(mask, piece.region.box, stop);
            }
            Region settled;
            settle.AddTo(settled, piece.region.first);
            pieces.push_back(std::move(piece));
        }
    }
    // What was stopped in the middle of a piece has more marks.
    mask.Clear(inside, stop.IsUp() ? MarkSeen | MarkPiece | MarkOutside | MarkHole : MarkSeen);
    return pieces;
}
