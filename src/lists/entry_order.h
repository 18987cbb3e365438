#pragma once

#include <cstdint>
#include <functional>
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

/// The indexes of a log's rows in the order of a column and, where two rows are equal in it, the next: dates fall to
/// the description (without regard to case), readings to the amount. The direction of the settings turns all of it
/// round; rows that are equal keep their order. Another column leaves all as it is.
std::vector<int> OrderEntries(int column, const std::vector<const CEntry*>& entries);

/// Where an entry belongs among `count` rows that stand in that order: behind those that equal it. Sorting them all
/// anew would make a description of each.
int PlaceInOrder(int column, const CEntry& entry, int count, const std::function<const CEntry&(int row)>& entryOfRow);
