#include "platform/windowing/scroll_bar.h"

#include "platform/drawing/rectangles.h"
#include "platform/metrics.h"
#include "platform/windowing/dialog_scroll.h"
#include "platform/windowing/look.h"
#include "platform/windowing/window_record.h"

#include <algorithm>

namespace device {

namespace {

int ThumbHeight(const ScrollBar& bar) {
    const int height = HeightOf(bar.place);
    const int least = std::min(Scaled(8), height); // a bar may be shorter than the least thumb
    return std::clamp(static_cast<int>(static_cast<std::int64_t>(height) * bar.page / bar.range), least, height);
}

bool HasThumb(const ScrollBar& bar) {
    return !IsRectEmpty(bar.place) && bar.range > bar.page && bar.range > 0;
}

} // namespace

RECT ScrollBar::Thumb() const {
    if (!HasThumb(*this))
        return {};
    const int height = ThumbHeight(*this);
    const int room = HeightOf(place) - height;
    const int offset = static_cast<int>(static_cast<std::int64_t>(room) * position / (range - page));
    const LONG top = place.top + std::clamp(offset, 0, room);
    return {place.left + 1, top, place.right - 1, top + height};
}

int ScrollBar::PositionAt(int top) const {
    const int room = HasThumb(*this) ? HeightOf(place) - ThumbHeight(*this) : 0;
    if (room <= 0)
        return position;
    const int offset = std::clamp(top - static_cast<int>(place.top), 0, room);
    return static_cast<int>((static_cast<std::int64_t>(offset) * (range - page) + room / 2) / room);
}

void PaintScrollBar(Canvas& canvas, const ScrollBar& bar) {
    if (IsRectEmpty(bar.place))
        return;
    canvas.Fill(bar.place, GetSysColor(COLOR_3DFACE));
    if (const RECT thumb = bar.Thumb(); !IsRectEmpty(thumb))
        canvas.Fill(thumb, MenuEdgeColor);
}

RECT ScrollBarPlace(const Window& window) {
    if (window.insets.right <= window.insets.left)
        return {};
    const RECT place = ScreenPlace(window);
    return {place.right - window.insets.right, place.top, place.right, place.bottom};
}

ScrollBar ScrollBarOf(const Window& window) {
    if (window.control)
        return window.control->Bar();
    return window.modal ? DialogScrollBar(window) : ScrollBar{};
}

void ScrollWindow(Window& window, int position) {
    if (window.control)
        window.control->ScrollTo(position);
    else if (window.modal)
        ScrollDialog(window, position);
}

} // namespace device
