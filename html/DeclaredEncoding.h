#pragma once

#include "html/EncodingLabels.h"

// What the bytes of a page say of its encoding, in the names of the Encoding Standard
// (encoding.spec.whatwg.org).

inline constexpr QLatin1String utf8Name("UTF-8");
inline constexpr QLatin1String windows1252Name("windows-1252");

/** The encoding of the byte order mark that the page begins with: UTF-8, UTF-16BE or UTF-16LE; empty without
 * one. */
[[nodiscard]] QLatin1String EncodingOfMark(QByteArrayView page);

/**
 * The encoding that the markup declares, in a `meta` or else in an XML declaration; empty if it declares none
 * that is known. This is the prescan of the HTML standard (html.spec.whatwg.org): as browsers do, it looks at
 * the first 1024 bytes only, and takes UTF-16, in which a declaration could not be read, for UTF-8.
 */
[[nodiscard]] QLatin1String EncodingOfMarkup(QByteArrayView page);

/**
 * Whether the page is UTF-8 without a fault and holds characters beyond ASCII, which is as good as a
 * declaration: text in another encoding hardly ever happens to be. Forms that are longer than need be, halves
 * of UTF-16 pairs and numbers behind the last code point are faults.
 */
[[nodiscard]] bool IsUtf8BeyondAscii(QByteArrayView page);
