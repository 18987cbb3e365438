#include "stats/quick_stats.h"

#include "records/data_layer.h"
#include "records/entry_filter.h"
#include "units/date_ranges.h"
#include "units/number_text.h"
#include "units/units.h"

namespace {

constexpr LONG RateDistance = 100;

/// Wraps like the handset's arithmetic, for readings at both ends of their range.
LONG WrappedDifference(LONG end, LONG start) {
    return static_cast<LONG>(static_cast<ULONG>(end) - static_cast<ULONG>(start));
}

float VolumeOf(const CEntry& fill) {
    return fill.GetCustom1();
}

LONG StartReading(const CEntry& entry) {
    return entry.GetType() == CEntry::EntryTypeTrip ? WholeNumber(entry.GetCustom1()) : entry.GetOdometer();
}

/// Newest first, as the entries come oldest first.
void GatherFills(const CObjectListT<CEntry>& entries, CObjectListT<CEntry>* fills) {
    for (int i = entries.GetCount() - 1; i >= 0; --i)
        if (entries.Get(i)->GetType() == CEntry::EntryTypeFuel)
            fills->Add(entries.Get(i));
}

} // namespace

CQuickStats::CQuickStats() {
    Reset();
}

void CQuickStats::Reset() {
    rangeText_.clear();
    averageEconomy_ = recentEconomy_ = 0;
    fuelConsumed_ = consumptionRate_ = fuelPurchased_ = 0;
    costOfOwnership_ = totalExpense_ = fuelExpense_ = 0;
    distance_ = 0;
}

int CQuickStats::Calculate(CEntryFilter* filter) {
    Reset();
    if (!filter)
        return 0;
    rangeText_ = FormatDateRange(filter);
    CObjectListT<CEntry> entries;
    if (!theDataLayer.Load(&entries, filter))
        return 0;
    if (entries.GetCount() == 0)
        return 1;
    CObjectListT<CEntry> fills;
    fills.AllowAutoCleanup(0);
    GatherFills(entries, &fills);
    CalculateFuel(fills);
    CalculateExpense(entries);
    return 1;
}

void CQuickStats::CalculateRecentEconomy(const CObjectListT<CEntry>& fills) {
    const CEntry& newest = *fills.Get(0);
    if (!(VolumeOf(newest) > 0))
        return;
    LONG lastDistance = 0;
    if (fills.GetCount() >= 2) {
        const CEntry& before = *fills.Get(1);
        lastDistance = WrappedDifference(newest.GetOdometer(), before.GetOdometer());
        const wchar_t* vendor = before.GetVendor();
        recentVendor_ = vendor ? vendor : L"";
    }
    recentEconomy_ = FuelEconomy(lastDistance, VolumeOf(newest));
}

void CQuickStats::CalculateFuel(const CObjectListT<CEntry>& fills) {
    LONG fillDistance = 0;
    if (fills.GetCount() > 0) {
        CalculateRecentEconomy(fills);
        for (int i = 0; i < fills.GetCount(); ++i) {
            const CEntry& fill = *fills.Get(i);
            fuelConsumed_ = fuelConsumed_ + VolumeOf(fill);
            fuelPurchased_ = fuelPurchased_ + VolumeOf(fill);
            fuelExpense_ = fill.GetAmount() + fuelExpense_;
        }
        // Taken off the finished sum: leaving the oldest fill out of the loop would round differently.
        const CEntry& oldest = *fills.Get(fills.GetCount() - 1);
        fuelConsumed_ = fuelConsumed_ - VolumeOf(oldest);
        fillDistance = WrappedDifference(fills.Get(0)->GetOdometer(), oldest.GetOdometer());
    }
    averageEconomy_ = FuelEconomy(fillDistance, fuelConsumed_);
    if (fillDistance >= RateDistance)
        consumptionRate_ = fuelConsumed_ / (static_cast<float>(fillDistance) * 0.01F);
}

void CQuickStats::CalculateExpense(const CObjectListT<CEntry>& entries) {
    const int count = entries.GetCount();
    for (int i = count - 1; i >= 0; --i)
        totalExpense_ = entries.Get(i)->GetAmount() + totalExpense_;
    distance_ = WrappedDifference(entries.Get(count - 1)->GetOdometer(), StartReading(*entries.Get(0)));
    const LONG wholeHundreds = distance_ / RateDistance; // unlike the consumption, which keeps the fraction
    if (distance_ >= RateDistance)
        costOfOwnership_ = totalExpense_ / static_cast<float>(wholeHundreds);
}

float CQuickStats::AverageFuelCost() const {
    return fuelPurchased_ == 0 ? 0 : fuelExpense_ / fuelPurchased_;
}
