#pragma once

#include "exchange/batch.h"

#include <functional>

namespace exchange {

/// Tells a person something of an entry, by its place in the batch.
using TellOfEntry = std::function<void(const std::string& words, std::size_t entry)>;

/// The way that was made before a fill, in the units of the batch.
struct Stretch {
    std::size_t entry;
    double distance; ///< 0 where it is not known
    bool hasReading;
};

/// Gives fills of one vehicle for which only ways were written down their readings: on from the last known one, or back
/// from the first, or from 0.
void RebuildOdometers(Batch* batch, std::vector<Stretch> stretches, const TellOfEntry& tell);

/// Tells of dates that are still to come and of readings that run backwards; unless `hasMissedFills`, which is that the
/// file says where a fill was not written down, also where that seems to be so.
void TellOddities(const Batch& batch, bool hasMissedFills, const TellOfEntry& tell);

} // namespace exchange
