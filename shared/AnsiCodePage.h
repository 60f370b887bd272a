#pragma once

#include <QByteArray>
#include <QString>

/**
 * The 8-bit code page of documents and link files: Windows-1252 as the WHATWG Encoding Standard defines it,
 * in which the five unassigned bytes stand for the control characters of the same number.
 */
namespace AnsiCodePage {

/** The text of `bytes`, one character a byte; never fails. */
[[nodiscard]] QString Decode(QByteArrayView bytes);

/** The bytes of `text`, one a character; a character outside the code page becomes "?". */
[[nodiscard]] QByteArray Encode(QStringView text);

} // namespace AnsiCodePage
