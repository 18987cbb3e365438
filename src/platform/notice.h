#pragma once

#include "platform/types.h"

/// Tells a user who may not be looking at the screen, or cannot find there what it names, about a file: a line on
/// standard error when the process ends, and a notification where the desktop shows them. Both say where `path`, a
/// device path, lies on the host. `error` (GetLastError) adds its reason; 0: none.
void TellOfFile(const wchar_t* path, const wchar_t* what, DWORD error = 0);
