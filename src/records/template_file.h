#pragma once

#include <string>

/// Makes the file that every new log begins as a copy of: empty but for a stock of ready-made keywords. Fails where
/// there is a file already.
bool MakeTemplateFile(const std::string& path);
