#pragma once

/// Tells the user that a new reminder is stored.
void ShowReminderCreated();
