#include "charts/svg.h"
#include "platform/utf8.h"
#include "tally/commands.h"
#include "tally/log_tables.h"
#include "tally/open_log.h"
#include "tally/vehicle_charts.h"
#include "units/date_text.h"
#include "units/number_text.h"
#include "units/record_text.h"
#include "units/units.h"

#include <sysexits.h>

namespace tally {
namespace {

/// For A4 and Letter: nothing is wider than the page, and no chart, row or heading alone is torn.
constexpr const char* Style = R"(<style>
:root { color-scheme: light dark }
body { font: 16px sans-serif; max-width: 760px; margin: 1em auto; padding: 0 1em; color: #222; background: #fff }
h2 { margin-top: 1.6em } svg { display: block; width: 100%; margin: 1em 0 } p { color: inherit }
table { border-collapse: collapse; width: 100%; font-size: 14px }
td, th { padding: 3px 8px; border-bottom: 1px solid #ccc; text-align: left; vertical-align: top; overflow-wrap: anywhere }
.number { text-align: right; white-space: nowrap }
@media (prefers-color-scheme: dark) { body { color: #ddd; background: #1b1b1b } td, th { border-color: #444 } }
@media print {
@page { margin: 15mm }
:root { color-scheme: light } body { max-width: none; margin: 0; padding: 0; font-size: 11pt; color: #000; background: #fff }
svg, tr { break-inside: avoid } h2 { break-after: avoid } table { font-size: 9pt }
}
</style>
)";

void AddSection(std::string* page, const char* title, const std::string& content) {
    page->append("<h2>").append(title).append("</h2>\n").append(content);
}

std::string About(const CVehicle& vehicle) {
    const std::wstring reading = NumberText(static_cast<float>(vehicle.GetCurrentOdometer()), false, false);
    return "<p>" + charts::Escaped(device::ToUtf8(reading + L' ' + DistanceUnitName(false, true))) + "</p>\n";
}

std::string Charts(const CVehicle& vehicle, const Request& request) {
    const VehicleLog log(vehicle, request);
    std::string charts;
    for (const std::string& kind : ChartKinds())
        charts += DrawChart(kind, log);
    return charts;
}

} // namespace

int Report(const Request& request, Surroundings& surroundings) {
    const OpenLog log(PathOfLog(request.file));
    const CVehicle& vehicle = log.TheOne(request.vehicle);
    const std::string name = charts::Escaped(device::ToUtf8(VehicleTitleText(&vehicle)));
    std::string page = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                       "<meta name=\"viewport\" content=\"width=device-width\">\n<title>"
        + name + "</title>\n" + Style + "</head>\n<body>\n<h1>" + name + "</h1>\n" + About(vehicle);
    AddSection(&page, "Figures", FigureTable(vehicle, request).Html());
    AddSection(&page, "Charts", Charts(vehicle, request));
    if (const Table reminders = ReminderTable(vehicle); !reminders.IsEmpty())
        AddSection(&page, "Reminders", reminders.Html());
    const std::string entries = EntryTable({&vehicle}, request).Html(); // the table of a long log is gone behind this
    AddSection(&page, "Log", entries);
    page += "</body>\n</html>\n";
    Deliver(page, request, surroundings);
    return EX_OK;
}

} // namespace tally
