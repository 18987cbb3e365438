#pragma once

#include "platform/types.h"
#include "records/entry.h"
#include "records/object_list.h"

#include <set>
#include <vector>

/// Fuel economy from full tank to full tank.
namespace figures {

/// What is known of entries beside what their records hold, by their RefIDs.
struct FillMarks {
    std::set<ULONG> partial; ///< the tank was not filled
    std::set<ULONG> missed; ///< a fill before this one was not written down
    std::set<ULONG> unknownOdometer; ///< the reading was not written down; the record has a guess
};

/// The way from one full tank to the next, and all that was filled in for it.
struct Chain {
    double date; ///< of the fill that ends it
    LONGLONG distance; ///< greater than 0
    double volume; ///< greater than 0
    bool followsGap; ///< it does not begin where the one before it ended
};

/// Of a vehicle's entries, which are the whole log, oldest first. A fill that was missed, and a reading that is not
/// higher than the one before, leave a gap; a fill of nothing is passed over.
std::vector<Chain> ChainsOf(const CObjectListT<CEntry>& entries, const FillMarks& marks);

} // namespace figures
