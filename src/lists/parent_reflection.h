#pragma once

#include "platform/types.h"

/// What a control tells its parent goes back to the control, as OCM_BASE + message, so that a list can draw itself. A
/// parent of such a list calls this for every message that it does not handle itself: the soft keys' commands come from
/// a child as well. True when a child of `parent` was concerned; `result` is then the child's answer.
bool ReflectNotification(HWND parent, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
