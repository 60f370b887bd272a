#pragma once

#include <QString>
#include <QStringList>

/** Which characters a page can hold as they are; all others are written as references. */
enum class PageCharset {
    Ascii, ///< right in every page
    Windows1252,
    Unicode,
};

/**
 * `text` as it is written between tags, or between the double quotes of a value: nothing in it is markup.
 * What no page may hold (control characters, halves of surrogate pairs, code points that are no characters)
 * is dropped.
 */
[[nodiscard]] QString EscapedHtml(QStringView text, PageCharset charset);

/** What a page can hold of `text`, on one line with single blanks. */
[[nodiscard]] QString OneLineOfText(QStringView text);

/** What `text` says in several lines: its parts between "<br>", with single blanks. */
[[nodiscard]] QStringList LinesOfMessage(QStringView text);

/** The message on one line, for names and descriptions; empty when there is nothing to read in it. */
[[nodiscard]] QString OneLineOfMessage(QStringView text);
