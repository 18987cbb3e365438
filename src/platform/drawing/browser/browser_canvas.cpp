#include "platform/drawing/browser/browser_canvas.h"

#include "platform/drawing/browser/browser_measurer.h"
#include "platform/drawing/browser/library.h"
#include "platform/drawing/picture.h"
#include "platform/drawing/rectangles.h"
#include "platform/drawing/text_fit.h"
#include "platform/utf8.h"

#include <limits>

namespace device {

namespace {

void FillPlace(const RECT& place, COLORREF color, int alpha = 255) {
    if (!IsRectEmpty(place))
        odoledgerCanvasFill(
            place.left, place.top, place.right - place.left, place.bottom - place.top, color, std::max(alpha, 0));
}

} // namespace

BrowserCanvas::BrowserCanvas(SIZE deviceSize, double zoom) {
    Resize(deviceSize, zoom);
}

void BrowserCanvas::Resize(SIZE deviceSize, double zoom) {
    grid_.zoom = zoom > 0 ? zoom : 1.0;
    PopAllClips();
    odoledgerCanvasResize(std::max(grid_.Snap(deviceSize.cx), 1), std::max(grid_.Snap(deviceSize.cy), 1));
}

void BrowserCanvas::Clip(const RECT& clip) {
    const RECT place = grid_.Snap(clip);
    odoledgerCanvasClip(place.left, place.top, place.right - place.left, place.bottom - place.top);
}

void BrowserCanvas::Unclip() {
    odoledgerCanvasUnclip();
}

void BrowserCanvas::Fill(const RECT& rectangle, COLORREF color, int alpha) {
    FillPlace(grid_.Snap(rectangle), color, alpha);
}

void BrowserCanvas::Line(POINT from, POINT to, COLORREF color, int width) {
    FillPlace(grid_.Line(from, to, width), color);
}

void BrowserCanvas::Frame(const RECT& rectangle, COLORREF color, int width) {
    for (const RECT& edge : grid_.FrameEdges(rectangle, width))
        FillPlace(edge, color);
}

void BrowserCanvas::Polygon(std::span<const POINT> points, COLORREF color) {
    std::vector<double> places;
    for (const POINT& point : points)
        places.insert(places.end(), {point.x * grid_.zoom, point.y * grid_.zoom});
    odoledgerCanvasPolygon(places.data(), static_cast<int>(points.size()), color);
}

void BrowserCanvas::Text(int x, int y, std::wstring_view text, const FontDescription& font, COLORREF color) {
    BrowserMeasurer& measurer = BrowserMeasurer::Instance();
    const FontMetrics metrics = measurer.Metrics(font);
    // Marks and stand-in faces may rise above the cell, so that only what is far outside is left out.
    const RECT near{x, y - metrics.Height(), std::numeric_limits<LONG>::max(), y + 2 * metrics.Height()};
    if (text.empty() || IsRectEmpty(Clipped(near)))
        return;
    odoledgerCanvasText(grid_.Snap(x), grid_.Snap(y + metrics.ascent), grid_.zoom, measurer.FontNumber(font),
        ToUtf8(DrawableText(text)).c_str(), color);
}

void BrowserCanvas::DrawPicture(const RECT& place, const Picture& picture) {
    const RECT target = grid_.Snap(place);
    const ImageResource* best = BestSize(picture, target.right - target.left);
    if (best != nullptr && !IsRectEmpty(target))
        odoledgerCanvasPicture(target.left, target.top, target.right - target.left, target.bottom - target.top,
            best->png.data(), static_cast<int>(best->png.size()));
}

} // namespace device
