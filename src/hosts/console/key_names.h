#pragma once

#include "platform/windowing/host.h"

#include <optional>
#include <string>

namespace device {

/// The key that a name of the console's stands for ("up", "ctrl+q", "5"), as a key-down. Nothing for an unknown name.
std::optional<InputEvent> KeyOfName(const std::string& name);

} // namespace device
