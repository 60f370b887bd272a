#pragma once

#include "imagemap/DrawingProtocol.h"

#include <array>

/** Where the chosen tool is marked: an entry of the Tools menu and a position of the toolbar. */
struct ToolMark
{
    DrawingTool tool;
    const char* entry;
    int position;
};

inline constexpr std::array<ToolMark, 4> toolMarks = { {
    { DrawingTool::Rectangle, "mnuFigNum_5", 5 },
    { DrawingTool::Circle, "mnuFigNum_6", 6 },
    { DrawingTool::Line, "mnuFigNum_7", 7 },
    { DrawingTool::Cursor, "mnuCursor", 9 },
} };
