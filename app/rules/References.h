#pragma once

#include "shared/PageDocument.h"
#include "shared/TextEncoding.h"

/**
 * How the characters of the page `text` that `encoding` lacks can be written all the same: as numeric
 * references, in scripts and styles as what these have instead.
 */
[[nodiscard]] QList<TextReplacement> ReferencesFor(const QString& text, TextEncoding encoding);
