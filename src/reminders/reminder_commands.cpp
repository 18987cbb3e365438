#include "reminders/reminder_commands.h"

#include "records/notification.h"
#include "reminders/dlg_reminders.h"
#include "reminders/due_reminders.h"
#include "reminders/edit_reminder.h"
#include "units/record_text.h"

void NewReminder(CVehicle* selectedVehicle) {
    CNotification reminder;
    if (!EditReminder(&reminder))
        return;
    ShowReminderCreated();
    CheckDueReminders(selectedVehicle);
}

void ManageReminders(CVehicle* selectedVehicle) {
    CDlgReminders dialog;
    dialog.Heading = VehicleTitleText(selectedVehicle);
    dialog.DoModal();
}
