#include "imagemap/drawing/DrawingHints.h"

#include <algorithm>
#include <array>

namespace {

constexpr QStringView openHint = u"First open a picture, a JPG or GIF file";
constexpr QStringView toolHint = u"Choose Rectangle, Circle or Line to draw an area";
constexpr QStringView listHint = u"A double click on a row edits its link";
constexpr QStringView selectToolHint = u"Areas > Select, or the key S, changes what has been drawn";
constexpr QStringView frozenHint = u"Choose a tool to go on with the figure, Esc gives it up";

struct ToolHints
{
    DrawingTool tool;
    QStringView start;
    QStringView drawing;
    QStringView moving;
};

constexpr QStringView sizing = u"The right button held down moves the figure, Esc gives it up";
constexpr QStringView moving = u"Let go of the right button to go on with its size";
constexpr QStringView sides = u"A click ends a side, the right button the polygon";

constexpr std::array<ToolHints, 3> toolHints = { {
    { DrawingTool::Rectangle, u"Drag from one corner to the opposite one", sizing, moving },
    { DrawingTool::Circle, u"Drag from the centre outwards", sizing, moving },
    { DrawingTool::Line, u"Click where the polygon begins", sides, sides },
} };

} // namespace

QStringView DrawingHint(const DrawingMoment& moment)
{
    if (!moment.hasPicture) {
        return openHint;
    }
    const auto* const hints =
        std::find_if(toolHints.begin(), toolHints.end(), [&moment](const ToolHints& row) {
            return row.tool == moment.tool;
        });
    if (hints == toolHints.end()) {
        const QStringView figuresHint = moment.isPressedInVain ? selectToolHint : listHint;
        return moment.isInProgress ? frozenHint : moment.hasFigures ? figuresHint : toolHint;
    }
    if (!moment.isInProgress) {
        return hints->start;
    }
    return moment.drawState == drawMoving ? hints->moving : hints->drawing;
}

QString InsertedHint(int line)
{
    return QStringLiteral("Image map inserted in line %1 of the page").arg(line);
}
