#include "stats/quick_stats_rows.h"

#include "resources/ids.h"
#include "resources/load_text.h"
#include "stats/quick_stats.h"
#include "units/number_text.h"
#include "units/units.h"

namespace {

std::wstring Decimal(float value) {
    return NumberText(value, true, false);
}

std::wstring Money(float value) {
    return NumberText(value, true, true);
}

std::wstring Volume() {
    return VolumeUnitName(true, true);
}

std::wstring Per100() {
    return L" per 100 " + DistanceUnitName(false, true);
}

std::wstring Economy(float value) {
    return value <= 0 ? std::wstring() : Decimal(value) + L" " + FuelEconomyUnitLabel();
}

std::wstring RecentEconomy(const CQuickStats& stats) {
    std::wstring text = Economy(stats.GetRecentEconomy());
    const std::wstring vendor = stats.GetRecentVendor();
    if (!text.empty() && !vendor.empty())
        text += L" (" + vendor + L")";
    return text;
}

struct Row {
    UINT label;
    std::wstring (*value)(const CQuickStats& stats); ///< empty: there is no figure
};

using Stats = const CQuickStats&;

constexpr Row Rows[QuickStatsRowCount] = {
    {strings::StatsDateRange, [](Stats stats) { return stats.GetRangeText(); }},
    {strings::StatsAverageEconomy, [](Stats stats) { return Economy(stats.GetAverageEconomy()); }},
    {strings::StatsRecentEconomy, RecentEconomy},
    {strings::StatsAverageFuelCost, [](Stats stats) { return Money(stats.AverageFuelCost()) + L" per " + Volume(); }},
    {strings::StatsDistance,
        [](Stats stats) {
            return NumberText(static_cast<float>(stats.GetDistance()), false, false) + L" "
                + DistanceUnitName(false, true);
        }},
    {strings::StatsFuelConsumed, [](Stats stats) { return Decimal(stats.GetFuelConsumed()) + L" " + Volume(); }},
    {strings::StatsFuelExpense, [](Stats stats) { return Money(stats.GetFuelExpense()); }},
    {strings::StatsTotalExpense, [](Stats stats) { return Money(stats.GetTotalExpense()); }},
    {strings::StatsConsumptionRate,
        [](Stats stats) { return Decimal(stats.GetConsumptionRate()) + L" " + Volume() + Per100(); }},
    {strings::StatsCostOfOwnership, [](Stats stats) { return Money(stats.GetCostOfOwnership()) + Per100(); }},
};

bool HasRow(int row) {
    return row >= 0 && row < QuickStatsRowCount;
}

} // namespace

UINT QuickStatsLabelId(int row) {
    return HasRow(row) ? Rows[row].label : 0;
}

std::wstring QuickStatsValueText(int row, const CQuickStats* stats) {
    std::wstring text;
    if (stats && HasRow(row))
        text = Rows[row].value(*stats);
    return text.empty() ? LoadText(strings::NotAvailable) : text;
}
