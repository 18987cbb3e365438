#pragma once

class CVehicle;

// The main frame's commands on reminders. Both need an active vehicle, which `selectedVehicle` is.

/// Lets the user make a reminder, says that it is stored, and shows what is due, the new one included.
void NewReminder(CVehicle* selectedVehicle);
/// The list of the vehicle's reminders.
void ManageReminders(CVehicle* selectedVehicle);
