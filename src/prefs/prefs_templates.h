#pragma once

#include "platform/resources.h"

/// The dialog templates of the preferences and of what goes with them.
namespace templates {
extern const DLGTEMPLATE Options;
extern const DLGTEMPLATE About;
extern const DLGTEMPLATE DateRange;
} // namespace templates
