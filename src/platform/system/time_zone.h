#pragma once

#include <string>

namespace device {
/// Whether the host's time functions make anything of a TZ of this value; what they do not know they take for UTC
/// without a word.
bool IsTimeZone(std::string zone);
} // namespace device
