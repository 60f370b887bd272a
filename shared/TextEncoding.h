#pragma once

#include <QByteArray>
#include <QString>

/** The bytes that a document is written in. */
enum class TextEncoding { Windows1252, Utf8, Utf8WithMark };

/** What the user knows it by. */
[[nodiscard]] QString NameOf(TextEncoding encoding);

/**
 * The text of `bytes`; never fails. What is no UTF-8 in a page that is read so stays in the text byte by
 * byte, as HeldBytes() has it, and a mark at its beginning is no part of the text.
 */
[[nodiscard]] QString DecodeText(QByteArrayView bytes, TextEncoding encoding);

/** The bytes of `text`; a character that `encoding` lacks becomes "?". What DecodeText() has made becomes
 * what it was. */
[[nodiscard]] QByteArray EncodeText(QStringView text, TextEncoding encoding);

/**
 * Bytes as a text can hold them that are none in its encoding: a half of a UTF-16 pair each, which no
 * character of a page is. EncodeText() makes the bytes of them again.
 */
[[nodiscard]] QString HeldBytes(QByteArrayView bytes);

/** Characters of a text that an encoding lacks. */
struct LackingCharacters
{
    qsizetype Count = 0;
    QString Which; ///< each of them once, in the order of the text; no more than the first `mostShown`

    static constexpr qsizetype mostShown = 10;
};

[[nodiscard]] LackingCharacters LackingIn(QStringView text, TextEncoding encoding);

/** How many UTF-16 units the character at `at` takes, which `encoding` lacks; 0 when it does not lack it. */
[[nodiscard]] qsizetype LackingAt(QStringView text, qsizetype at, TextEncoding encoding);
