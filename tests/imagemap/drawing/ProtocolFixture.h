#pragma once

#include "RecordingView.h"
#include "imagemap/drawing/DrawingProtocol.h"
#include "tests/support/ListedAreas.h"

#include <QPointF>

inline constexpr int middleButton = 4;

/** The kinds, start and end points of figures, in the form in which a table can hold them. */
using Shape = QList<int>;

inline Shape ShapeOf(const FigureRecord& figure)
{
    return { figure.Kind, figure.X1, figure.Y1, figure.X2, figure.Y2 };
}

inline Shape ShapeOf(const PaintedFigure& figure)
{
    return { figure.kind, figure.x1, figure.y1, figure.x2, figure.y2 };
}

/** The editor without its windows: the store, the protocol over it, and a mouse to drive it with. */
struct Editor
{
    MapDocument map;
    RecordingView view;
    FigureDisplay display{ map, view, view };
    DrawingProtocol protocol{ map, view, view, display };
    int headerShowings = 0; ///< how often the header over the messages was written

    Editor()
    {
        QObject::connect(&map.Script(), &MapScript::MessageHeaderChanged, &map, [this] { ++headerShowings; });
    }

    FigureStore& Store() { return map.Ledger(); }
    [[nodiscard]] AreaRows Rows() const { return RowsOf(map); }
    FigureRecord& Figure(int index) { return Store().Figures[index]; }

    void Press(QPointF at, int button = leftButton)
    {
        protocol.MouseDown(button, float(at.x()), float(at.y()));
    }
    void Move(QPointF to) { protocol.MouseMove(float(to.x()), float(to.y())); }
    void Release(QPointF at, int button = leftButton)
    {
        protocol.MouseUp(button, float(at.x()), float(at.y()));
    }
    void Click(QPointF at, int button = leftButton)
    {
        Press(at, button);
        Release(at, button);
    }
    void Drag(QPointF from, QPointF to)
    {
        Press(from);
        Move(to);
        Release(to);
    }

    /** Draws sides through `points`, the last with a right click, which ends the polygon. */
    void DrawPolygon(const QList<QPointF>& points)
    {
        protocol.SelectTool(DrawingTool::Line);
        DrawSides(points.first(points.size() - 1));
        Move(points.constLast());
        Click(points.constLast(), rightButton);
    }

    /** Draws sides through `points` and starts the next at the last. */
    void DrawSides(const QList<QPointF>& points)
    {
        for (const QPointF point : points) {
            Move(point);
            Click(point);
        }
    }

    /** Lets the dialog accept every figure from now on. */
    void LinkEveryFigure()
    {
        view.onLink = [this] { AcceptLink(); };
    }
    void AcceptLink()
    {
        LinkEntry entry;
        entry.SetText(LinkField::Link, "a.html");
        map.LinkNewArea(entry);
    }
    void CloseLink() { map.DiscardNewArea(); }

    /** Shows a figure as the one that follows the mouse; what is painted of it comes last in view.painted. */
    void Follow(int kind, int x1, int y1, int x2, int y2)
    {
        FigureStore& store = Store();
        store.CurrentKind = static_cast<qint16>(kind);
        store.StartX = static_cast<qint16>(x1);
        store.StartY = static_cast<qint16>(y1);
        store.EndX = static_cast<qint16>(x2);
        store.EndY = static_cast<qint16>(y2);
        display.FollowFigure();
        if (view.rubber) {
            view.painted << *view.rubber;
        }
    }

    /** Fills the store up to `count` figures without drawing them. */
    void FillStore(int count)
    {
        Store().CurrentKind = kindRectangle;
        while (Store().FigureCount < count) {
            Store().AppendFigure();
        }
    }
    void DeleteMap() { map.Clear(); }

    /** Figures, polygon sides and sides of the current polygon. */
    QList<int> Counts()
    {
        return { Store().FigureCount, Store().PolygonLineCount, Store().CurrentPolygonLineCount };
    }
};

using Counts = QList<int>;
