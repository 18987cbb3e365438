#pragma once

#include "records/keyword.h"

#include <string>

/// Lets the user pick from a keyword list, and change the list, over the active window. True when `text` was replaced
/// by the choice; false on Cancel, whatever happened to the list.
bool PickKeyword(CKeyword::Type type, std::wstring& text);
