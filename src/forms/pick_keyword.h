#pragma once

#include "records/keyword.h"

#include <string>

/// Lets the user pick from a keyword list; true when `text` was replaced by the choice. A form's keyword field will ask
/// for it once the lists are there; until then nobody does.
bool PickKeyword(CKeyword::Type type, std::wstring& text);
