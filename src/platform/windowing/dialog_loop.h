#pragma once

#include "platform/windowing/window_record.h"

#include <vector>

namespace device {

/// Runs the loop of a modal window until it has ended, gives the focus back to its owner and destroys it. The owner is
/// disabled meanwhile. The result of EndDialog, or `otherwise` when the program ended below it.
LONG_PTR RunModal(HWND window, HWND owner, LONG_PTR otherwise);
/// What the fields of a window hold, in their order.
std::vector<std::wstring> FieldValues(const Window& window);
/// The controls that a walk with the keys goes through.
std::vector<HWND> FocusOrder(const Window& dialog);
/// A control was entered: an edit selects its text, so that typing replaces it.
void EnterControl(HWND control);

} // namespace device
