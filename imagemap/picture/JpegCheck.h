#pragma once

#include "imagemap/picture/PictureOutline.h"

#include <optional>

class ByteSource;

/**
 * Follows a JPEG from marker to marker. `source` stands behind the file's first marker. Returns nothing
 * unless the picture is there up to its end and is credible; one that lacks only the mark of its end is told
 * so in the outline.
 */
[[nodiscard]] std::optional<PictureOutline> CheckJpeg(ByteSource& source);
