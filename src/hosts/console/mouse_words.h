#pragma once

#include "platform/windowing/host.h"

#include <string>
#include <vector>

namespace device {

/// What the words behind the console's `mouse` stand for ("click 20 40 right", "wheel 20 40 -3"); nothing for others.
std::vector<InputEvent> MouseOfWords(const std::string& words);

} // namespace device
