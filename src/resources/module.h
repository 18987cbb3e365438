#pragma once

#include "platform/resources.h"

/// The program's module: its strings, menus, pictures and version. A host gives it to the device.
HINSTANCE OdoledgerModule();
