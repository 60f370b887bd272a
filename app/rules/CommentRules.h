#pragma once

#include "shared/PageDocument.h"

#include <optional>

/** What makes a comment of a part of a page, or the other way round. */
struct CommentChange
{
    QList<TextReplacement> Replacements; ///< none where nothing can be done
    std::optional<TextSpan> Selection;   ///< what is to be selected then; else the caret stays with its text
};

/**
 * Puts the part `place` of `page`, or without a length the line that it is in, into a comment, or takes off
 * the one that it is in. In a style or script the comments are theirs. What would end the comment within it
 * is written otherwise, and comes back when the comment is taken off. A part that begins or ends within a
 * tag, or within an element that holds text alone, is as much more.
 */
[[nodiscard]] CommentChange ToggleComment(const QString& page, const TextSpan& place);
