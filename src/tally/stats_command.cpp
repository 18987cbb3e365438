#include "figures/periods.h"
#include "platform/utf8.h"
#include "resources/load_text.h"
#include "stats/quick_stats.h"
#include "stats/quick_stats_rows.h"
#include "tally/commands.h"
#include "tally/log_batch.h"
#include "tally/log_entries.h"
#include "tally/log_tables.h"
#include "tally/open_log.h"
#include "units/date_text.h"
#include "units/number_text.h"
#include "units/units.h"

#include <limits>
#include <sysexits.h>

namespace tally {
namespace {

constexpr double RateDistance = 100;

struct Figure {
    const char* key;
    Value (*value)(const CQuickStats& stats);
    std::wstring (*unit)();
};

Value Number(float value) {
    return NumberCell(L"", value).value;
}

Value Economy(float value) {
    return value > 0 ? Number(value) : Value();
}

std::wstring NoUnit() {
    return {};
}

std::wstring Volume() {
    return VolumeUnitName(true, true);
}

std::wstring Distance() {
    return DistanceUnitName(false, true);
}

using S = const CQuickStats&;

/// By the rows of the program's screen; the first of them is a text.
constexpr Figure Figures[QuickStatsRowCount] = {
    {"date_range", [](S stats) { return TextCell(stats.GetRangeText()).value; }, NoUnit},
    {"average_fuel_economy", [](S stats) { return Economy(stats.GetAverageEconomy()); }, FuelEconomyUnitLabel},
    {"recent_fuel_economy", [](S stats) { return Economy(stats.GetRecentEconomy()); }, FuelEconomyUnitLabel},
    {"average_fuel_cost", [](S stats) { return Number(stats.AverageFuelCost()); }, [] { return L"per " + Volume(); }},
    {"distance", [](S stats) { return Value(LONGLONG{stats.GetDistance()}); }, Distance},
    {"fuel_consumed", [](S stats) { return Number(stats.GetFuelConsumed()); }, Volume},
    {"fuel_expense", [](S stats) { return Number(stats.GetFuelExpense()); }, NoUnit},
    {"total_expense", [](S stats) { return Number(stats.GetTotalExpense()); }, NoUnit},
    {"fuel_consumption_rate", [](S stats) { return Number(stats.GetConsumptionRate()); },
        [] { return Volume() + L" per 100 " + Distance(); }},
    {"cost_of_ownership", [](S stats) { return Number(stats.GetCostOfOwnership()); },
        [] { return L"per 100 " + Distance(); }},
};

/// A range that is open at one end would be told with the first or the last date that there is.
std::wstring OpenRange(const Request& request) {
    if (request.from && !request.to)
        return L"from " + DateText(*request.from);
    return request.to && !request.from ? L"until " + DateText(*request.to) : L"";
}

Cell Money(double value) {
    return NumberCell(NumberText(static_cast<float>(value), true, true), static_cast<float>(value));
}

Cell Decimal(double value) {
    return NumberCell(NumberText(static_cast<float>(value), true, false), static_cast<float>(value));
}

Cell Rate(double amount, double units, double per, Cell (*write)(double)) {
    return units > 0 ? write(amount / units * per) : Cell();
}

Cell ChainEconomy(const figures::Period& period) {
    const auto distance = static_cast<LONG>(std::min(period.chainDistance, LONGLONG{std::numeric_limits<LONG>::max()}));
    const float economy = FuelEconomy(distance, static_cast<float>(period.chainVolume));
    return economy > 0 ? Decimal(double{economy}) : Cell();
}

figures::Length LengthOf(const std::string& name) {
    if (name == "month")
        return figures::Length::Month;
    return name == "quarter" ? figures::Length::Quarter : figures::Length::Year;
}

Table ByPeriods(const CVehicle& vehicle, const Request& request) {
    CEntryFilter all;
    all.SetVehicleID(vehicle.GetRefID());
    CObjectListT<CEntry> entries;
    RequireLoaded(theDataLayer.Load(&entries, &all));
    const std::wstring per100 = L"Per 100 " + Distance();
    Table table({{"period", L"Period"}, {"distance", L"Distance", true}, {"fuel", L"Fuel", true},
        {"economy", FuelEconomyUnitLabel(), true}, {"price", L"Per " + Volume(), true},
        {"fuel_cost", L"Fuel cost", true}, {"repairs", L"Repairs", true}, {"trips", L"Trips", true},
        {"expenses", L"Other", true}, {"total", L"Total", true}, {"total_per_100", per100, true}});
    const CEntryFilter::Bounds bounds = FilterOf(vehicle, request).DateBounds();
    for (const figures::Period& period :
        figures::PeriodsOf(entries, LoadFillMarks(), LengthOf(request.period), bounds.first, bounds.last)) {
        const auto distance = static_cast<double>(period.distance);
        const double fuel = period.cost[CEntry::EntryTypeFuel];
        const double total = period.cost[CEntry::EntryTypeAll];
        table.Add({TextCell(device::FromUtf8(period.name)),
            WholeCell(NumberText(static_cast<float>(period.distance), false, false), period.distance),
            Decimal(period.volume), ChainEconomy(period), Rate(fuel, period.volume, 1, Money), Money(fuel),
            Money(period.cost[CEntry::EntryTypeRepair]), Money(period.cost[CEntry::EntryTypeTrip]),
            Money(period.cost[CEntry::EntryTypeExpense]), Money(total), Rate(total, distance, RateDistance, Money)});
    }
    return table;
}

} // namespace

Table FigureTable(const CVehicle& vehicle, const Request& request) {
    CEntryFilter filter = FilterOf(vehicle, request);
    CQuickStats stats;
    RequireLoaded(stats.Calculate(&filter));
    using For = Table::For;
    Table table({{"figure", L"", false, For::Programs}, {"label", L"", false, For::People},
        {"value", L"", true, For::Programs}, {"unit", L"", false, For::Programs}, {"text", L""}});
    for (int row = 0; row < QuickStatsRowCount; ++row) {
        const Figure& figure = Figures[row];
        const std::wstring range = row == 0 ? OpenRange(request) : L"";
        table.Add({{L"", std::string(figure.key)}, {LoadText(QuickStatsLabelId(row)), {}},
            {L"", range.empty() ? figure.value(stats) : Value(device::ToUtf8(range))}, TextCell(figure.unit()),
            TextCell(range.empty() ? QuickStatsValueText(row, &stats) : range)});
    }
    return table;
}

int Stats(const Request& request, Surroundings& surroundings) {
    const OpenLog log(PathOfLog(request.file));
    const CVehicle& vehicle = log.TheOne(request.vehicle);
    const Table table = request.period.empty() ? FigureTable(vehicle, request) : ByPeriods(vehicle, request);
    Deliver(table.Write(request.format, surroundings.hasColours && request.output.empty()), request, surroundings);
    return EX_OK;
}

} // namespace tally
