#pragma once

#include "shared/PageDocument.h"

/** The two ways in which pages write comments around a text. */
enum class CommentMarks {
    Markup, ///< <!-- -->
    Style   ///< /* */
};

/** What puts the part `place` of `page` between such marks, and writes otherwise what would end the comment.
 */
[[nodiscard]] QList<TextReplacement>
PutBetweenMarks(QStringView page, const TextSpan& place, CommentMarks marks);

/** What takes them off again; `place` is a whole comment. What a hand has written is not taken for a writing
 * of what would end it. */
[[nodiscard]] QList<TextReplacement>
TakeOffMarks(QStringView page, const TextSpan& place, CommentMarks marks);
