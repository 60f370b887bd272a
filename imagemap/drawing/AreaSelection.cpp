#include "imagemap/drawing/AreaSelection.h"

#include "imagemap/model/AreaGeometry.h"

#include <algorithm>
#include <utility>

std::optional<qsizetype> AreaSelection::OnlyOne() const
{
    return numbers_.size() == 1 ? std::optional(numbers_.constFirst()) : std::nullopt;
}

void AreaSelection::Select(AreaNumbers numbers)
{
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    const bool hadVertex = std::exchange(vertex_, std::nullopt).has_value();
    // Lists without a number have no memory to compare.
    const bool isSame = std::ranges::equal(std::exchange(numbers_, numbers), numbers);
    if (!isSame || hadVertex) {
        Q_EMIT Changed();
    }
}

void AreaSelection::Toggle(qsizetype number)
{
    AreaNumbers numbers = numbers_;
    if (!numbers.removeOne(number)) {
        numbers << number;
    }
    Select(std::move(numbers));
}

void AreaSelection::SelectVertex(std::optional<int> vertex)
{
    if (vertex_ != vertex) {
        vertex_ = vertex;
        Q_EMIT Changed();
    }
}

void AreaSelection::KeepWithin(const MapAreas& areas)
{
    AreaNumbers numbers = numbers_;
    numbers.removeIf([&areas](qsizetype number) { return number >= areas.size(); });
    if (numbers != numbers_) {
        Select(std::move(numbers));
    } else if (vertex_ && *vertex_ >= CornersOf(areas.at(*OnlyOne())).size()) {
        SelectVertex(std::nullopt);
    }
}
