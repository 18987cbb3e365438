#pragma once

#include "platform/types.h"

namespace device {

/// Makes a program's top-level window known to the other processes of this device.
void PublishWindow(HWND window);
void WithdrawWindow(HWND window);
void WithdrawAllWindows();

} // namespace device
