#pragma once

#include "platform/types.h"

/// One instance at a time: below 0 for a failure, 0 when this process is to go on, 1 when a running instance was
/// brought to the front.
HRESULT ActivatePreviousInstance(HINSTANCE instance);

/// The device is connected to a desktop. Leaves nothing behind.
bool IsSyncConnected();
