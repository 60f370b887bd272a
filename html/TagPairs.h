#pragma once

#include "html/HtmlScanner.h"

#include <vector>

/**
 * What is to be marked where the caret stands at a tag, or in a style or script at a bracket: the ends of it
 * and of the one that belongs to it, in their order. Nothing where that is not in `text`, a part of a page
 * that begins at a line whose state is `state`.
 */
[[nodiscard]] std::vector<HtmlSpan> PairAt(QStringView text, const HtmlState& state, qsizetype caret);
