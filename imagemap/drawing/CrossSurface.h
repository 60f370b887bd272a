#pragma once

#include <QPoint>
#include <Qt>
#include <QtGlobal>

/** Shows the place where a key draws. */
class CrossSurface
{
public:
    CrossSurface() = default;
    virtual ~CrossSurface() = default;
    Q_DISABLE_COPY_MOVE(CrossSurface)

    virtual void ShowCross(QPoint place) = 0;
    virtual void HideCross() = 0;
};

/** How far an arrow key moves the cross, in picture pixels; nowhere with any other key. */
[[nodiscard]] inline QPoint CrossStep(int key, Qt::KeyboardModifiers keys)
{
    constexpr int longStep = 10;
    const QPoint step(
        (key == Qt::Key_Right ? 1 : 0) - (key == Qt::Key_Left ? 1 : 0),
        (key == Qt::Key_Down ? 1 : 0) - (key == Qt::Key_Up ? 1 : 0));
    return keys.testFlag(Qt::ShiftModifier) ? step * longStep : step;
}
