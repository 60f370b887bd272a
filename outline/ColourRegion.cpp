#include "outline/ColourRegion.h"

#include <cstring>

namespace {

/** Pixels not taken yet whose colour is like enough; those that are asked and are not are marked as edge. */
class LikePixels
{
public:
    explicit LikePixels(LikeColours& colours)
        : colours_(colours)
    {
    }

    void SetRow(quint8* marks, int y)
    {
        marks_ = marks;
        colours_.SetRow(y);
    }

    [[nodiscard]] bool operator()(int x)
    {
        if ((marks_[x] & MarkNew) != 0) {
            return false;
        }
        const bool isLike = colours_.IsLike(x);
        if (!isLike) {
            marks_[x] = static_cast<quint8>(marks_[x] | MarkEdge);
        }
        return isLike;
    }

    [[nodiscard]] int SameTo(int x, int step, int end) const
    {
        return colours_.SameTo(x, step, end, marks_, MarkNew);
    }

    /** Marks what nobody has asked about as edge, so that it will be. */
    void Leave(int from, int to)
    {
        std::for_each(marks_ + from, marks_ + to + 1, [](quint8& pixel) {
            pixel = (pixel & MarkNew) != 0 ? pixel : static_cast<quint8>(pixel | MarkEdge);
        });
    }

    void Mark(int from, int end)
    {
        std::for_each(marks_ + from, marks_ + end, [](quint8& pixel) {
            pixel = static_cast<quint8>((pixel | MarkNew) & ~MarkEdge);
        });
    }

private:
    LikeColours& colours_;
    quint8* marks_ = nullptr;
};

/** The first pixel of the row from `x` on that is marked as edge; `end` if none is. */
int NextEdge(const quint8* row, int x, int end)
{
    // Few are, so eight are looked at in one.
    constexpr quint64 edges = 0x0101010101010101U * MarkEdge;
    constexpr int atOnce = sizeof edges;
    for (; end - x >= atOnce; x += atOnce) {
        quint64 pixels = 0;
        std::memcpy(&pixels, row + x, sizeof pixels);
        if ((pixels & edges) != 0) {
            break;
        }
    }
    while (x < end && (row[x] & MarkEdge) == 0) {
        ++x;
    }
    return x;
}

/** Goes on with a region from all edges in the box. */
void AddBeyondEdges(
    Region& region, RegionFill<LikePixels>& fill, const PixelMask& mask, const QRect& box,
    const StopSign& stop)
{
    const int end = box.right() + 1;
    for (int y = box.top(); y <= box.bottom() && !stop.IsUpFor(box.width() / 8); ++y) {
        const quint8* const row = mask.Row(y);
        for (int x = NextEdge(row, box.left(), end); x < end; x = NextEdge(row, x + 1, end)) {
            fill.AddTo(region, { x, y });
        }
    }
}

} // namespace

QImage WithWholePixels(const QImage& picture)
{
    switch (picture.format()) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
        return picture;
    default:
        return picture.convertToFormat(
            picture.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    }
}

ColourRegion::ColourRegion(const QImage& picture, PixelMask& mask, QPoint seed)
    : mask_(mask)
    , seed_(seed)
    , colours_(picture, 0)
{
    Q_ASSERT(picture.depth() == 32 && picture.size() == mask.Size());
    if (picture.rect().contains(seed)) {
        colours_.SetRow(seed.y());
        colours_.SetFrom(colours_.ColourAt(seed.x()));
    }
}

void ColourRegion::SetTolerance(double tolerance, const StopSign& stop)
{
    if (tolerance == tolerance_ && isWhole_) {
        return;
    }
    if (tolerance < tolerance_) {
        Clear();
    }
    tolerance_ = tolerance;
    GoOn(stop);
    isWhole_ = !stop.IsUp();
}

void ColourRegion::GoOn(const StopSign& stop)
{
    colours_.SetTolerance(tolerance_);
    LikePixels like(colours_);
    RegionFill fill(mask_, mask_.Box(), like, stop);
    if (region_.IsEmpty()) {
        fill.AddTo(region_, seed_);
    } else {
        AddBeyondEdges(region_, fill, mask_, MarkedBox() & mask_.Box(), stop);
    }
    fill.ForLeft([this, &like](int y, int from, int to) {
        like.SetRow(mask_.Row(y), y);
        like.Leave(from, to);
    });
}

void ColourRegion::Clear()
{
    mask_.Clear(MarkedBox(), MarkNew | MarkEdge);
    region_ = {};
}
