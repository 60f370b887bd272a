#pragma once

#include "imagemap/drawing/CrossSurface.h"
#include "imagemap/drawing/DrawingProtocol.h"

/**
 * The tools that draw, with the keys too: arrows move a cross, Enter does what the left button does there,
 * with Ctrl it ends a polygon as the right button does. The mouse goes through to the tools as it is.
 */
class KeyedDrawing final : public PictureTool
{
public:
    KeyedDrawing(DrawingProtocol& protocol, DrawingSurface& picture, CrossSurface& surface)
        : protocol_(protocol)
        , picture_(picture)
        , surface_(surface)
    {
    }

    void MouseDown(int button, float x, float y) override;
    void MouseMove(float x, float y) override;
    void MouseUp(int button, float x, float y) override { protocol_.MouseUp(button, x, y); }
    bool KeyDown(int key, Qt::KeyboardModifiers keys) override;
    void Abandon() override;

private:
    void MoveCross(QPoint by);
    void SetPoint(bool isLast);

    DrawingProtocol& protocol_;
    DrawingSurface& picture_;
    CrossSurface& surface_;
    QPoint cross_;
    bool isHeld_ = false; ///< a key has begun a figure that another is to end
};
