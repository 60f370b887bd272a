#pragma once

#include <QPalette>

/** `ground` with so much of `colour` in it, from 0 to 1. */
[[nodiscard]] QColor Mixed(const QColor& ground, const QColor& colour, double share);

/** How well two colours can be told apart: from 1 to 21, as the accessibility guidelines of the W3C count. */
[[nodiscard]] double ContrastOf(const QColor& one, const QColor& other);

/** `colour`, or as much of it as `text` leaves so that it can be read on `ground`. */
[[nodiscard]] QColor ReadableOn(const QColor& ground, const QColor& colour, const QColor& text);

/** The ground of the line that the caret is in. */
[[nodiscard]] QColor CurrentLineGround(const QPalette& palette);
