#include "platform/windowing/scroll_bar.h"

#include "platform/drawing/rectangles.h"
#include "platform/metrics.h"
#include "platform/windowing/look.h"

#include <algorithm>

namespace device {

void PaintScrollBar(Canvas& canvas, const RECT& place, int range, int page, int position) {
    canvas.Fill(place, GetSysColor(COLOR_3DFACE));
    const int height = HeightOf(place);
    if (range <= page || height <= 0 || range <= 0)
        return;
    const int least = std::min(Scaled(8), height); // a bar may be shorter than the least thumb
    const int thumb = std::clamp(static_cast<int>(static_cast<std::int64_t>(height) * page / range), least, height);
    const int room = height - thumb;
    const int offset = static_cast<int>(static_cast<std::int64_t>(room) * position / (range - page));
    const LONG top = place.top + std::clamp(offset, 0, room);
    canvas.Fill({place.left + 1, top, place.right - 1, top + thumb}, MenuEdgeColor);
}

} // namespace device
