#pragma once

#include "shared/PageDocument.h"

/**
 * What moves each line of `page` in by the nesting of the elements that it stands in: by tabs or blanks, and
 * as far, as most of its lines have it already. Only blanks and tabs at the beginnings of lines change, and
 * none that is part of what the page holds: of `pre`, `textarea`, scripts, styles, comments and values. What
 * has been formatted stays as it is.
 */
[[nodiscard]] QList<TextReplacement> FormatPage(const QString& page);
