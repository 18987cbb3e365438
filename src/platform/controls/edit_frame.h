#pragma once

#include "platform/metrics.h"
#include "platform/windowing/look.h"

namespace device {

// What an edit and a date picker have in common.

/// Between the edge of a field and its text.
inline int FieldPadding() {
    return Scaled(4);
}

/// What a key of a desktop's asks of a field: WM_CUT, WM_COPY or WM_PASTE; 0 for another key.
UINT ClipboardMessage(WORD key);

/// The border of a field; a thicker one shows where the focus is.
inline void PaintFieldFrame(Canvas& canvas, const RECT& place, bool focused) {
    if (focused)
        canvas.Frame(place, GetSysColor(COLOR_HIGHLIGHT), 2);
    else
        canvas.Frame(place, MenuEdgeColor, 1);
}

} // namespace device
