#pragma once

/** The sizes of the main window's parts that follow the window, and those that they depend on; in twips. */
struct MainLayout
{
    int frameWidth;
    int editorTop;
    int editorWidth;
    int editorHeight;
    int tabWidth;
    int tabHeight;

    bool operator==(const MainLayout&) const = default;
};

/**
 * The layout of a window with the given room inside. A window too small for the editor leaves the editor's
 * height or width as it was; sizes that would be negative are not taken.
 */
[[nodiscard]] MainLayout FitToWindow(MainLayout layout, int width, int height);
