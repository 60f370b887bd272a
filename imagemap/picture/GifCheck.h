#pragma once

#include "imagemap/picture/PictureOutline.h"

#include <optional>

class ByteSource;

/**
 * Follows a GIF from block to block up to the end of its first frame. `source` stands behind the file's
 * signature. Returns nothing unless that frame is there in full and the picture is credible.
 */
[[nodiscard]] std::optional<PictureOutline> CheckGif(ByteSource& source);
