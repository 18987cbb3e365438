#pragma once

#include "figures/chains.h"

#include <string>
#include <vector>

/// What driving cost, month by month.
namespace figures {

enum class Length { Month, Quarter, Year };

/// What lies between two moments in the log. Money and volumes are sums, in the units of the log.
struct Period {
    std::string name; ///< such as "2026-03", "2026-Q1" or "2026"
    /// From the last reading before it to its own last one; below 0 where the readings run backwards.
    LONGLONG distance = 0;
    double volume = 0;
    double cost[5] = {}; ///< by CEntry::Type; the first one is of all kinds
    /// Of the chains that end in it.
    LONGLONG chainDistance = 0;
    double chainVolume = 0;
};

/// The periods of a vehicle's log in which there is an entry between the two linear dates (both included), oldest
/// first. `entries` is the whole log, oldest first: what a period begins with lies before it.
std::vector<Period> PeriodsOf(
    const CObjectListT<CEntry>& entries, const FillMarks& marks, Length length, double firstDate, double lastDate);

} // namespace figures
