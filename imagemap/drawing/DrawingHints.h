#pragma once

#include "imagemap/drawing/DrawingView.h"

/** What the editor's user is at. */
struct DrawingMoment
{
    bool hasPicture = false;
    bool hasFigures = false;
    bool isInProgress = false; ///< a figure is being drawn, or a polygon waits for its next side
    qint16 drawState = drawIdle;
    DrawingTool tool = DrawingTool::Cursor;
    bool isPressedInVain =
        false; ///< the picture was pressed on since the cursor was chosen, which does nothing
};

/** What the mouse does next: what somebody who sees the editor for the first time cannot know. */
[[nodiscard]] QStringView DrawingHint(const DrawingMoment& moment);

/** What to do while the link dialog asks for the figure just drawn. */
inline constexpr QStringView linkingHint = u"Enter where a click on the area leads";

/** What can be done when the picture's file holds another picture by now. */
inline constexpr QStringView changedPictureHint =
    u"The picture was changed on disk: click here to load it anew";

/** Tells where in the page a map is; `line` counts from 1. */
[[nodiscard]] QString InsertedHint(int line);
