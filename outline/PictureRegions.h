#pragma once

#include "outline/Contour.h"
#include "outline/RegionFill.h"

#include <QImage>
#include <functional>

/** What a region of a picture seems to be. */
enum class RegionRole {
    Area,   ///< something to click at
    Ground, ///< of a colour that a tenth or more of the picture's rim has: paper, sea, what lies around
    Line,   ///< so thin that fewer than two in five of its pixels have all four neighbours in it: borders,
            ///< letters
};

/** A region of a picture. */
struct PictureRegion
{
    Region region;
    QRgb colour = 0;
    Contour contour; ///< around it and what it encloses
    RegionRole role = RegionRole::Area;
};

using PictureRegions = std::vector<PictureRegion>;

/** Which regions are looked for. */
struct RegionSearch
{
    QRect within;             ///< a part of the picture; null for all of it
    double tolerance = 8;     ///< how far colours of one region may be from that of its first pixel, of 100
    qint64 leastPixels = 200; ///< smaller ones are left out
    StopSign stop = {};       ///< ends the search with nothing
    std::function<void()> passRow = {}; ///< called for each row, once by each pass over the picture
};

/** No more regions are given than so many; the smallest are left out then. */
inline constexpr std::size_t mostRegions = 10000;

/**
 * The regions of like colour. Each pixel belongs to one at most; those that begin where four pixels have one
 * colour come before others, so that the smooth edge of a region does not become one. They are in reading
 * order (see InReadingOrder()). Time is linear in the picture; memory is a byte a pixel and the contours.
 */
[[nodiscard]] PictureRegions RegionsOf(const QImage& picture, const RegionSearch& search);

/** Whether any of the picture is less than half opaque. */
[[nodiscard]] bool HasTransparency(const QImage& picture);

/**
 * The islands of what is at least half opaque, in reading order, of a picture with transparency. `colour` is
 * that of their first pixel; the tolerance counts for nothing.
 */
[[nodiscard]] PictureRegions OpaqueIslandsOf(const QImage& picture, const RegionSearch& search);
