#pragma once

#include "shared/PageDocument.h"

/**
 * What has to be replaced in `text`, a page in UTF-8 that was read as Windows-1252 and may have been edited
 * since, so that it reads as it was meant. Characters that were typed stay what they are.
 */
[[nodiscard]] QList<TextReplacement> MisreadUtf8(const QString& text);
