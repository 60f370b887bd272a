#include "imagemap/drawing/KeyedDrawing.h"

#include <algorithm>
#include <utility>

void KeyedDrawing::MouseDown(int button, float x, float y)
{
    surface_.HideCross();
    isHeld_ = false;
    protocol_.MouseDown(button, x, y);
}

void KeyedDrawing::MouseMove(float x, float y)
{
    // A key goes on from where the mouse was last.
    cross_ = { static_cast<int>(x), static_cast<int>(y) };
    protocol_.MouseMove(x, y);
}

bool KeyedDrawing::KeyDown(int key, Qt::KeyboardModifiers keys)
{
    if (protocol_.Tool() == DrawingTool::Cursor) {
        return false;
    }
    const QPoint step = CrossStep(key, keys);
    if (!step.isNull()) {
        MoveCross(step);
        return true;
    }
    if (key != Qt::Key_Return && key != Qt::Key_Enter) {
        return false;
    }
    SetPoint(keys.testFlag(Qt::ControlModifier));
    return true;
}

void KeyedDrawing::MoveCross(QPoint by)
{
    cross_ = { std::clamp(cross_.x() + by.x(), 0, picture_.PictureWidth()),
               std::clamp(cross_.y() + by.y(), 0, picture_.PictureHeight()) };
    surface_.ShowCross(cross_);
    protocol_.MouseMove(float(cross_.x()), float(cross_.y()));
}

void KeyedDrawing::SetPoint(bool isLast)
{
    const auto x = static_cast<float>(cross_.x());
    const auto y = static_cast<float>(cross_.y());
    surface_.ShowCross(cross_);
    protocol_.MouseMove(x, y);
    if (protocol_.Tool() == DrawingTool::Line) {
        const int button = isLast ? rightButton : leftButton;
        protocol_.MouseDown(button, x, y);
        protocol_.MouseUp(button, x, y);
    } else if (std::exchange(isHeld_, !isHeld_)) {
        protocol_.MouseUp(leftButton, x, y);
    } else {
        protocol_.MouseDown(leftButton, x, y);
    }
}

void KeyedDrawing::Abandon()
{
    isHeld_ = false;
    surface_.HideCross();
    protocol_.Abandon();
}
