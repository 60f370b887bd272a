#include "app/rules/WindowLayout.h"

namespace {

constexpr int frameMargin = 140;
constexpr int editorMargin = 240;
/** A window that leaves less than this below or beside the editor does not change it. */
constexpr int leastBelow = 200;
constexpr int leastBeside = 220;
/** The tabbed panel follows the editor's height above this one. */
constexpr int leastTabHeight = 1150;

void Assign(int& size, int value)
{
    if (value >= 0) {
        size = value;
    }
}

} // namespace

MainLayout FitToWindow(MainLayout layout, int width, int height)
{
    Assign(layout.frameWidth, width - frameMargin);
    if (layout.editorTop + leastBelow < height) {
        Assign(layout.editorHeight, height - layout.editorTop - editorMargin);
    }
    if (layout.tabWidth + leastBeside < width) {
        Assign(layout.editorWidth, width - layout.tabWidth - editorMargin);
    }
    if (layout.editorHeight > leastTabHeight) {
        layout.tabHeight = layout.editorHeight;
    }
    return layout;
}
