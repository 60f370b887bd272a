#pragma once

#include "RecordingView.h"
#include "imagemap/drawing/SelectionProtocol.h"

/** Keeps what is to be shown of the selection. */
class RecordingSurface : public SelectionSurface
{
public:
    double zoom = 1;
    SelectionPicture shown;

    [[nodiscard]] double Zoom() const override { return zoom; }
    void ShowSelection(const SelectionPicture& selection) override { shown = selection; }
};

inline MapArea Rectangle(const QList<int>& numbers)
{
    return { AreaShape::Rectangle, numbers, "a.htm", {}, {} };
}

inline const MapArea first = Rectangle({ 10, 10, 110, 60 });
inline const MapArea second = Rectangle({ 60, 40, 160, 120 });
inline const MapArea disc = { AreaShape::Circle, { 300, 200, 40 }, "c.htm", {}, {} };
inline const MapArea polygon = {
    AreaShape::Polygon, { 200, 20, 280, 20, 280, 90, 200, 90 }, "p.htm", {}, {}
};

/** A map with four areas on a picture of 400 by 300 pixels, and the tool in force over it. */
class Selecting
{
public:
    Selecting()
    {
        map.ChangeAreas({ first, second, disc, polygon }, "made");
        editing.SetPictureSize(view.picture);
    }

    void Press(QPoint at, Qt::KeyboardModifiers keys = {})
    {
        tool.HoldKeys(keys);
        tool.MouseDown(leftButton, float(at.x()), float(at.y()));
    }
    void Move(QPoint to, Qt::KeyboardModifiers keys = {})
    {
        tool.HoldKeys(keys);
        tool.MouseMove(float(to.x()), float(to.y()));
    }
    void Release(QPoint at, Qt::KeyboardModifiers keys = {})
    {
        tool.HoldKeys(keys);
        tool.MouseUp(leftButton, float(at.x()), float(at.y()));
    }
    void Click(QPoint at, Qt::KeyboardModifiers keys = {})
    {
        Press(at, keys);
        Release(at, keys);
    }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers keys = {})
    {
        Press(from, keys);
        Move((from + to) / 2, keys);
        Move(to, keys);
        Release(to, keys);
    }
    void DoubleClick(QPoint at)
    {
        Click(at);
        Press(at);
        tool.DoubleClick(float(at.x()), float(at.y()));
        Release(at);
    }
    [[nodiscard]] QList<int> Numbers(qsizetype area) const { return map.Areas().at(area).Coordinates; }

    MapDocument map;
    RecordingView view;
    RecordingSurface surface;
    AreaSelection selection;
    AreaEditing editing = { map, selection };
    SelectionProtocol tool = { editing, view, surface, view };
};
