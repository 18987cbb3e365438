#pragma once

#include "platform/resources.h"

/// The dialog templates of the forms: fields one under the other, a label above each control. They are taller than the
/// screen; the dialog manager scrolls them.
namespace templates {
extern const DLGTEMPLATE FuelEntry;
extern const DLGTEMPLATE Repair;
extern const DLGTEMPLATE Expense;
extern const DLGTEMPLATE Trip;
extern const DLGTEMPLATE Vehicle;
} // namespace templates
