#pragma once

#include <QByteArray>
#include <optional>

/**
 * The SVG drawing `bytes` with what a picture in a page may show, and nothing that would be fetched from
 * elsewhere or run. Returns nothing unless it is a whole drawing that does not unfold out of all proportion.
 */
[[nodiscard]] std::optional<QByteArray> HarmlessSvg(const QByteArray& bytes);
