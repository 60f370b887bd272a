#pragma once

#include "imagemap/picture/PictureOutline.h"

#include <optional>

class QIODevice;

/**
 * Walks through the file behind `device`, which stands at its start, decoding nothing and holding little
 * of it in memory. Returns nothing unless it is a JPEG or GIF picture that is there up to its end, a JPEG's
 * end mark aside, and that cannot make a decoder work or allocate out of all proportion to what a true
 * picture would.
 */
[[nodiscard]] std::optional<PictureOutline> CheckPicture(QIODevice& device);
