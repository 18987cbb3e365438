#pragma once

#include <string>

namespace device {

/// Has the desktop show a line, where the session has a message bus and the program that most desktops bring for that
/// (notify-send). Does not wait, and tells nobody when there is none.
void SendNotification(const std::string& line);

} // namespace device
