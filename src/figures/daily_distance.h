#pragma once

#include "figures/chains.h"

namespace figures {

/// How far a vehicle goes in a day, by the readings of the last year before its last entry: an estimate.
class DailyDistance {
public:
    /// Of a vehicle's entries, which are the whole log, oldest first.
    DailyDistance(const CObjectListT<CEntry>& entries, const FillMarks& marks);

    /// The day (an OLE date) on which it would show this reading, if it goes on so. False, `day` untouched, where too
    /// little is known, or no calendar has the day.
    bool DayOf(LONG odometer, double* day) const;

private:
    double lastDay_ = 0;
    LONGLONG lastReading_ = 0;
    double distance_ = 0; ///< a day; 0 where it is not known
};

} // namespace figures
