#pragma once

#include "imagemap/model/AreaArranging.h"

#include <QObject>
#include <optional>

/** Which areas of a map are selected, and which corner of the only one. Whoever shows it learns of changes.
 */
class AreaSelection final : public QObject
{
    Q_OBJECT

public:
    AreaSelection() = default;

    /** The selected areas in their order in the map. */
    [[nodiscard]] const AreaNumbers& Numbers() const { return numbers_; }
    [[nodiscard]] bool Contains(qsizetype number) const { return numbers_.contains(number); }
    [[nodiscard]] std::optional<qsizetype> OnlyOne() const;

    /** The selected corner of the only selected polygon. */
    [[nodiscard]] std::optional<int> Vertex() const { return vertex_; }

    /** Selects these areas and no others, in whatever order they are given; no corner. */
    void Select(AreaNumbers numbers);
    void Toggle(qsizetype number);
    void Clear() { Select({}); }

    /** Selects a corner, or none; there must be only one area. */
    void SelectVertex(std::optional<int> vertex);

    /** Gives up what is not there in `areas`. */
    void KeepWithin(const MapAreas& areas);

Q_SIGNALS:
    void Changed();

private:
    AreaNumbers numbers_;
    std::optional<int> vertex_;
};
