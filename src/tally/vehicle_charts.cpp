#include "tally/vehicle_charts.h"

#include "charts/chart.h"
#include "figures/periods.h"
#include "platform/time.h"
#include "platform/utf8.h"
#include "records/record_dates.h"
#include "tally/log_batch.h"
#include "tally/log_entries.h"
#include "tally/open_log.h"
#include "units/number_text.h"
#include "units/units.h"

#include <algorithm>
#include <cstdio>
#include <limits>

namespace tally {
namespace {

constexpr const char* KindLabels[] = {"All", "Fuel", "Repair", "Trip", "Other"};
constexpr int FirstKind = CEntry::EntryTypeFuel;
constexpr int LastKind = CEntry::EntryTypeExpense;

bool Wants(const VehicleLog& log, double date) {
    const double linear = LinearFromOleDate(date);
    return linear >= log.days.first && linear <= log.days.last;
}

charts::Day DayOf(double date) {
    SYSTEMTIME time{};
    VariantTimeToSystemTime(date, &time);
    return charts::Day{std::chrono::year{time.wYear} / time.wMonth / time.wDay};
}

/// The sign of the locale's money, from an amount as it is written.
std::string Currency() {
    std::wstring text = NumberText(0, true, true);
    const auto isOfNumber
        = [](wchar_t each) { return std::wstring(L"0123456789.,'\u00A0\u202F ").find(each) != std::wstring::npos; };
    text.erase(std::remove_if(text.begin(), text.end(), isOfNumber), text.end());
    return device::ToUtf8(text);
}

std::string Distance() {
    return device::ToUtf8(DistanceUnitName(false, true));
}

std::string Volume() {
    return device::ToUtf8(VolumeUnitName(true, true));
}

/// Behind "2026-12" comes "2027-01".
std::string NextMonth(const std::string& name) {
    const int months = std::stoi(name.substr(0, 4)) * 12 + std::stoi(name.substr(5, 2));
    char next[32];
    std::snprintf(next, sizeof next, "%04d-%02d", months / 12, months % 12 + 1);
    return next;
}

/// A column for each month from the first to the last one with entries, also where a month has none.
std::vector<figures::Period> Months(const VehicleLog& log) {
    const auto known
        = figures::PeriodsOf(log.entries, log.marks, figures::Length::Month, log.days.first, log.days.last);
    std::vector<figures::Period> months;
    for (const figures::Period& period : known) {
        while (!months.empty() && NextMonth(months.back().name) < period.name) {
            const std::string name = NextMonth(months.back().name);
            months.emplace_back().name = name;
        }
        months.push_back(period);
    }
    return months;
}

charts::Words WordsOf(
    const VehicleLog& log, const char* id, const std::string& title, const std::string& description, std::string unit) {
    return {id, title + ": " + log.vehicle, description, std::move(unit)};
}

charts::Columns ByMonth(
    const VehicleLog& log, charts::Words words, const char* name, double (*value)(const figures::Period&)) {
    charts::Columns chart{std::move(words), {}, {{name, {}}}};
    for (const figures::Period& month : Months(log)) {
        chart.periods.push_back(month.name);
        chart.kinds[0].values.push_back(value(month));
    }
    return chart;
}

std::string Economy(const VehicleLog& log) {
    charts::Lines chart{
        WordsOf(log, "economy", "Fuel economy", "From full tank to full tank. A gap is where a fill is missing.",
            device::ToUtf8(FuelEconomyUnitLabel())),
        {}};
    bool isBroken = true;
    for (const figures::Chain& chain : figures::ChainsOf(log.entries, log.marks)) {
        const auto distance = static_cast<LONG>(std::min(chain.distance, LONGLONG{std::numeric_limits<LONG>::max()}));
        const float economy = FuelEconomy(distance, static_cast<float>(chain.volume));
        isBroken = isBroken || chain.followsGap;
        if (!Wants(log, chain.date) || !(economy > 0))
            continue;
        if (isBroken)
            chart.runs.emplace_back();
        isBroken = false;
        chart.runs.back().push_back({DayOf(chain.date), double{economy}});
    }
    return ToSvg(chart);
}

std::string Price(const VehicleLog& log) {
    charts::Lines chart{WordsOf(log, "price", "Fuel price", "Of each fill.", Currency() + '/' + Volume()), {}};
    for (int i = 0; i < log.entries.GetCount(); ++i) {
        const CEntry& fill = *log.entries.Get(i);
        if (fill.GetType() != CEntry::EntryTypeFuel || !(fill.GetCustom1() > 0) || !Wants(log, fill.GetDate()))
            continue;
        if (chart.runs.empty())
            chart.runs.emplace_back();
        chart.runs[0].push_back({DayOf(fill.GetDate()), double{fill.GetAmount()} / double{fill.GetCustom1()}});
    }
    return ToSvg(chart);
}

std::string Costs(const VehicleLog& log) {
    charts::Columns chart{WordsOf(log, "costs", "Cost per month", "By kind.", Currency()), {}, {}};
    for (int kind = FirstKind; kind <= LastKind; ++kind)
        chart.kinds.push_back({KindLabels[kind], {}});
    for (const figures::Period& month : Months(log)) {
        chart.periods.push_back(month.name);
        for (int kind = FirstKind; kind <= LastKind; ++kind)
            chart.kinds[static_cast<std::size_t>(kind - FirstKind)].values.push_back(month.cost[kind]);
    }
    return ToSvg(chart);
}

std::string CostPerDistance(const VehicleLog& log) {
    return ToSvg(ByMonth(log,
        WordsOf(log, "cost-per-distance", "Cost per distance",
            "All cost of a month by its distance; nothing where there is no distance.",
            Currency() + " per 100 " + Distance()),
        "Cost", [](const figures::Period& month) {
            constexpr double RateDistance = 100;
            return month.distance > 0
                ? month.cost[CEntry::EntryTypeAll] / static_cast<double>(month.distance) * RateDistance
                : 0;
        }));
}

std::string DistancePerMonth(const VehicleLog& log) {
    return ToSvg(ByMonth(log,
        WordsOf(log, "distance", "Distance per month", "By the readings of all entries.", Distance()), "Distance",
        [](const figures::Period& month) { return static_cast<double>(std::max(month.distance, LONGLONG{0})); }));
}

std::string SharesOfCost(const VehicleLog& log) {
    charts::Shares chart{WordsOf(log, "shares", "Share of cost", "By kind, of all that was spent.", Currency()), {}};
    for (int kind = FirstKind; kind <= LastKind; ++kind)
        chart.parts.push_back({KindLabels[kind], 0});
    for (int i = 0; i < log.entries.GetCount(); ++i) {
        const CEntry& entry = *log.entries.Get(i);
        const int kind = entry.GetType();
        if (kind >= FirstKind && kind <= LastKind && Wants(log, entry.GetDate()))
            chart.parts[static_cast<std::size_t>(kind - FirstKind)].value += double{entry.GetAmount()};
    }
    std::erase_if(chart.parts, [](const charts::Shares::Part& part) { return !(part.value > 0); });
    std::stable_sort(chart.parts.begin(), chart.parts.end(),
        [](const charts::Shares::Part& a, const charts::Shares::Part& b) { return a.value > b.value; });
    return ToSvg(chart);
}

struct Kind {
    const char* name;
    std::string (*draw)(const VehicleLog& log);
};

constexpr Kind Kinds[] = {{"economy", Economy}, {"price", Price}, {"costs", Costs},
    {"cost-per-distance", CostPerDistance}, {"distance", DistancePerMonth}, {"shares", SharesOfCost}};

} // namespace

VehicleLog::VehicleLog(const CVehicle& ofVehicle, const Request& request)
    : vehicle(device::ToUtf8(ofVehicle.GetName()))
    , days(FilterOf(ofVehicle, request).DateBounds()) {
    CEntryFilter all;
    all.SetVehicleID(ofVehicle.GetRefID());
    RequireLoaded(theDataLayer.Load(&entries, &all));
    marks = LoadFillMarks();
}

std::vector<std::string> ChartKinds() {
    std::vector<std::string> names;
    for (const Kind& kind : Kinds)
        names.emplace_back(kind.name);
    return names;
}

std::string DrawChart(const std::string& kind, const VehicleLog& log) {
    const auto* found
        = std::find_if(std::begin(Kinds), std::end(Kinds), [&](const Kind& each) { return each.name == kind; });
    return found == std::end(Kinds) ? std::string() : found->draw(log);
}

} // namespace tally
