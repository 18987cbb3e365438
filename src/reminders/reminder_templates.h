#pragma once

#include "platform/resources.h"

/// The dialog templates of the reminders.
namespace templates {
extern const DLGTEMPLATE DueReminder;
extern const DLGTEMPLATE EditReminder;
extern const DLGTEMPLATE Reminders;
} // namespace templates
