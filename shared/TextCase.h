#pragma once

#include <QString>

/**
 * Upper and lower case within the code page of documents. A character whose counterpart lies outside the
 * code page, or is more than one character, is left as it is.
 */
[[nodiscard]] QString UpperCase(const QString& text);
[[nodiscard]] QString LowerCase(const QString& text);

/**
 * Lower case with a capital at the start of every word. Words are made of the letters a to z alone: whatever
 * else there is, digits, apostrophes and accented letters too, starts a new word behind it.
 */
[[nodiscard]] QString ProperCase(const QString& text);
