#include "exchange/plain_text.h"
#include "figures/daily_distance.h"
#include "platform/time.h"
#include "records/entry_filter.h"
#include "records/record_dates.h"
#include "tally/commands.h"
#include "tally/log_batch.h"
#include "tally/log_tables.h"
#include "tally/open_log.h"
#include "units/date_text.h"
#include "units/number_text.h"
#include "units/record_text.h"

#include <limits>
#include <sysexits.h>

namespace tally {
namespace {

enum class State { Later, Soon, Overdue };

/// In UTC, as the dates of reminders are. Before every date where the clock shows none.
double Now() {
    SYSTEMTIME time;
    GetSystemTime(&time);
    double now = std::numeric_limits<double>::lowest();
    SystemTimeToVariantTime(&time, &now);
    return now;
}

/// Overdue by the program's own test.
State StateOf(const CNotification& reminder, LONG odometer, double now, const Request& request) {
    if (odometer >= reminder.GetOdometer() || now >= reminder.GetDate())
        return State::Overdue;
    const bool isNear = LONGLONG{reminder.GetOdometer()} - odometer <= request.withinDistance;
    return isNear || reminder.GetDate() - now <= request.withinDays ? State::Soon : State::Later;
}

Cell OdometerCell(LONG odometer) {
    if (odometer >= exchange::NoOdometer)
        return {L"no odometer", {}};
    return WholeCell(NumberText(static_cast<float>(odometer), false, false), odometer);
}

Cell DateCell(double date) {
    if (date >= exchange::NoDate)
        return {L"no date", {}};
    return {DateText(date), exchange::PlainDate(date)};
}

/// The day on which the vehicle is likely to reach the reading, going on as it did lately.
Cell LikelyDayCell(LONG odometer, const figures::DailyDistance& daily) {
    double day = 0;
    if (odometer >= exchange::NoOdometer || !daily.DayOf(odometer, &day))
        return {};
    if (day < TodayDate())
        return {L"any day now", exchange::PlainDate(TodayDate())};
    return {L"about " + DateText(day), exchange::PlainDate(day)};
}

figures::DailyDistance DailyDistanceOf(const CVehicle& vehicle) {
    CEntryFilter filter;
    filter.SetVehicleID(vehicle.GetRefID());
    CObjectListT<CEntry> entries;
    RequireLoaded(theDataLayer.Load(&entries, &filter));
    return figures::DailyDistance(entries, LoadFillMarks());
}

State AddReminders(const CVehicle& vehicle, const Request& request, Table* table) {
    CObjectListT<CNotification> reminders;
    RequireLoaded(theDataLayer.Load(&reminders, vehicle.GetRefID()));
    const figures::DailyDistance daily = DailyDistanceOf(vehicle);
    const LONG odometer = vehicle.GetCurrentOdometer();
    State worst = State::Later;
    for (int i = 0; i < reminders.GetCount(); ++i) {
        const CNotification& reminder = *reminders.Get(i);
        const State state = StateOf(reminder, odometer, Now(), request);
        if (state == State::Later)
            continue;
        worst = std::max(worst, state);
        const bool isOverdue = state == State::Overdue;
        table->Add({TextCell(isOverdue ? L"overdue" : L"soon"), TextCell(VehicleTitleText(&vehicle)),
            TextCell(reminder.GetName()), OdometerCell(reminder.GetOdometer()), OdometerCell(odometer),
            DateCell(reminder.GetDate()),
            odometer >= reminder.GetOdometer() ? Cell() : LikelyDayCell(reminder.GetOdometer(), daily)});
    }
    return worst;
}

} // namespace

Table ReminderTable(const CVehicle& vehicle) {
    Table table({{"reminder", L"Reminder"}, {"odometer", L"Due at", true}, {"date", L"Due on", true}});
    CObjectListT<CNotification> reminders;
    RequireLoaded(theDataLayer.Load(&reminders, vehicle.GetRefID()));
    for (int i = 0; i < reminders.GetCount(); ++i) {
        const CNotification& reminder = *reminders.Get(i);
        table.Add({TextCell(reminder.GetName()), OdometerCell(reminder.GetOdometer()), DateCell(reminder.GetDate())});
    }
    return table;
}

int Due(const Request& request, Surroundings& surroundings) {
    const OpenLog log(PathOfLog(request.file));
    Table table({{"state", L"State"}, {"vehicle", L"Vehicle"}, {"reminder", L"Reminder"}, {"odometer", L"Due at", true},
        {"current_odometer", L"Now at", true}, {"date", L"Due on", true}, {"estimated_date", L"Likely (an estimate)"}});
    State worst = State::Later;
    for (const CVehicle* vehicle : log.Chosen(request.vehicle))
        worst = std::max(worst, AddReminders(*vehicle, request, &table));
    // Quiet where there is nothing, so that a mail from cron means something. Programs get an empty table.
    if (worst != State::Later || request.format != Format::Text)
        Deliver(table.Write(request.format, surroundings.hasColours && request.output.empty()), request, surroundings);
    if (worst == State::Overdue)
        return SomethingOverdue;
    return worst == State::Soon ? SomethingSoon : EX_OK;
}

} // namespace tally
