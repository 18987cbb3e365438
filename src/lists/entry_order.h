#pragma once

#include <cstdint>
#include <span>
#include <vector>

class CEntry;

/// The columns of the log's order, as the settings keep them.
enum SortColumn : std::int32_t {
    SortColumnNone = -1,
    SortColumnDate = 0,
    SortColumnDescription = 1,
    SortColumnOdometer = 2,
    SortColumnAmount = 3,
};

/// The order of a log's rows by a column and, where two rows are equal in it, the next: dates fall to the description
/// (without regard to case), readings to the amount. The direction of the settings turns all of it round; rows that are
/// equal keep their order. `entries` stand best as they lie in memory, null before all others; `rows` are the indexes
/// of those that have a row, from the top row down, and so is the result.
std::vector<std::uint32_t> OrderEntries(
    int column, std::span<const CEntry* const> entries, std::span<const std::uint32_t> rows);
