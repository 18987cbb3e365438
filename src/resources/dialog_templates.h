#pragma once

#include "platform/resources.h"

/// The templates of all dialogs. The record forms are taller than the screen; the dialog manager scrolls them.
namespace templates {
extern const DLGTEMPLATE FuelEntry;
extern const DLGTEMPLATE Repair;
extern const DLGTEMPLATE Expense;
extern const DLGTEMPLATE Trip;
extern const DLGTEMPLATE Vehicle;
extern const DLGTEMPLATE Keywords;
extern const DLGTEMPLATE KeywordName;
extern const DLGTEMPLATE DueReminder;
extern const DLGTEMPLATE EditReminder;
extern const DLGTEMPLATE Reminders;
extern const DLGTEMPLATE QuickStats;
extern const DLGTEMPLATE Options;
extern const DLGTEMPLATE About;
extern const DLGTEMPLATE DateRange;
} // namespace templates
