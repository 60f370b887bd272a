#pragma once

#include "outline/LikeColours.h"
#include "outline/RegionFill.h"

#include <QImage>

/** The greatest tolerance that makes sense: of 100, which black and white are apart. */
inline constexpr double mostTolerance = 100;
inline constexpr double usualTolerance = 8;

/**
 * The picture as the regions of it are looked for: with 32 bits a pixel, which most have already. Nothing is
 * copied then.
 */
[[nodiscard]] QImage WithWholePixels(const QImage& picture);

/**
 * The region around a pixel whose colours are no further from that pixel's than a tolerance (see
 * DifferenceOf()). It hangs together by the sides of pixels. Its pixels have MarkNew in the mask, those
 * around it MarkEdge.
 */
class ColourRegion
{
public:
    /** `picture` has 32 bits a pixel; it and `mask`, of the same size, outlive this. */
    ColourRegion(const QImage& picture, PixelMask& mask, QPoint seed);

    /**
     * Makes the region what it is with this tolerance. A larger one than before goes on from the edge of what
     * there is, a smaller one begins anew. Where `stop` has broken it off, the next call goes on likewise.
     */
    void SetTolerance(double tolerance, const StopSign& stop = {});

    [[nodiscard]] const Region& Found() const { return region_; }

    /** Takes all marks of the region off the mask. */
    void Clear();

private:
    void GoOn(const StopSign& stop);
    [[nodiscard]] QRect MarkedBox() const { return region_.box.adjusted(-1, -1, 1, 1); }

    PixelMask& mask_;
    QPoint seed_;
    LikeColours colours_;
    double tolerance_ = -1;
    bool isWhole_ = false; ///< it has not been stopped
    Region region_;
};
