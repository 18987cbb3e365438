#pragma once

#include "platform/drawing/canvas.h"

namespace device {

struct Window;

/// A track and a thumb: `page` of `range` show from `position` on.
struct ScrollBar {
    RECT place; ///< on the screen; empty where no bar shows
    int range = 0;
    int page = 0;
    int position = 0;

    /// Empty where everything shows.
    RECT Thumb() const;
    /// The position that puts the thumb's upper edge at `top`, as far as there is content.
    int PositionAt(int top) const;
};

void PaintScrollBar(Canvas& canvas, const ScrollBar& bar);

/// What the right inset of a window takes for its bar; empty where it takes nothing.
RECT ScrollBarPlace(const Window& window);
/// The bar of a control or of a dialog.
ScrollBar ScrollBarOf(const Window& window);
/// Scrolls a control or a dialog, as far as there is content.
void ScrollWindow(Window& window, int position);

} // namespace device
