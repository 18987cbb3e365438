#include "reminders/due_reminders.h"

#include "messages/store_record.h"
#include "platform/time.h"
#include "platform/window_object.h"
#include "reminders/dlg_notification_fire.h"
#include "resources/ids.h"
#include "settings/app_settings.h"

#include <limits>

namespace {

/// In UTC, as the dates of reminders are. Before every date where the clock shows none.
double Now() {
    SYSTEMTIME time;
    GetSystemTime(&time);
    double now = std::numeric_limits<double>::lowest();
    SystemTimeToVariantTime(&time, &now);
    return now;
}

bool IsDue(const CNotification& reminder, double now) {
    return theSettings.ActiveVehicleOdometer >= reminder.GetOdometer() || now >= reminder.GetDate();
}

bool LoadReminders(CObjectListT<CNotification>* reminders) {
    const CWaitCursor wait;
    if (theDataLayer.Load(reminders, theSettings.LastActiveVehicle))
        return true;
    if (theDataLayer.LastFailure() == StoreFailure::NoMemory)
        PostOutOfMemory(GetActiveWindow());
    return false;
}

} // namespace

void CheckDueReminders(CVehicle* vehicle) {
    if (theSettings.LastActiveVehicle == 0 || !vehicle)
        return;
    CDlgNotificationFire dialog;
    CObjectListT<CNotification> reminders;
    if (!LoadReminders(&reminders))
        return;
    const double now = Now();
    // A deleted reminder stays in the list, so that the walk neither skips nor repeats one.
    for (int index = 0; index < reminders.GetCount(); ++index) {
        const CNotification* reminder = reminders.Get(index);
        if (!IsDue(*reminder, now))
            continue;
        dialog.Reminder = reminder;
        dialog.Vehicle = vehicle;
        // One that cannot be deleted comes up again at the next check.
        if (dialog.DoModal() == commands::Done)
            DeleteStored(reminder);
    }
}
