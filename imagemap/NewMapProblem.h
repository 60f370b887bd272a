#pragma once

#include "imagemap/origin/MapMerge.h"
#include "mapback/ReturnedMap.h"

// What keeps a picture of a page from getting a map there, in words; empty where nothing does.

/** As far as the picture tells it. Nothing is in the way of a map that the page has. */
[[nodiscard]] QString ProblemOfPicture(QStringView page, const ReturnedMap& map);

/** As far as picture and map tell it. */
[[nodiscard]] QString ProblemOfNewMap(QStringView page, const ReturnedMap& picture, const EditedMap& map);
