#pragma once

#include "platform/types.h"

/// The program. Its command line is not looked at; the result is the exit code: 1 after an orderly end.
int WinMain(HINSTANCE instance, HINSTANCE previousInstance, wchar_t* commandLine, int showCommand);
