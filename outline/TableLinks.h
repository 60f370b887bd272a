#pragma once

#include "imagemap/model/MapArea.h"
#include "outline/TableText.h"

#include <array>

// What the rows of a table give to areas.

/** What a column of a table holds. */
enum class TableUse { Link, Target, Message, Text };
inline constexpr std::size_t tableUseCount = 4;
inline constexpr std::array<TableUse, tableUseCount> tableUses = { TableUse::Link, TableUse::Target,
                                                                   TableUse::Message, TableUse::Text };

/** Which column of a table is used for what. */
struct TableColumns
{
    /** The number of a column from 0, for each use; -1 for none. */
    std::array<int, tableUseCount> Numbers = { -1, -1, -1, -1 };
    bool HasHeader = false; ///< the first row names the columns

    [[nodiscard]] int Of(TableUse use) const { return Numbers[std::size_t(use)]; }

    bool operator==(const TableColumns&) const = default;
};

/** Guesses the columns by the names in the first row, or else by which of them holds addresses. */
[[nodiscard]] TableColumns GuessColumns(const TableRows& rows);

/** How areas find their rows. */
enum class TableMatching {
    InOrder, ///< the first row is for the first area
    ByText,  ///< the row whose text is that of the area, whatever its blanks and capitals
};

/** Areas with what a table gives them. */
struct TableOutcome
{
    MapAreas Areas; ///< all of them, in their order
    qsizetype AreasChanged = 0;
    qsizetype RowsLeft = 0; ///< rows that are for none of the areas
};

/**
 * Gives each of `areas` what its row holds, as one line each; an empty field leaves what the area has. Of
 * rows with the same text the first counts.
 */
[[nodiscard]] TableOutcome
WithTable(MapAreas areas, const TableRows& rows, const TableColumns& columns, TableMatching matching);

/** What the area has of that. */
[[nodiscard]] const QString& FieldOf(const MapArea& area, TableUse use);
