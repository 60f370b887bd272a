#pragma once

#include <Qt>
#include <QtGlobal>

/** Mouse buttons by their number in the protocol of the tools. */
inline constexpr int leftButton = 1;
inline constexpr int rightButton = 2;

/**
 * What the mouse and the keys do on the picture while one tool, or one group of them, is in force. Positions
 * are picture pixels, fractions of them on a scaled screen.
 */
class PictureTool
{
public:
    PictureTool() = default;
    virtual ~PictureTool() = default;
    Q_DISABLE_COPY_MOVE(PictureTool)

    virtual void MouseDown(int button, float x, float y) = 0;
    virtual void MouseMove(float x, float y) = 0;
    virtual void MouseUp(int button, float x, float y) = 0;

    /** The keys that are held while the mouse does what is told of next. */
    virtual void HoldKeys(Qt::KeyboardModifiers) {}

    /** The press just told of was the second of two. */
    virtual void DoubleClick(float, float) {}

    /** A key was pressed on the picture; false where the tool has no use for it. */
    virtual bool KeyDown(int, Qt::KeyboardModifiers) { return false; }

    /** Gives up what is in progress; the release of a button that is held does nothing any more. */
    virtual void Abandon() = 0;
};
