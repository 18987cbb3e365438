#pragma once

#include "platform/drawing/canvas.h"
#include "platform/windowing/window_record.h"

namespace device {

/// Runs the loop of a modal window until it has ended, gives the focus back to its owner and destroys it. The owner is
/// disabled meanwhile. The result of EndDialog, or `otherwise` when the program ended below it.
LONG_PTR RunModal(HWND window, HWND owner, LONG_PTR otherwise);
/// Scrolls a dialog so that a control and the label above it show.
void ShowDialogControl(Window& dialog, const Window& control);
/// The edges of the content changed: shows or hides the scroll bar.
void UpdateDialogScroll(Window& dialog);
/// A control was entered: an edit selects its text, so that typing replaces it.
void EnterControl(HWND control);
void PaintDialogScrollBar(Canvas& canvas, const Window& dialog);
/// A track and a thumb: `page` of `range` show from `position` on.
void PaintScrollBar(Canvas& canvas, const RECT& place, int range, int page, int position);

} // namespace device
