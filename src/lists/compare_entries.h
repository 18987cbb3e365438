#pragma once

#include "platform/types.h"

class CEntry;

/// The columns of the log's order, as the settings keep them.
enum SortColumn : std::int32_t {
    SortColumnNone = -1,
    SortColumnDate = 0,
    SortColumnDescription = 1,
    SortColumnOdometer = 2,
    SortColumnAmount = 3,
};

/// Orders two entries (CEntry*) by a column and, where they are equal in it, by the next: dates by the description,
/// readings by the amount. The direction of the settings turns all of it round. Below 0, 0 or above 0.
int CompareEntries(LPARAM first, LPARAM second, LPARAM column);

/// While it lives, CompareEntries makes the description of an entry only once. The entries must not change meanwhile.
class CSummaryMemory {
public:
    CSummaryMemory();
    CSummaryMemory(const CSummaryMemory&) = delete;
    CSummaryMemory& operator=(const CSummaryMemory&) = delete;
    ~CSummaryMemory();
};
