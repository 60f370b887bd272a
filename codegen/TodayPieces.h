#pragma once

#include "codegen/TodayMap.h"

// Pieces of markup that the forms for today's browsers share.

/** ` name="value"` with the value escaped; nothing for an empty one. */
[[nodiscard]] QString Attribute(QStringView name, const QString& value, PageCharset charset);

/** ` width="W" height="H"`; nothing for an empty size. */
[[nodiscard]] QString SizeAttributes(QSize size);

/** The picture's tag, with `more` of its attributes behind its size. */
[[nodiscard]] QString PictureTag(const TodayMap& map, const QString& more = {});

/** Where an area leads and which window takes it. */
[[nodiscard]] QString LinkAttributes(const TodayArea& area, PageCharset charset);

/** The picture in a paragraph of its own, for a map without areas. */
[[nodiscard]] QString PictureAlone(const TodayMap& map);
