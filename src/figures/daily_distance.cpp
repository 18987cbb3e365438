#include "figures/daily_distance.h"

#include "platform/time.h"
#include "records/record_dates.h"

#include <cmath>

namespace figures {

DailyDistance::DailyDistance(const CObjectListT<CEntry>& entries, const FillMarks& marks) {
    constexpr double Year = 365;
    double firstDay = 0;
    LONGLONG firstReading = 0;
    // From the newest back, as long as it is not a year.
    for (int i = entries.GetCount() - 1; i >= 0; --i) {
        const CEntry& entry = *entries.Get(i);
        const double day = std::floor(LinearFromOleDate(entry.GetDate()));
        if (marks.unknownOdometer.count(entry.GetRefID()) != 0)
            continue;
        if (lastDay_ == 0) {
            lastDay_ = day;
            lastReading_ = entry.GetOdometer();
        }
        if (lastDay_ - day > Year)
            break;
        firstDay = day;
        firstReading = entry.GetOdometer();
    }
    if (lastDay_ > firstDay && lastReading_ > firstReading)
        distance_ = static_cast<double>(lastReading_ - firstReading) / (lastDay_ - firstDay);
}

bool DailyDistance::DayOf(LONG odometer, double* day) const {
    if (distance_ == 0)
        return false;
    const double found
        = OleFromLinearDate(std::floor(lastDay_ + static_cast<double>(odometer - lastReading_) / distance_));
    SYSTEMTIME time;
    if (!VariantTimeToSystemTime(found, &time))
        return false;
    *day = found;
    return true;
}

} // namespace figures
