#pragma once

#include "imagemap/model/JSMode.h"
#include "imagemap/model/MapArea.h"

/**
 * A text that stands for an address: the name of its file in words, else its host, else the address. It is
 * empty for an address of which nothing can be read.
 */
[[nodiscard]] QString NameOfLink(const QString& link);

/** The name of a picture's file in words. */
[[nodiscard]] QString NameOfPicture(const QString& path);

/**
 * What screen readers say for an area: its own text, else its message where `mode` has one that is a text,
 * else the name of its link; empty if none of them can be read.
 */
[[nodiscard]] QString LabelOf(const MapArea& area, JSMode mode);

/** Whether LabelOf() had to make do with the link. */
[[nodiscard]] bool LacksText(const MapArea& area, JSMode mode);
