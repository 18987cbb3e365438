#pragma once

#include "tally/request.h"

#include <variant>
#include <vector>

namespace tally {

/// Reads the arguments without the program's name. Where there is nothing to run (help, the version, a mistake) it has
/// been told, and the result is the status to end with.
std::variant<Request, int> ReadCommandLine(const std::vector<std::string>& arguments, Surroundings& surroundings);

} // namespace tally
