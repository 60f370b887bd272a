#pragma once

#include "mapreader/PageMaps.h"

/** Where a map stands in a page, in whatever form. */
struct MapPlace
{
    /** Of the element; of what is like this program's own output, all of that. */
    HtmlSpan whole;
    qsizetype map = -1;      ///< its number in PageMaps; -1 for shapes over a picture
    qsizetype ownStart = -1; ///< where what is like this program's own output begins; -1 if it is not

    [[nodiscard]] bool IsLikeOwn() const { return ownStart >= 0; }
};

/** All maps of a page in their order. */
[[nodiscard]] std::vector<MapPlace> MapPlacesOf(QStringView page, const PageMaps& maps);

/**
 * The innermost map that the place is in, at its ends too, else the one of the picture in whose tag it is; -1
 * if there is none.
 */
[[nodiscard]] qsizetype MapAt(const std::vector<MapPlace>& places, const PageMaps& maps, qsizetype caret);
