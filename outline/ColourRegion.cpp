#include "outline/ColourRegion.h"

namespace {

/** Pixels not taken yet whose colour is like enough; those that are asked and are not are marked as edge. */
class LikePixels
{
public:
    LikePixels(const QImage& picture, ColourDistances& distances, double tolerance)
        : picture_(picture)
        , distances_(distances)
        , tolerance_(static_cast<float>(tolerance))
        , isOpaque_(!picture.hasAlphaChannel())
        , isPremultiplied_(picture.format() == QImage::Format_ARGB32_Premultiplied)
    {
    }

    void SetRow(quint8* marks, int y)
    {
        marks_ = marks;
        pixels_ = reinterpret_cast<const QRgb*>(picture_.constScanLine(y));
    }

    [[nodiscard]] bool operator()(int x)
    {
        if ((marks_[x] & MarkNew) != 0) {
            return false;
        }
        // Neighbours have the same colour more often than not.
        if (pixels_[x] != last_ || !hasLast_) {
            Compare(pixels_[x]);
        }
        if (!isLike_) {
            marks_[x] = static_cast<quint8>(marks_[x] | MarkEdge);
        }
        return isLike_;
    }

    void Mark(int from, int end)
    {
        std::for_each(marks_ + from, marks_ + end, [](quint8& pixel) {
            pixel = static_cast<quint8>((pixel | MarkNew) & ~MarkEdge);
        });
    }

private:
    void Compare(QRgb pixel)
    {
        last_ = pixel;
        hasLast_ = true;
        isLike_ = distances_.To(isOpaque_ ? pixel | alphaMask : Plain(pixel)) <= tolerance_;
    }
    [[nodiscard]] QRgb Plain(QRgb pixel) const { return isPremultiplied_ ? qUnpremultiply(pixel) : pixel; }

    static constexpr QRgb alphaMask = 0xff000000U;

    const QImage& picture_;
    ColourDistances& distances_;
    float tolerance_;
    bool isOpaque_;
    bool isPremultiplied_;
    const QRgb* pixels_ = nullptr;
    quint8* marks_ = nullptr;
    QRgb last_ = 0;
    bool hasLast_ = false;
    bool isLike_ = false;
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
    : picture_(picture)
    , mask_(mask)
    , seed_(seed)
    , distances_(picture.rect().contains(seed) ? picture.pixel(seed) : QRgb())
{
    Q_ASSERT(picture.depth() == 32 && picture.size() == mask.Size());
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
    LikePixels like(picture_, distances_, tolerance_);
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
