#pragma once

#include <QPainterPath>
#include <QStringView>

/** The outline that the path data `text` tells: all commands, elliptical arcs as curves. Where it cannot be
 * understood it ends, as in browsers. */
[[nodiscard]] QPainterPath SvgPath(QStringView text);
