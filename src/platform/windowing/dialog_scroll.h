#pragma once

#include "platform/windowing/window_record.h"

namespace device {

/// Moves the content so that `position` is at the top, as far as there is content.
void ScrollDialog(Window& dialog, int position);
/// Scrolls a step down (1) or up (-1) where texts are hidden there; false where none are.
bool ScrollToHidden(Window& dialog, int step);
/// Scrolls a dialog so that a control and the label above it show.
void ShowDialogControl(Window& dialog, const Window& control);
/// The edges of the content changed: shows or hides the scroll bar.
void UpdateDialogScroll(Window& dialog);
ScrollBar DialogScrollBar(const Window& dialog);

} // namespace device
