#pragma once

#include "outline/SvgNumbers.h"
#include "outline/SvgTree.h"

#include <QPainterPath>
#include <QSizeF>

/** Whether elements of that name are shapes. */
[[nodiscard]] bool IsSvgShape(const QString& name);

/** The outline of a shape in the units of the drawing; `viewport` is what per cents are parts of. Empty where
 * the shape has no size. */
[[nodiscard]] QPainterPath SvgOutline(const SvgElement& shape, QSizeF viewport);

/** A length that an attribute of the element tells, or `other`. */
[[nodiscard]] double LengthOf(
    const SvgElement& element, QLatin1String attribute, SvgDirection direction, QSizeF viewport,
    double other = 0);

/** Whether a part of a path ends where it began. */
enum class PathEnds { Meet, Apart };

/** The parts of a path, in pixels, that have such ends. */
[[nodiscard]] QPainterPath PartsOf(const QPainterPath& path, PathEnds ends);
