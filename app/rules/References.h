#pragma once

#include "shared/PageDocument.h"
#include "shared/TextEncoding.h"

/**
 * How the characters of the page `text` that `encoding` lacks can be written all the same: as numeric
 * references, in scripts and styles as what these have instead.
 */
[[nodiscard]] QList<TextReplacement> ReferencesFor(const QString& text, TextEncoding encoding);

/**
 * `text`, a piece of markup, with everything beyond ASCII written so. In a page in UTF-8 that is read as
 * Windows-1252 it reads as it was meant; what comes from the page, and is UTF-8 that was read so, stays as it
 * is.
 */
[[nodiscard]] QString WithReferences(const QString& text);

/**
 * The same for what comes into the page `text`: each piece is written so as it has to be at its place, be it
 * in a script or style. `replacements` are in ascending order.
 */
[[nodiscard]] QList<TextReplacement> WithReferences(const QString& text, QList<TextReplacement> replacements);
