#pragma once

#include <string>
#include <vector>

namespace device {

/// The window in front as a list: its title, its controls in order, or the open popup, and the soft keys.
std::vector<std::string> ControlLines();

} // namespace device
