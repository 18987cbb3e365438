#pragma once

#include "platform/drawing/canvas.h"

namespace device {

/// A track and a thumb: `page` of `range` show from `position` on.
void PaintScrollBar(Canvas& canvas, const RECT& place, int range, int page, int position);

} // namespace device
