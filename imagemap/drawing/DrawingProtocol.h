#pragma once

#include "imagemap/drawing/DrawingView.h"
#include "imagemap/drawing/FigureDisplay.h"
#include "imagemap/drawing/PictureTool.h"
#include "imagemap/model/MapDocument.h"

/** The status text of `tool`. */
[[nodiscard]] QStringView DrawingModeText(DrawingTool tool);

/**
 * The tools that draw: turns the mouse into figures of the map.
 *
 * A step that fails (a position or difference beyond 16 bits, a slot outside the ledger) is skipped and the
 * handler goes on with the next.
 */
class DrawingProtocol final : public PictureTool
{
public:
    DrawingProtocol(MapDocument& map, DrawingSurface& surface, DrawingStatus& status, FigureDisplay& display);

    [[nodiscard]] DrawingTool Tool() const { return tool_; }

    /** Whether a button was pressed since the cursor was chosen, with which nothing is drawn. */
    [[nodiscard]] bool IsPressedInVain() const { return isPressedInVain_; }

    /**
     * Chooses a tool. A figure in progress goes on with it, but stays frozen with the neutral cursor until a
     * tool that draws is chosen again.
     */
    void SelectTool(DrawingTool tool);

    void MouseDown(int button, float x, float y) override;
    void MouseMove(float x, float y) override;
    void MouseUp(int button, float x, float y) override;
    void Abandon() override;

    /** Goes on with a polygon from its last corner, as if the others had just been clicked. */
    void ResumePolygon(const QList<QPoint>& corners);

private:
    [[nodiscard]] FigureStore& Ledger() const { return map_.Ledger(); }

    void StartFigure(float x, float y, FullStoreText fullText);
    void FollowMouse(float x, float y);
    void MoveFigure(float x, float y);
    void PressInFigureMode(int button, float x, float y);
    void PressInLineMode(int button);
    void CommitFigure();
    void CommitSide();
    void EndPolygon();

    MapDocument& map_;
    DrawingSurface& surface_;
    DrawingStatus& status_;
    FigureDisplay& display_;
    DrawingTool tool_ = DrawingTool::Cursor;
    bool isLeftHeld_ = false;
    bool isPressedInVain_ = false;
    bool isReleaseVoid_ = false; ///< what the button held was pressed for is given up
};
