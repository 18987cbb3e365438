#include "figures/chains.h"

namespace figures {

std::vector<Chain> ChainsOf(const CObjectListT<CEntry>& entries, const FillMarks& marks) {
    std::vector<Chain> chains;
    bool hasStart = false;
    bool followsGap = true;
    LONGLONG start = 0; // the reading when the tank was last full
    double volume = 0;
    for (int i = 0; i < entries.GetCount(); ++i) {
        const CEntry& fill = *entries.Get(i);
        const ULONG key = fill.GetRefID();
        if (fill.GetType() != CEntry::EntryTypeFuel || !(fill.GetCustom1() > 0))
            continue;
        if (marks.missed.count(key) != 0)
            hasStart = false;
        followsGap = followsGap || !hasStart;
        volume += double{fill.GetCustom1()};
        // Without a reading the tank may be full as it likes: the chain ends at the next fill that has one.
        if (marks.partial.count(key) != 0 || marks.unknownOdometer.count(key) != 0)
            continue;
        const bool isWay = hasStart && fill.GetOdometer() > start;
        if (isWay)
            chains.push_back({fill.GetDate(), fill.GetOdometer() - start, volume, followsGap});
        followsGap = !isWay;
        hasStart = true;
        start = fill.GetOdometer();
        volume = 0;
    }
    return chains;
}

} // namespace figures
