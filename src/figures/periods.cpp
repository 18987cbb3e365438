#include "figures/periods.h"

#include "platform/time.h"
#include "records/record_dates.h"
#include "units/number_text.h"

#include <cstdio>
#include <map>

namespace figures {
namespace {

std::string NameOf(const SYSTEMTIME& time, Length length) {
    constexpr int MonthsOfQuarter = 3;
    char name[32];
    if (length == Length::Month)
        std::snprintf(name, sizeof name, "%04d-%02d", int{time.wYear}, int{time.wMonth});
    else if (length == Length::Quarter)
        std::snprintf(name, sizeof name, "%04d-Q%d", int{time.wYear}, (time.wMonth - 1) / MonthsOfQuarter + 1);
    else
        std::snprintf(name, sizeof name, "%04d", int{time.wYear});
    return name;
}

class Builder {
public:
    Builder(Length length, double firstDate, double lastDate)
        : length_(length)
        , firstDate_(firstDate)
        , lastDate_(lastDate) { }

    /// The one that a date lies in; null for a date that is not wanted, or is none.
    Period* At(double date) {
        const double linear = LinearFromOleDate(date);
        SYSTEMTIME time;
        if (linear < firstDate_ || linear > lastDate_ || !VariantTimeToSystemTime(date, &time))
            return nullptr;
        const std::string name = NameOf(time, length_);
        Period& period = periods_[name];
        period.name = name;
        return &period;
    }

    std::vector<Period> Take() const {
        std::vector<Period> taken;
        for (const auto& each : periods_)
            taken.push_back(each.second);
        return taken;
    }

private:
    Length length_;
    double firstDate_;
    double lastDate_;
    std::map<std::string, Period> periods_; ///< the names sort as the years do
};

void AddMoney(const CEntry& entry, Period* period) {
    if (entry.GetType() == CEntry::EntryTypeFuel)
        period->volume += double{entry.GetCustom1()};
    period->cost[CEntry::EntryTypeAll] += double{entry.GetAmount()};
    if (entry.GetType() >= CEntry::EntryTypeFuel && entry.GetType() <= CEntry::EntryTypeExpense)
        period->cost[entry.GetType()] += double{entry.GetAmount()};
}

LONG FirstReading(const CEntry& entry) {
    return entry.GetType() == CEntry::EntryTypeTrip ? WholeNumber(entry.GetCustom1()) : entry.GetOdometer();
}

} // namespace

std::vector<Period> PeriodsOf(
    const CObjectListT<CEntry>& entries, const FillMarks& marks, Length length, double firstDate, double lastDate) {
    Builder periods(length, firstDate, lastDate);
    LONGLONG reading = entries.GetCount() > 0 ? FirstReading(*entries.Get(0)) : 0;
    for (int i = 0; i < entries.GetCount(); ++i) {
        const CEntry& entry = *entries.Get(i);
        Period* period = periods.At(entry.GetDate());
        if (period) {
            AddMoney(entry, period);
            period->distance += entry.GetOdometer() - reading;
        }
        reading = entry.GetOdometer();
    }
    for (const Chain& chain : ChainsOf(entries, marks))
        if (Period* period = periods.At(chain.date)) {
            period->chainDistance += chain.distance;
            period->chainVolume += chain.volume;
        }
    return periods.Take();
}

} // namespace figures
