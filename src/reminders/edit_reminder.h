#pragma once

class CNotification;

/// A reminder through its form and into the data file. One that was never stored first gets the active vehicle, a date
/// in 60 days and a reading 3000 ahead. Non-zero when it was stored: 0 after Cancel, when nothing changed, and when the
/// save failed (which the user is told).
int EditReminder(CNotification* reminder);

/// Tells the user that a new reminder is stored.
void ShowReminderCreated();
