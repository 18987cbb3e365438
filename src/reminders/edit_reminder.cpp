#include "reminders/edit_reminder.h"

#include "messages/store_record.h"
#include "platform/time.h"
#include "reminders/dlg_notification.h"
#include "resources/ids.h"
#include "settings/app_settings.h"
#include "units/date_ranges.h"

#include <algorithm>
#include <limits>

namespace {

constexpr LONG DaysAhead = 60;
constexpr LONG DistanceAhead = 3000;

/// The highest reading there is, where the way ahead would go beyond it.
LONG ReadingAhead(LONG odometer) {
    return std::min(odometer, std::numeric_limits<LONG>::max() - DistanceAhead) + DistanceAhead;
}

void SetDefaults(CNotification* reminder) {
    // UTC, which the test of what is due goes by.
    SYSTEMTIME time;
    GetSystemTime(&time);
    AddDays(&time, DaysAhead, &time);
    double date = reminder->GetDate();
    SystemTimeToVariantTime(&time, &date);
    reminder->SetDate(date);
    reminder->SetVehicleID(theSettings.LastActiveVehicle);
    reminder->SetOdometer(ReadingAhead(theSettings.ActiveVehicleOdometer));
}

} // namespace

int EditReminder(CNotification* reminder) {
    if (reminder->GetID() == 0)
        SetDefaults(reminder);
    CDlgNotification form;
    form.Date = reminder->GetDate();
    form.Description = reminder->GetName();
    form.Odometer = reminder->GetOdometer();
    if (form.DoModal() != commands::Done)
        return 0;
    reminder->SetDate(form.Date);
    reminder->SetName(form.Description.c_str());
    reminder->SetOdometer(form.Odometer);
    return SaveIfDirty(reminder);
}

void ShowReminderCreated() {
    ShowMessage(GetActiveWindow(), strings::ReminderCreated, strings::AppName, messages::NoticeStyle);
}
