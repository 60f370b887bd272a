#include "outline/PictureRegions.h"

#include "outline/ColourRegion.h"
#include "outline/ReadingOrder.h"

#include <algorithm>
#include <map>
#include <utility>

namespace {

/** Pixels of no region yet that are like the first one of this. */
class FreePixels
{
public:
    explicit FreePixels(LikeColours& colours)
        : colours_(colours)
    {
    }

    void SetRow(quint8* marks, int y)
    {
        marks_ = marks;
        colours_.SetRow(y);
    }
    [[nodiscard]] bool operator()(int x) { return (marks_[x] & MarkSeen) == 0 && colours_.IsLike(x); }
    [[nodiscard]] int SameTo(int x, int step, int end) const
    {
        return colours_.SameTo(x, step, end, marks_, MarkSeen);
    }
    void Mark(int from, int end)
    {
        std::for_each(marks_ + from, marks_ + end, [](quint8& pixel) { pixel |= MarkSeen | MarkPiece; });
    }

private:
    LikeColours& colours_;
    quint8* marks_ = nullptr;
};

/** Pixels of a piece; counts those that have all four neighbours in it. */
class CountedPixels
{
public:
    explicit CountedPixels(const PixelMask& mask)
        : mask_(mask)
    {
    }

    void SetRow(quint8* row, int y)
    {
        row_ = row;
        y_ = y;
    }
    [[nodiscard]] bool operator()(int x) const { return (row_[x] & (MarkPiece | MarkNew)) == MarkPiece; }
    [[nodiscard]] int SameTo(int x, int /*step*/, int /*end*/) const { return x; }
    void Mark(int from, int end)
    {
        std::for_each(row_ + from, row_ + end, [](quint8& pixel) { pixel |= MarkNew; });
        if (y_ == 0 || y_ + 1 == mask_.Size().height()) {
            return;
        }
        const quint8* const above = mask_.Row(y_ - 1);
        const quint8* const below = mask_.Row(y_ + 1);
        for (int x = from + 1; x + 1 < end; ++x) {
            inner_ += (above[x] & below[x] & MarkPiece) != 0 ? 1 : 0;
        }
    }
    [[nodiscard]] qint64 Inner() const { return inner_; }

private:
    const PixelMask& mask_;
    quint8* row_ = nullptr;
    int y_ = 0;
    qint64 inner_ = 0;
};

/** The colours that a tenth or more of the pixels along the rim of `box` have. */
std::vector<QRgb> RimColours(LikeColours& colours, const QRect& box)
{
    constexpr int leastShare = 10;
    std::map<QRgb, int> counts;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        colours.SetRow(y);
        const bool isWhole = y == box.top() || y == box.bottom();
        for (int x = box.left(); x <= box.right(); x += isWhole ? 1 : std::max(box.width() - 1, 1)) {
            ++counts[colours.ColourAt(x)];
        }
    }
    std::vector<QRgb> frequent;
    for (const auto& [colour, count] : counts) {
        if (count * leastShare >= 2 * (box.width() + box.height())) {
            frequent.push_back(colour);
        }
    }
    return frequent;
}

void KeepLargest(PictureRegions& regions)
{
    if (regions.size() > mostRegions) {
        const auto end = regions.begin() + mostRegions;
        std::nth_element(regions.begin(), end, regions.end(), [](const auto& one, const auto& other) {
            return one.region.pixels > other.region.pixels;
        });
        regions.erase(end, regions.end());
    }
}

/** Tells that a pass comes to another row; true when it shall end there. */
bool EndsAtRow(const RegionSearch& search)
{
    if (search.stop.IsUpNow()) {
        return true;
    }
    if (search.passRow) {
        search.passRow();
    }
    return false;
}

/** Keeps `found`; no more than twice as many as are wanted, or noise would take all memory. */
void Keep(PictureRegions& regions, PictureRegion&& found)
{
    regions.push_back(std::move(found));
    if (regions.size() >= 2 * mostRegions) {
        KeepLargest(regions);
    }
}

/** Looks for regions, and keeps what is found. */
class RegionFinder
{
public:
    RegionFinder(const QImage& picture, const RegionSearch& search)
        : search_(search)
        , box_(search.within.isNull() ? picture.rect() : search.within & picture.rect())
        , mask_(picture.size())
        , pixels_(picture)
        , colours_(picture, search.tolerance)
        , like_(colours_)
        , taken_([](quint8 marks) { return (marks & MarkPiece) != 0; }, 0, MarkPiece | MarkNew)
        , fill_(mask_, box_, like_, search.stop)
        , settle_(mask_, box_, taken_, search.stop)
    {
    }

    /** Takes regions from everywhere, or from where four pixels have one colour alone; false when stopped. */
    bool Find(bool areFourAlike)
    {
        for (int y = box_.top(); y <= box_.bottom(); ++y) {
            if (EndsAtRow(search_)) {
                return false;
            }
            const quint8* const marks = mask_.Row(y);
            for (int x = box_.left(); x <= box_.right(); ++x) {
                if ((marks[x] & MarkSeen) == 0 && (!areFourAlike || IsFlat(x, y))) {
                    Take({ x, y });
                }
            }
        }
        return !search_.stop.IsUp();
    }

    [[nodiscard]] PictureRegions Found()
    {
        const std::vector<QRgb> rim = found_.empty() ? std::vector<QRgb>() : RimColours(colours_, box_);
        for (PictureRegion& region : found_) {
            const bool isGround = std::any_of(rim.begin(), rim.end(), [this, &region](QRgb colour) {
                return DifferenceOf(region.colour, colour) <= search_.tolerance;
            });
            if (region.role == RegionRole::Area && isGround) {
                region.role = RegionRole::Ground;
            }
        }
        return std::move(found_);
    }

private:
    [[nodiscard]] bool IsFlat(int x, int y) const
    {
        if (x == box_.right() || y == box_.bottom()) {
            return false;
        }
        const auto* const row = reinterpret_cast<const QRgb*>(pixels_.constScanLine(y)) + x;
        const auto* const below = reinterpret_cast<const QRgb*>(pixels_.constScanLine(y + 1)) + x;
        return row[1] == row[0] && below[0] == row[0] && below[1] == row[0];
    }

    void Take(QPoint seed)
    {
        PictureRegion found;
        colours_.SetRow(seed.y());
        found.colour = colours_.ColourAt(seed.x());
        colours_.SetFrom(found.colour);
        fill_.AddTo(found.region, seed);
        if (found.region.pixels >= search_.leastPixels) {
            found.contour = ContourOf(mask_, found.region.first, MarkPiece, search_.stop);
            found.role = RoleByThickness(found.region);
            Keep(found_, std::move(found));
        }
        Region settled;
        settle_.AddTo(settled, seed);
    }

    RegionRole RoleByThickness(const Region& region)
    {
        constexpr qint64 leastInner = 2;
        constexpr qint64 ofPixels = 5;
        CountedPixels counted(mask_);
        Region again;
        RegionFill(mask_, region.box, counted, search_.stop).AddTo(again, region.first);
        return counted.Inner() * ofPixels < region.pixels * leastInner ? RegionRole::Line : RegionRole::Area;
    }

    const RegionSearch& search_;
    QRect box_;
    PixelMask mask_;
    const QImage& pixels_;
    LikeColours colours_;
    FreePixels like_;
    MarkedPixels taken_;
    RegionFill<FreePixels> fill_;
    RegionFill<MarkedPixels> settle_;
    PictureRegions found_;
};

bool IsHalfOpaque(QRgb pixel)
{
    constexpr int leastAlpha = 128;
    return qAlpha(pixel) >= leastAlpha;
}

} // namespace

PictureRegions RegionsOf(const QImage& picture, const RegionSearch& search)
{
    const QImage whole = WithWholePixels(picture);
    RegionFinder finder(whole, search);
    if (!finder.Find(true) || !finder.Find(false)) {
        return {};
    }
    PictureRegions found = finder.Found();
    KeepLargest(found);
    return InReadingOrder(std::move(found), search.stop);
}

bool HasTransparency(const QImage& picture)
{
    if (!picture.hasAlphaChannel()) {
        return false;
    }
    const QImage whole = WithWholePixels(picture);
    for (int y = 0; y < whole.height(); ++y) {
        const auto* const pixels = reinterpret_cast<const QRgb*>(whole.constScanLine(y));
        if (!std::all_of(pixels, pixels + whole.width(), &IsHalfOpaque)) {
            return true;
        }
    }
    return false;
}

PictureRegions OpaqueIslandsOf(const QImage& picture, const RegionSearch& search)
{
    const QImage whole = WithWholePixels(picture);
    const QRect box = search.within.isNull() ? whole.rect() : search.within & whole.rect();
    PixelMask mask(whole.size());
    for (int y = box.top(); y <= box.bottom() && !search.stop.IsUpFor(box.width()); ++y) {
        const auto* const pixels = reinterpret_cast<const QRgb*>(whole.constScanLine(y));
        quint8* const marks = mask.Row(y);
        for (int x = box.left(); x <= box.right(); ++x) {
            marks[x] = !whole.hasAlphaChannel() || IsHalfOpaque(pixels[x]) ? MarkChosen : 0;
        }
    }
    MarkedPixels opaque([](quint8 marks) { return (marks & MarkChosen) != 0; }, MarkPiece, MarkChosen);
    MarkedPixels taken([](quint8 marks) { return (marks & MarkPiece) != 0; }, 0, MarkPiece);
    RegionFill fill(mask, box, opaque, search.stop);
    RegionFill settle(mask, box, taken, search.stop);
    PictureRegions islands;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        if (EndsAtRow(search)) {
            return {};
        }
        const quint8* const marks = mask.Row(y);
        for (int x = box.left(); x <= box.right(); ++x) {
            if ((marks[x] & MarkChosen) == 0) {
                continue;
            }
            PictureRegion island;
            fill.AddTo(island.region, { x, y });
            if (island.region.pixels >= search.leastPixels) {
                island.colour = whole.pixel(island.region.first);
                island.contour = ContourOf(mask, island.region.first, MarkPiece, search.stop);
                Keep(islands, std::move(island));
            }
            Region settled;
            settle.AddTo(settled, { x, y });
        }
    }
    KeepLargest(islands);
    return InReadingOrder(std::move(islands), search.stop);
}
