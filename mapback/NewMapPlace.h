#pragma once

#include "html/HtmlPart.h"

#include <QString>
#include <optional>

/** Why a picture cannot be given a map. */
enum class NewMapRefusal {
    InLink,   ///< or in a button, which takes the clicks
    OnServer, ///< it has a map already, on the server (`ismap`)
};

/** Where the map of a picture goes that has none yet. */
struct NewMapPlace
{
    std::optional<NewMapRefusal> refusal; ///< then nothing else counts
    qsizetype offset = 0;
    /** What each of the map's lines begins with, from the line end on; the null string where the map may not
     * have any, since blanks would be seen there. */
    QString line;
};

/**
 * Finds that place: behind the picture whose tag is there if the line ends with it, else behind the nearest
 * of the elements around that ends its line, but for those that hold more than text; behind `picture`,
 * `pre` and another map in any case. Where no line ends, it is right behind.
 */
[[nodiscard]] NewMapPlace FindNewMapPlace(QStringView page, const HtmlSpan& picture);
