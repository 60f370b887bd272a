#pragma once

#include "FuzzTarget.h"
#include "imagemap/model/AreaArranging.h"
#include "imagemap/model/AreaConversion.h"
#include "imagemap/model/AreaGeometry.h"
#include "imagemap/model/MapDocument.h"

#include <array>
#include <map>

/**
 * A walk through everything that changes a map, by the bytes of an input: the tools and commands that work on
 * what was drawn last, those that change areas, and undoing. Whatever step is undone or done again must leave
 * the map exactly as it was there before.
 */
class MapWalk
{
public:
    explicit MapWalk(FuzzInput input)
        : input_(input)
    {
        seen_[0] = map_.State();
        QObject::connect(&map_.History(), &MapHistory::Changed, &map_, [this] { Remember(); });
        QObject::connect(&map_.Drawing(), &MapDrawing::SidesGivenUp, &map_, [this] { Remember(); });
    }
    Q_DISABLE_COPY_MOVE(MapWalk)

    void Run()
    {
        while (!input_.IsEmpty()) {
            Step();
            CheckLedger();
        }
        map_.Drawing().GiveUp();
        while (map_.History().CanRedo()) {
            Redo();
        }
        const qsizetype end = map_.History().Position();
        while (map_.History().CanUndo()) {
            Undo();
        }
        Demand(map_.History().Position() == 0, "every step can be undone");
        while (map_.History().CanRedo()) {
            Redo();
        }
        Demand(map_.History().Position() == end, "every step can be done again");
    }

private:
    using Act = void (MapWalk::*)();

    void Step()
    {
        static constexpr std::array<Act, 21> acts = {
            &MapWalk::DrawFigure, &MapWalk::DrawPolygon, &MapWalk::DrawPolygon, &MapWalk::BeginPolygon,
            &MapWalk::DeleteLast, &MapWalk::Clear,       &MapWalk::Relink,      &MapWalk::ChangeMode,
            &MapWalk::Reopen,     &MapWalk::OpenPicture, &MapWalk::Move,        &MapWalk::Nudge,
            &MapWalk::Reshape,    &MapWalk::DeleteArea,  &MapWalk::Duplicate,   &MapWalk::Reorder,
            &MapWalk::Convert,    &MapWalk::EndJoining,  &MapWalk::TypeLink,    &MapWalk::Paste,
            &MapWalk::Align,
        };
        const int which = input_.Below(acts.size() + 4);
        if (which >= int(acts.size())) {
            which % 2 == 0 ? Undo() : Redo();
            return;
        }
        (this->*acts[static_cast<std::size_t>(which)])();
    }

    /** Keeps what the map is now, and will be again whenever it comes back here. */
    void Remember()
    {
        if (isGoingBack_) {
            return;
        }
        const qsizetype now = map_.History().Position();
        seen_[now] = map_.State();
        if (!map_.History().CanRedo()) {
            seen_.erase(seen_.upper_bound(now), seen_.end());
        }
    }

    /** The same state with its ledger written out. */
    static MapState Whole(MapState state)
    {
        state.Figures = LedgerOf(state);
        state.IsLedgerOfAreas = false;
        return state;
    }

    void CheckState() const
    {
        const MapState& seen = seen_.at(map_.History().Position());
        Demand(Whole(map_.State()) == Whole(seen), "a step leaves the map as it was there before");
    }

    void Undo()
    {
        if (map_.History().CanUndo()) {
            map_.Drawing().GiveUp();
            isGoingBack_ = true;
            map_.History().Undo();
            isGoingBack_ = false;
            CheckState();
        }
    }

    void Redo()
    {
        if (map_.History().CanRedo()) {
            map_.Drawing().GiveUp();
            isGoingBack_ = true;
            map_.History().Redo();
            isGoingBack_ = false;
            CheckState();
        }
    }

    void CheckLedger() const
    {
        const FigureStore& ledger = map_.Figures();
        Demand(ledger.FigureCount >= 0 && ledger.FigureCount <= ledger.Figures.size(), "figures have slots");
        Demand(
            ledger.PolygonLineCount >= 0 && ledger.PolygonLineCount <= ledger.FigureCount,
            "sides are figures");
    }

    qint16 Number() { return static_cast<qint16>(input_.Byte() * 2); }

    void Place()
    {
        FigureStore& ledger = map_.Ledger();
        ledger.StartX = Number();
        ledger.StartY = Number();
        ledger.EndX = Number();
        ledger.EndY = Number();
        ledger.CurrentRadius = Number();
    }

    LinkEntry Entry()
    {
        LinkEntry entry;
        entry.Fields.fill(QString::number(input_.Below(3)));
        return entry;
    }

    void Answer()
    {
        if (input_.Below(3) > 0) {
            map_.LinkNewArea(Entry());
        } else {
            map_.DiscardNewArea();
        }
    }

    void DrawFigure()
    {
        map_.Drawing().GiveUpSides();
        FigureStore& ledger = map_.Ledger();
        if (ledger.HasRoom()) {
            ledger.DrawState = drawIdle;
            ledger.CurrentKind = input_.Below(2) == 0 ? kindRectangle : kindCircle;
            Place();
            ledger.AppendFigure();
            Answer();
        }
    }

    void AppendSides(int count)
    {
        FigureStore& ledger = map_.Ledger();
        ledger.CurrentKind = kindLine;
        for (int i = 0; i < count && ledger.HasRoom(); ++i) {
            Place();
            ledger.AppendSide();
        }
    }

    void DrawPolygon()
    {
        AppendSides(2 + input_.Below(6));
        if (map_.Figures().CurrentPolygonLineCount > 1) {
            map_.Ledger().RetractLastSide();
            Answer();
        } else {
            map_.DeleteLastFigure();
        }
    }

    void BeginPolygon() { AppendSides(1 + input_.Below(3)); }
    void DeleteLast() { map_.DeleteLastFigure(); }
    void EndJoining() { map_.History().EndJoining(); }

    void Clear()
    {
        map_.Drawing().GiveUp();
        map_.Clear();
    }

    void Relink() { map_.RelinkArea(input_.Below(5), Entry()); }

    void ChangeMode()
    {
        const MapDocument::Step step(map_, QStringLiteral("mode"));
        map_.Drawing().GiveUp();
        if (map_.HasContent()) {
            map_.Clear();
            map_.Script().ForgetModeDefault();
        }
        map_.Script().SetMode(static_cast<JSMode>(input_.Below(int(jsModeTexts.size()))));
    }

    void Reopen()
    {
        map_.Drawing().GiveUp();
        map_.BeginEditing();
    }

    void OpenPicture() { map_.SetPicture(QString::number(input_.Below(3))); }

    /** One of the areas; nothing where there are none. */
    std::optional<qsizetype> AnArea()
    {
        const auto count = static_cast<int>(map_.Areas().size());
        return count == 0 ? std::nullopt : std::optional<qsizetype>(input_.Byte() % count);
    }

    template<class Change> void ChangeArea(Change change, const QString& key = {})
    {
        if (const std::optional<qsizetype> number = AnArea()) {
            MapAreas areas = map_.Areas();
            areas[*number] = change(areas[*number]);
            map_.ChangeAreas(areas, QStringLiteral("change"), key);
        }
    }

    void Move()
    {
        const QPoint by(Number() - 200, Number() - 200);
        ChangeArea([by](const MapArea& area) { return Moved(area, by * 200); });
    }

    void Nudge()
    {
        const QPoint by(input_.Below(3) - 1, 0);
        ChangeArea([by](const MapArea& area) { return Resized(area, by); }, QStringLiteral("nudge"));
    }

    void Reshape()
    {
        const int which = input_.Byte();
        const QPoint to(Number() - 100, Number() - 100);
        ChangeArea([which, to](const MapArea& area) {
            const QList<AreaHandle> handles = HandlesOf(area);
            return handles.isEmpty() ? area : Reshaped(area, handles[which % handles.size()], to);
        });
    }

    void DeleteArea()
    {
        if (const std::optional<qsizetype> number = AnArea()) {
            map_.ChangeAreas(Without(map_.Areas(), { *number }), QStringLiteral("delete"));
        }
    }

    void Duplicate()
    {
        if (const std::optional<qsizetype> number = AnArea()) {
            map_.ChangeAreas(map_.Areas() + Chosen(map_.Areas(), { *number }), QStringLiteral("duplicate"));
        }
    }

    void Reorder()
    {
        if (const std::optional<qsizetype> number = AnArea()) {
            const auto change = static_cast<OrderChange>(input_.Below(4));
            map_.ChangeAreas(Reordered(map_.Areas(), { *number }, change).areas, QStringLiteral("order"));
        }
    }

    void Convert()
    {
        const auto shape = static_cast<AreaShape>(input_.Below(int(areaShapeNames.size())));
        ChangeArea([shape](const MapArea& area) { return Converted(area, shape); });
    }

    void TypeLink()
    {
        const QString letter = QString::number(input_.Below(10));
        const auto type = [&letter](MapArea area) {
            area.Link += letter;
            return area;
        };
        ChangeArea(type, QStringLiteral("link"));
    }

    void Paste()
    {
        if (const std::optional<qsizetype> number = AnArea()) {
            map_.ChangeAreas(Chosen(map_.Areas(), { *number }) + map_.Areas(), QStringLiteral("paste"));
        }
    }

    void Align()
    {
        const auto alignment = static_cast<Alignment>(input_.Below(alignmentCount));
        AreaNumbers all;
        for (qsizetype number = 0; number < map_.Areas().size(); ++number) {
            all << number;
        }
        map_.ChangeAreas(Aligned(map_.Areas(), all, alignment), QStringLiteral("align"));
    }

    FuzzInput input_;
    MapDocument map_;
    std::map<qsizetype, MapState> seen_; ///< by how many steps can be undone there
    bool isGoingBack_ = false;
};
