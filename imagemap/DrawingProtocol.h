#pragma once

#include "imagemap/DrawingView.h"
#include "shared/ImgMap.h"

/** The entry of the Tools menu that is checked; the numbers are those of the figures' kinds. */
enum class DrawingTool : int {
    None = 0,
    Rectangle = kindRectangle,
    Circle = kindCircle,
    Line = kindLine,
    Cursor
};

/** The status text of `tool`. */
[[nodiscard]] QStringView DrawingModeText(DrawingTool tool);

/** Mouse buttons by their number in the protocol. */
inline constexpr int leftButton = 1;
inline constexpr int rightButton = 2;

/**
 * Turns mouse events on the picture into figures of the store. Positions are picture pixels, fractions of
 * them on a scaled screen.
 *
 * A step that fails (a position or difference beyond 16 bits, a slot outside the store) is skipped and the
 * handler goes on with the next.
 */
class DrawingProtocol
{
public:
    DrawingProtocol(ImgMap& imgMap, DrawingView& view);

    [[nodiscard]] DrawingTool Tool() const { return tool_; }

    /** Chooses a drawing tool; `index` is a figure's kind. A figure in progress goes on with it. */
    void SelectTool(int index);

    /** Chooses the neutral cursor; a figure in progress stays frozen until a tool is chosen again. */
    void SelectCursor();

    void MouseDown(int button, float x, float y);
    void MouseMove(float x, float y);
    void MouseUp(int button, float x, float y);

    /** Paints one figure, its second point clamped to the picture, and shows its position and size. */
    void DrawFigure(qint16 kind, qint16 x1, qint16 y1, qint16 x2, qint16 y2, Pen pen);

    /** Paints every figure of the store; an empty store puts the editor back into its empty state. */
    void RedrawFigures();

    /** Empties the store and disables the commands that need figures. */
    void ClearFigures();

    /** Empties the labels of positions, size and number of figures. */
    void ClearPositionLabels();

    /**
     * Removes the last rectangle, circle or whole polygon with its row; an unfinished polygon has no row yet.
     * While a figure is being drawn of which nothing is committed, that alone is given up.
     */
    void DeleteLastFigure();

    /** Gives up the figure in progress and the sides of an unfinished polygon as the next one's start. */
    void AbandonDrawing();

    /** Whether something is being drawn, or sides of a polygon wait for the next. */
    [[nodiscard]] bool IsInProgress() const { return IsDrawing() || imgMap_.Store.HasUnfinishedPolygon(); }

    /** Gives up the figure in progress, a polygon with all its sides; everything finished stays. */
    void GiveUpDrawing();

private:
    [[nodiscard]] bool IsDrawing() const { return imgMap_.Store.DrawState != drawIdle; }
    [[nodiscard]] QStringView NewAreaPrompt() const { return TextsOf(imgMap_.Mode).newPrompt; }

    void StartFigure(float x, float y, FullStoreText fullText);
    void ShowRubberFigure();
    void FollowMouse(float x, float y);
    void MoveFigure(float x, float y);
    void PaintForGood();
    void PressInFigureMode(int button, float x, float y);
    void PressInLineMode(int button);
    void CommitFigure();
    void StopDrawing();
    void PaintAllFigures();
    void GiveUpSides();
    void DisableWithoutFigures();
    void EndPolygon();
    void ShowEmptyState();
    void ShowFigureCount();
    void ShowPoints(const PaintedFigure& figure);
    /** False when the size does not fit 16 bits; what comes before the part that does not fit is shown. */
    [[nodiscard]] bool ShowSize(const PaintedFigure& figure);

    ImgMap& imgMap_;
    DrawingView& view_;
    DrawingTool tool_ = DrawingTool::Cursor;
    bool isLeftHeld_ = false;
    bool isReleaseVoid_ = false; ///< what the button held was pressed for is given up
};
