#pragma once

#include "imagemap/model/MapDocument.h"

#include <QPoint>
#include <memory>
#include <optional>

/** An entry with every field filled. */
inline LinkEntry FullEntry()
{
    LinkEntry entry;
    entry.SetText(LinkField::Link, "a.html");
    entry.SetText(LinkField::StatusBarMessage, "status bar");
    entry.SetText(LinkField::DefaultImage, "default.gif");
    entry.SetText(LinkField::SwitchImage, "switch.gif");
    entry.SetText(LinkField::DefaultTextAreaMessage, "default text");
    entry.SetText(LinkField::TextAreaMessage, "text area");
    entry.SetText(LinkField::ToolTipMessage, "tool tip");
    entry.Target = "_top";
    return entry;
}

inline void Place(FigureStore& store, QPoint start, QPoint end)
{
    store.StartX = static_cast<qint16>(start.x());
    store.StartY = static_cast<qint16>(start.y());
    store.EndX = static_cast<qint16>(end.x());
    store.EndY = static_cast<qint16>(end.y());
}

inline void DrawFigure(FigureStore& store, qint16 kind, QPoint start, QPoint end)
{
    store.CurrentKind = kind;
    Place(store, start, end);
    store.AppendFigure();
}

/** Draws the sides between `points` as the mouse does, the last of them taken back at the right click. */
inline void DrawPolygon(FigureStore& store, const QList<QPoint>& points)
{
    store.CurrentKind = kindLine;
    for (qsizetype i = 1; i < points.size(); ++i) {
        Place(store, points[i - 1], points[i]);
        store.AppendSide();
    }
    store.RetractLastSide();
}

inline const QList<QPoint> triangle = { { 1, 2 }, { 30, 4 }, { 5, 60 }, { 1, 2 } };

/** A fresh map for each test. */
class MapTest : public QObject
{
protected:
    void Begin() { map_ = std::make_unique<MapDocument>(); }

    [[nodiscard]] FigureStore& Store() const { return map_->Ledger(); }

    /** Links what was drawn last; returns the area that came of it, if any. */
    std::optional<MapArea> Link() const
    {
        const qsizetype before = map_->Areas().size();
        map_->LinkNewArea(FullEntry());
        return map_->Areas().size() > before ? std::optional(map_->Areas().constLast()) : std::nullopt;
    }

    std::unique_ptr<MapDocument> map_;
};
