#include "outline/ColourRegion.h"

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

void ColourRegion::SetTolerance(double tolerance)
{
    if (tolerance == tolerance_) {
        return;
    }
    if (tolerance < tolerance_) {
        Clear();
    }
    tolerance_ = tolerance;
    GoOn();
}

void ColourRegion::GoOn()
{
    colours_.SetTolerance(tolerance_);
    LikePixels like(colours_);
    RegionFill fill(mask_, mask_.Box(), like);
    if (region_.IsEmpty()) {
        fill.AddTo(region_, seed_);
        return;
    }
    const QRect marked = MarkedBox() & mask_.Box();
    for (int y = marked.top(); y <= marked.bottom(); ++y) {
        const quint8* const row = mask_.Row(y);
        for (int x = marked.left(); x <= marked.right(); ++x) {
            if ((row[x] & MarkEdge) != 0) {
                fill.AddTo(region_, { x, y });
            }
        }
    }
}

void ColourRegion::Clear()
{
    mask_.Clear(MarkedBox(), MarkNew | MarkEdge);
    region_ = {};
}
