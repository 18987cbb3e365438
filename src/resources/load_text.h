#pragma once

#include "platform/types.h"

#include <string>

/// A text of the program's string table, whatever its length; empty where there is no such string.
std::wstring LoadText(UINT id);
