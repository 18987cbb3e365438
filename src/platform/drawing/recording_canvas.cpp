#include "platform/drawing/recording_canvas.h"

#include "platform/drawing/rectangles.h"
#include "platform/metrics.h"

#include <algorithm>
#include <utility>

namespace device {

void RecordingCanvas::Begin(const RECT& dirty) {
    // A screen that became smaller shows no more what stood beyond its new edge, and nobody paints there.
    const RECT screen{0, 0, ScreenSize().cx, ScreenSize().cy};
    std::erase_if(texts_,
        [&](const PaintedText& text) { return Intersects(text.place, dirty) || !Intersects(text.place, screen); });
}

void RecordingCanvas::Fill(const RECT& rectangle, COLORREF /*color*/, int alpha) {
    if (alpha < 255)
        return;
    const RECT covered = Clipped(rectangle);
    std::erase_if(texts_, [&](const PaintedText& text) { return Contains(covered, text.place); });
}

void RecordingCanvas::Text(int x, int y, std::wstring_view text, const FontDescription& font, COLORREF color) {
    const RECT place{x, y, x + measurer_.Width(font, text), y + measurer_.Metrics(font).Height()};
    if (IsRectEmpty(Clipped(place)))
        return;
    // What is painted in its own place again stands there once.
    std::erase_if(texts_, [&](const PaintedText& known) {
        return Contains(known.place, place) && Contains(place, known.place) && known.text == text
            && known.marks.control == marks_.control;
    });
    texts_.push_back({place, std::wstring(text), font, color, marks_});
}

} // namespace device
