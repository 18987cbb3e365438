#pragma once

#include "platform/drawing.h"

namespace device {

/// The size of the list's images; 0 by 0 for a stale handle.
SIZE ImageListSize(HIMAGELIST list);

} // namespace device
