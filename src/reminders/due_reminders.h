#pragma once

class CVehicle;

/// Shows each reminder of the active vehicle that is due by its odometer or by its date, one screen after the other,
/// and deletes those that the user has done with. `vehicle` is the active one; it is what the screen names. Does
/// nothing without an active vehicle, and when the reminders cannot be loaded.
void CheckDueReminders(CVehicle* vehicle);
