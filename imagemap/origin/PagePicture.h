#pragma once

#include "imagemap/model/MapArea.h"

#include <QByteArray>
#include <QSize>
#include <optional>

// The picture of a page's map, as far as it is on this machine.

/** Where a picture is that a page names. */
struct FoundPicture
{
    QString path;    ///< of its file; empty if there is none
    QByteArray data; ///< what the reference itself holds, if it does
};

/**
 * Looks for the picture that `reference`, an `src` as browsers see it, names in the page `pagePath`, which
 * may be no file yet; `base` is the address of the page's `base`, or empty. Nothing is fetched from the net:
 * a base that is there says where the page will be, beside its pictures, as it is here.
 */
[[nodiscard]] FoundPicture
FindPicture(const QString& reference, const QString& base, const QString& pagePath);

/** The pixels that `width` or `height` of a picture means; nothing if it says none, or a share of the window.
 */
[[nodiscard]] std::optional<int> PixelsOf(QStringView length);

/** The size of a ground to be drawn on in place of a picture: that which is said of it, or else what holds
 * all areas. */
[[nodiscard]] QSize SizeOfGround(std::optional<int> width, std::optional<int> height, const MapAreas& areas);
