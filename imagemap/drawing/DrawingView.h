#pragma once

#include "imagemap/model/FigureStore.h"

#include <QList>
#include <QString>
#include <array>

/** What the labels beside the picture show, in the order in which they are cleared. */
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
inline constexpr std::size_t drawingLabelCount = 9;

/** A figure as it is painted: picture pixels; for a circle the first point is its centre. */
struct PaintedFigure
{
    qint16 kind = 0; ///< kindRectangle, kindCircle or kindLine
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    int radius = 0; ///< circles only

    bool operator==(const PaintedFigure&) const = default;
};

using PaintedFigures = QList<PaintedFigure>;

enum class SurfacePointer { Arrow, Cross, Move, Handle };

enum class FullStoreText { Lines, Figures };

/** The tools of the editor; the numbers of those that draw are the kinds of their figures. */
enum class DrawingTool : qint16 {
    None = 0,
    Rectangle = kindRectangle,
    Circle = kindCircle,
    Line = kindLine,
    Cursor
};

/** What the drawing tools ask of the widget that shows the picture. */
class DrawingSurface
{
public:
    DrawingSurface() = default;
    virtual ~DrawingSurface() = default;
    Q_DISABLE_COPY_MOVE(DrawingSurface)

    /** The picture's own size in pixels; zero without a picture. */
    [[nodiscard]] virtual int PictureWidth() const = 0;
    [[nodiscard]] virtual int PictureHeight() const = 0;

    /** Shows these figures on the picture, in the colour of figures, and no others. */
    virtual void ShowFigures(const PaintedFigures& figures) = 0;

    /** Shows the one figure that follows the mouse, in place of the one before. */
    virtual void ShowRubberFigure(const PaintedFigure& figure) = 0;
    virtual void EraseRubberFigure() = 0;

    virtual void SetPointer(SurfacePointer pointer) = 0;
};

/** What the drawing tools ask of the window around the picture. */
class DrawingStatus
{
public:
    DrawingStatus() = default;
    virtual ~DrawingStatus() = default;
    Q_DISABLE_COPY_MOVE(DrawingStatus)

    virtual void SetLabel(DrawingLabel label, const QString& text) = 0;

    /** Enables or disables the commands that need figures. */
    virtual void EnableFigureCommands(bool enable) = 0;

    /** Mirrors the chosen tool in the menu's check marks and the status bar. */
    virtual void ShowTool() = 0;

    /** Tells that no further figure can be started. */
    virtual void ReportFullStore(FullStoreText text) = 0;

    /** Opens the link dialog for the figure just drawn, with `prompt` in the status bar. */
    virtual void LinkNewFigure(QStringView prompt) = 0;
};
