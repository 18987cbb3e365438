#include "exchange/odd_readings.h"

#include "platform/time.h"
#include "records/record_dates.h"

#include <algorithm>
#include <map>

namespace exchange {
namespace {

double DayAfterNow() {
    SYSTEMTIME clock;
    double now = 0;
    GetLocalTime(&clock);
    SystemTimeToVariantTime(&clock, &now);
    return now + 1;
}

/// The entries that have a reading, oldest first.
std::vector<std::size_t> InOrder(const Batch& batch) {
    std::vector<std::size_t> order;
    for (std::size_t entry = 0; entry < batch.entries.size(); ++entry)
        if (!batch.entries[entry].hasUnknownOdometer)
            order.push_back(entry);
    std::sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        const CEntry& first = *batch.entries[left].record;
        const CEntry& second = *batch.entries[right].record;
        const double firstDate = LinearFromOleDate(first.GetDate());
        const double secondDate = LinearFromOleDate(second.GetDate());
        return firstDate < secondDate || (firstDate == secondDate && first.GetOdometer() < second.GetOdometer());
    });
    return order;
}

/// The way from full tank to full tank on one unit of volume.
struct Way {
    double perVolume;
    std::size_t entry;
};

std::vector<std::vector<Way>> WaysOf(const Batch& batch, const std::vector<std::size_t>& order) {
    struct Tank {
        LONG start = 0;
        double volume = 0;
    };
    std::vector<Tank> tanks(batch.vehicles.size());
    std::vector<std::vector<Way>> ways(batch.vehicles.size());
    for (const std::size_t place : order) {
        const EntryItem& item = batch.entries[place];
        const CEntry& entry = *item.record;
        if (entry.GetType() != CEntry::EntryTypeFuel)
            continue;
        Tank& tank = tanks[item.vehicle];
        tank.volume += double{entry.GetCustom1()};
        if (item.isPartial)
            continue;
        if (tank.start > 0 && tank.volume > 0)
            ways[item.vehicle].push_back(
                {static_cast<double>(LONGLONG{entry.GetOdometer()} - tank.start) / tank.volume, place});
        tank = {entry.GetOdometer(), 0};
    }
    return ways;
}

void TellFarWays(const std::vector<Way>& ways, const TellOfEntry& tell) {
    constexpr std::size_t Fewest = 5;
    constexpr double FarMore = 1.7;
    if (ways.size() < Fewest)
        return;
    std::vector<Way> sorted = ways;
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::nth_element(sorted.begin(), middle, sorted.end(),
        [](const Way& left, const Way& right) { return left.perVolume < right.perVolume; });
    for (const Way& way : ways)
        if (way.perVolume > middle->perVolume * FarMore)
            tell("far more way than on other fills: was one before it left out?", way.entry);
}

} // namespace

void RebuildOdometers(Batch* batch, std::vector<Stretch> stretches, const TellOfEntry& tell) {
    const auto recordOf = [&](const Stretch& stretch) { return batch->entries[stretch.entry].record.get(); };
    const auto rebuild = [&](const Stretch& stretch, double reading, bool hasWay) {
        if (stretch.hasReading || !hasWay)
            return;
        recordOf(stretch)->SetOdometer(WholeReading(std::max(reading, 0.0)));
        EntryItem& item = batch->entries[stretch.entry];
        item.hasUnknownOdometer = item.lacksOdometer = false;
        tell("the reading was rebuilt from the distances", stretch.entry);
    };
    // Files have the newest first: of one moment the later row is the older one.
    std::reverse(stretches.begin(), stretches.end());
    std::stable_sort(stretches.begin(), stretches.end(), [&](const Stretch& left, const Stretch& right) {
        return LinearFromOleDate(recordOf(left)->GetDate()) < LinearFromOleDate(recordOf(right)->GetDate());
    });
    const auto known
        = std::find_if(stretches.begin(), stretches.end(), [](const Stretch& stretch) { return stretch.hasReading; });
    const bool isAnyKnown = known != stretches.end();
    const auto first = isAnyKnown ? known : stretches.begin();
    const double start = isAnyKnown ? recordOf(*first)->GetOdometer() : 0;
    double reading = start;
    for (auto stretch = first; stretch != stretches.end(); ++stretch) {
        reading = stretch->hasReading ? recordOf(*stretch)->GetOdometer() : reading + stretch->distance;
        rebuild(*stretch, reading, stretch->distance > 0);
    }
    reading = start;
    for (auto stretch = first; stretch != stretches.begin(); --stretch) {
        reading -= stretch->distance;
        rebuild(*std::prev(stretch), reading, stretch->distance > 0);
    }
}

void TellOddities(const Batch& batch, bool hasMissedFills, const TellOfEntry& tell) {
    const double last = DayAfterNow();
    for (std::size_t entry = 0; entry < batch.entries.size(); ++entry)
        if (batch.entries[entry].record->GetDate() > last)
            tell("the date is still to come", entry);
    const std::vector<std::size_t> order = InOrder(batch);
    std::vector<LONG> highest(batch.vehicles.size(), 0);
    for (const std::size_t entry : order) {
        LONG& before = highest[batch.entries[entry].vehicle];
        const LONG odometer = batch.entries[entry].record->GetOdometer();
        if (odometer < before)
            tell("the reading is lower than one before it", entry);
        before = std::max(before, odometer);
    }
    if (!hasMissedFills)
        for (const std::vector<Way>& ways : WaysOf(batch, order))
            TellFarWays(ways, tell);
}

} // namespace exchange
