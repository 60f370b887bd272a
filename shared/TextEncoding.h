#pragma once

#include <QByteArray>
#include <QString>

/** The bytes that a document is written in. */
enum class TextEncoding { Windows1252 };

/** The text of `bytes`; never fails. */
[[nodiscard]] QString DecodeText(QByteArrayView bytes, TextEncoding encoding);

/** The bytes of `text`; a character that `encoding` lacks becomes "?". */
[[nodiscard]] QByteArray EncodeText(QStringView text, TextEncoding encoding);
