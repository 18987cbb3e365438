#pragma once

#include "platform/types.h"

#include <functional>
#include <string>

/// The road to an open data file at a device path. A file that is none gives way under another name, with all that lies
/// beside it; where there is none, the template is copied. `tell` shows a text about the path and returns when the user
/// has answered: meanwhile what is wrong may have been mended. False after the third copy that failed.
bool OpenDataFile(const std::wstring& path, const std::function<void(UINT text)>& tell);
