#pragma once

#include "imagemap/model/JSMode.h"
#include "imagemap/model/MapArea.h"

#include <QString>

/** Everything a map is written from. Texts go into the markup as they stand, nothing is escaped. */
struct MapSource
{
    QString MapName;
    QString Width; ///< picture pixels, as typed or of the picture itself
    QString Height;
    QString AltText;
    QString Align;
    QString Border; ///< empty counts as 0
    QString HorizontalSpace;
    QString VerticalSpace;
    QString PictureReference;   ///< goes into SRC
    bool FileNamesOnly = false; ///< pictures of the script are named without their folders
    QString ModeDefault;
    MapAreas Areas;
};

/** The two lines of comment that a map in HTML 4 begins with. */
[[nodiscard]] QString OpeningOfMap();

/** The comment behind its areas. */
inline constexpr QStringView mapEndMark = u"<!-- End Image Map-->";

/** The word for a shape in HTML 4. */
[[nodiscard]] QStringView ShapeWordOf(AreaShape shape);

/** The map with, for an area that has a message, handlers for the browser's status bar. */
[[nodiscard]] QString GenerateStandardMap(const MapSource& source);

/** The map with a second picture that follows the mouse. */
[[nodiscard]] QString GenerateSwitchingImagesMap(const MapSource& source);

/** The map with a text area whose message follows the mouse. */
[[nodiscard]] QString GenerateTextAreaMap(const MapSource& source);

/** The map with a tool tip for every area. */
[[nodiscard]] QString GenerateToolTipMap(const MapSource& source);

/** The map as `mode` wants it: HTML 4 markup and script, lines ended by CR LF. */
[[nodiscard]] QString GenerateMapFor(JSMode mode, const MapSource& source);
