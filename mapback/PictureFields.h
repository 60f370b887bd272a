#pragma once

#include "codegen/TodayMap.h"
#include "html/HtmlPart.h"
#include "mapreader/AttributeWishes.h"

// The fields about a whole map that are attributes of its picture in a page.

/** Sets the fields that the tag at that place tells of; those that it has not become empty. */
void SetPictureFields(MapSource& source, QStringView page, const HtmlSpan& picture);

/**
 * What has to be wished of the picture's tag so that it says what `now` says otherwise than `was`. Another
 * picture is referred to from `page` as `context` tells.
 */
[[nodiscard]] QList<AttributeWish>
PictureWishes(QStringView page, const MapSource& was, const MapSource& now, const TodayPage& context);

/** Whether the name or a field of the picture is another in `now`, that code says in the page. */
[[nodiscard]] bool ChangesCode(const MapSource& was, const MapSource& now);
