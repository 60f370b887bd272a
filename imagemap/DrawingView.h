#pragma once

#include "shared/FigureStore.h"
#include "shared/JSMode.h"

#include <QString>
#include <array>

/** The labels that follow the mouse and the figures, in the order in which they are cleared. */
enum class DrawingLabel {
    Cursor1,
    Cursor2,
    StartPosition1,
    StartPosition2,
    EndPosition1,
    EndPosition2,
    Dimensions1,
    Dimensions2,
    Figures,
};

struct DrawingLabelName
{
    DrawingLabel label;
    const char* name;
    bool isPosition; ///< hidden while all figures are painted again
};

inline constexpr std::array<DrawingLabelName, 9> drawingLabels = { {
    { DrawingLabel::Cursor1, "lblCursor1", false },
    { DrawingLabel::Cursor2, "lblCursor2", false },
    { DrawingLabel::StartPosition1, "lblStartPosition1", true },
    { DrawingLabel::StartPosition2, "lblStartPosition2", true },
    { DrawingLabel::EndPosition1, "lblEndPosition1", true },
    { DrawingLabel::EndPosition2, "lblEndPosition2", true },
    { DrawingLabel::Dimensions1, "lblDimensions1", true },
    { DrawingLabel::Dimensions2, "lblDimensions2", true },
    { DrawingLabel::Figures, "lblFigures", false },
} };

/** A figure as it is painted: picture pixels; for a circle the first point is its centre. */
struct PaintedFigure
{
    qint16 kind = 0; ///< kindRectangle, kindCircle or kindLine
    qint16 x1 = 0;
    qint16 y1 = 0;
    qint16 x2 = 0;
    qint16 y2 = 0;
    qint16 radius = 0; ///< circles only

    bool operator==(const PaintedFigure&) const = default;
};

/** How a figure is painted. */
enum class Pen {
    Copy,   ///< for good, in the foreground colour
    Invert, ///< as the one figure that follows the mouse; it replaces the one before without a trace
};

enum class SurfacePointer { Arrow, Cross };

enum class FullStoreText { Lines, Figures };

/** What the drawing protocol asks of the window that shows the picture. */
class DrawingView
{
public:
    virtual ~DrawingView() = default;

    /** The picture's own size in pixels; zero without a picture. */
    [[nodiscard]] virtual int PictureWidth() const = 0;
    [[nodiscard]] virtual int PictureHeight() const = 0;

    virtual void PaintFigure(const PaintedFigure& figure, Pen pen) = 0;

    /** Takes the figure that follows the mouse off the picture. */
    virtual void EraseRubberFigure() = 0;

    /** Takes everything drawn off the picture; the picture itself stays. */
    virtual void ClearDrawing() = 0;

    virtual void SetSurfacePointer(SurfacePointer pointer) = 0;
    virtual void SetLabel(DrawingLabel label, const QString& text) = 0;

    /** Hides the position labels while many figures are painted at once, and shows them again. */
    virtual void BeginPaintingAll() = 0;
    virtual void EndPaintingAll() = 0;

    /** Enables or disables the commands that need figures. */
    virtual void EnableFigureCommands(bool enable) = 0;

    /** Mirrors the chosen tool in the menu's check marks and the status bar. */
    virtual void ShowTool() = 0;

    /** Writes the label of the mode in force into the header of the message column. */
    virtual void ShowModeHeader() = 0;

    virtual void RemoveLastArea() = 0;

    /** Tells that no further figure can be started. */
    virtual void ReportFullStore(FullStoreText text) = 0;

    /** Opens the link dialog for the figure just drawn, with `prompt` in the status bar. */
    virtual void LinkNewFigure(QStringView prompt) = 0;
};
