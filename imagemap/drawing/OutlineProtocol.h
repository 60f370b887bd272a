#pragma once

#include "imagemap/drawing/CrossSurface.h"
#include "imagemap/drawing/PictureTool.h"
#include "imagemap/drawing/SelectionView.h"
#include "outline/OutlineWork.h"

#include <functional>

/**
 * The Outline tool: a click takes the region of like colour under the mouse, dragging sideways changes its
 * tolerance; with Shift it joins what was taken before, with Ctrl it is taken off that. Enter or a double
 * click asks for areas of it. The keys alone do it too: arrows move a cross, Enter takes what is there.
 */
class OutlineProtocol final : public QObject, public PictureTool
{
    Q_OBJECT

public:
    /** `picture` gives the picture that is shown. */
    OutlineProtocol(SelectionSurface& surface, CrossSurface& cross, std::function<QImage()> picture);

    /** The tool is in force from now on, or no longer; then it keeps nothing. */
    void SetInForce(bool isInForce);

    /** How far colours of one region may be from each other, of 100. */
    void SetTolerance(double tolerance) { work_.SetTolerance(tolerance); }
    void SetPlan(const OutlinePlan& plan) { work_.SetPlan(plan); }

    /** Asks for the areas of what is taken, once it is known. */
    void Make();

    /** Shows the outline, unless it is that of another picture. */
    void Show();

    [[nodiscard]] const RegionOutline& Outline() const { return outline_; }

    void HoldKeys(Qt::KeyboardModifiers keys) override { keys_ = keys; }
    void MouseDown(int button, float x, float y) override;
    void MouseMove(float x, float y) override;
    void MouseUp(int button, float x, float y) override;
    void DoubleClick(float x, float y) override;
    bool KeyDown(int key, Qt::KeyboardModifiers keys) override;
    void Abandon() override;

Q_SIGNALS:
    /** Dragging wants another tolerance. */
    void ToleranceDragged(double tolerance);
    /** There is another outline, or none any more. */
    void OutlineChanged();
    /** What will be the outline takes a while. */
    void TakesLong();
    /** Areas of the outline are wanted. */
    void MakeAsked();

private:
    struct Press
    {
        QPoint place;
        double tolerance;
        bool isDrag = false; ///< the mouse was moved far enough to mean it
    };

    void Take(QPoint place, Qt::KeyboardModifiers keys);
    void MoveCross(QPoint by);
    void PressEnter(Qt::KeyboardModifiers keys);
    void Work_Found(const RegionOutline& outline);

    SelectionSurface& surface_;
    CrossSurface& cross_;
    std::function<QImage()> picture_;
    OutlineWork work_;
    RegionOutline outline_;
    qint64 pictureKey_ = 0; ///< of the picture that the outline belongs to
    bool isInForce_ = false;
    bool isMakeAsked_ = false; ///< as soon as the outline is known
    Qt::KeyboardModifiers keys_;
    std::optional<Press> press_;
    QPoint mouse_;
    QPoint crossPlace_;
    bool isCrossMoved_ = false; ///< Enter takes what is below the cross
};
