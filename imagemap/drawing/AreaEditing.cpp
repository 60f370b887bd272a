#include "imagemap/drawing/AreaEditing.h"

#include "imagemap/model/AreaGeometry.h"

#include <algorithm>
#include <numeric>

namespace {

/** How far a copy lies from what it was made of, in pixels. */
constexpr QPoint copyStep(10, 10);

} // namespace

MapAreas AreaEditing::SelectedAreas() const
{
    // While the areas change, the selection may lag behind.
    AreaNumbers numbers = selection_.Numbers();
    numbers.removeIf([this](qsizetype number) { return number >= map_.Areas().size(); });
    return Chosen(map_.Areas(), numbers);
}

void AreaEditing::Replace(const MapAreas& areas, QStringView what, const QString& joinKey)
{
    MapAreas all = map_.Areas();
    const AreaNumbers& numbers = selection_.Numbers();
    for (qsizetype i = 0; i < std::min(numbers.size(), areas.size()); ++i) {
        all[numbers[i]] = areas[i];
    }
    map_.ChangeAreas(all, StepName(what, numbers.size()), joinKey);
}

void AreaEditing::Nudge(QPoint by, bool isFree)
{
    MapAreas areas = SelectedAreas();
    if (const std::optional<int> vertex = selection_.Vertex()) {
        const QPoint corner = CornersOf(areas.constFirst()).at(*vertex);
        const QPoint step = isFree ? by : StepWithin(QRect(corner, QSize(1, 1)), by, picture_);
        areas[0] = Reshaped(areas[0], { HandleKind::Vertex, *vertex, corner }, corner + step);
    } else {
        const QPoint step = isFree ? by : StepWithin(BoundsOf(areas), by, picture_);
        std::transform(areas.begin(), areas.end(), areas.begin(), [step](const MapArea& area) {
            return Moved(area, step);
        });
    }
    Replace(areas, u"Move", QStringLiteral("nudge"));
}

void AreaEditing::Resize(QPoint by)
{
    MapAreas areas = SelectedAreas();
    std::transform(
        areas.begin(), areas.end(), areas.begin(), [by](const MapArea& area) { return Resized(area, by); });
    Replace(areas, u"Resizing", QStringLiteral("resize"));
}

void AreaEditing::ChangeVertex(const MapArea& area, std::optional<int> vertex, const QString& name)
{
    MapAreas all = map_.Areas();
    all[*selection_.OnlyOne()] = area;
    map_.ChangeAreas(all, name);
    selection_.SelectVertex(vertex);
}

void AreaEditing::Delete()
{
    const std::optional<int> vertex = selection_.Vertex();
    if (vertex && selection_.OnlyOne()) {
        const MapArea& polygon = map_.Areas().at(*selection_.OnlyOne());
        const MapArea smaller = WithoutCorner(polygon, *vertex);
        if (smaller != polygon) {
            ChangeVertex(smaller, std::nullopt, QStringLiteral("Delete of a Corner"));
        }
    } else {
        DeleteAreas(u"Delete");
    }
}

void AreaEditing::DeleteAreas(QStringView what)
{
    const AreaNumbers numbers = selection_.Numbers();
    if (!numbers.isEmpty()) {
        selection_.Clear();
        map_.ChangeAreas(Without(map_.Areas(), numbers), StepName(what, numbers.size()));
    }
}

void AreaEditing::Cut()
{
    DeleteAreas(u"Cut");
}

void AreaEditing::InsertAt(qsizetype place, const MapAreas& areas, QStringView what)
{
    if (areas.isEmpty()) {
        return;
    }
    const MapAreas all = map_.Areas();
    map_.ChangeAreas(all.first(place) + areas + all.sliced(place), StepName(what, areas.size()));
    AreaNumbers numbers(areas.size());
    std::iota(numbers.begin(), numbers.end(), place);
    selection_.Select(numbers);
}

void AreaEditing::Duplicate()
{
    MapAreas copies = SelectedAreas();
    const QPoint step = StepWithin(BoundsOf(copies), copyStep, picture_);
    std::transform(copies.begin(), copies.end(), copies.begin(), [step](const MapArea& area) {
        return Moved(area, step);
    });
    // In front of what they are copies of, where they can be seen and clicked.
    InsertAt(copies.isEmpty() ? 0 : selection_.Numbers().constFirst(), copies, u"Duplicate");
}

void AreaEditing::Paste(const MapAreas& areas)
{
    InsertAt(0, areas, u"Paste");
}

void AreaEditing::SelectAll()
{
    AreaNumbers numbers(map_.Areas().size());
    std::iota(numbers.begin(), numbers.end(), qsizetype(0));
    selection_.Select(numbers);
}

bool AreaEditing::SelectNext(int step)
{
    const AreaNumbers& numbers = selection_.Numbers();
    const qsizetype count = map_.Areas().size();
    const qsizetype from = numbers.isEmpty() ? (step > 0 ? -1 : count)
                           : step > 0        ? numbers.constLast()
                                             : numbers.constFirst();
    const qsizetype next = from + step;
    if (next < 0 || next >= count) {
        return false;
    }
    selection_.Select({ next });
    return true;
}

bool AreaEditing::SelectNextVertex(int step)
{
    const std::optional<qsizetype> number = selection_.OnlyOne();
    if (!number || map_.Areas().at(*number).Shape != AreaShape::Polygon ||
        !IsWhole(map_.Areas().at(*number))) {
        return false;
    }
    const auto count = static_cast<int>(CornersOf(map_.Areas().at(*number)).size());
    const int from = selection_.Vertex().value_or(step > 0 ? -1 : 0);
    selection_.SelectVertex((from + step + count) % count);
    return true;
}

bool AreaEditing::InsertVertex()
{
    const std::optional<int> vertex = selection_.Vertex();
    if (!vertex) {
        return false;
    }
    const MapArea polygon = map_.Areas().at(*selection_.OnlyOne());
    const QList<QPoint> corners = CornersOf(polygon);
    const QPoint middle = (corners[*vertex] + corners[(*vertex + 1) % corners.size()]) / 2;
    ChangeVertex(
        Reshaped(polygon, { HandleKind::Middle, *vertex, middle }, middle), *vertex + 1,
        QStringLiteral("Addition of a Corner"));
    return true;
}

void AreaEditing::Reorder(OrderChange change)
{
    const ArrangedAreas arranged = Reordered(map_.Areas(), selection_.Numbers(), change);
    map_.ChangeAreas(arranged.areas, StepName(u"Reordering", selection_.Numbers().size()));
    selection_.Select(arranged.moved);
}

void AreaEditing::Align(Alignment alignment)
{
    map_.ChangeAreas(
        Aligned(map_.Areas(), selection_.Numbers(), alignment),
        StepName(u"Alignment", selection_.Numbers().size()));
}

void AreaEditing::Undo()
{
    const MapAreas before = map_.Areas();
    map_.History().Undo();
    SelectChanges(before);
}

void AreaEditing::Redo()
{
    const MapAreas before = map_.Areas();
    map_.History().Redo();
    SelectChanges(before);
}

void AreaEditing::SelectChanges(const MapAreas& before)
{
    AreaNumbers changed;
    const MapAreas& now = map_.Areas();
    for (qsizetype i = 0; i < now.size(); ++i) {
        if (!before.contains(now[i])) {
            changed << i;
        }
    }
    selection_.Select(changed);
}
