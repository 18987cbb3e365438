#pragma once

#include "platform/drawing/canvas.h"
#include "platform/drawing/pixel_grid.h"

namespace device {

/// Draws on the canvas that the page gave, `zoom` canvas pixels a device pixel. There is one.
class BrowserCanvas final : public Canvas {
public:
    BrowserCanvas(SIZE deviceSize, double zoom);

    /// The content is lost and everything has to be painted anew.
    void Resize(SIZE deviceSize, double zoom);
    double Zoom() const { return grid_.zoom; }

    TextMeasurer& Measurer() override { return DeviceMeasurer(); }
    void SetMarks(const PaintMarks& /*marks*/) override { }
    void Fill(const RECT& rectangle, COLORREF color, int alpha) override;
    void Line(POINT from, POINT to, COLORREF color, int width) override;
    void Frame(const RECT& rectangle, COLORREF color, int width) override;
    void Polygon(std::span<const POINT> points, COLORREF color) override;
    void Text(int x, int y, std::wstring_view text, const FontDescription& font, COLORREF color) override;
    /// A picture that is drawn for the first time may show only later: the host then hears that what stands there is
    /// lost.
    void DrawPicture(const RECT& place, const Picture& picture) override;

private:
    void Clip(const RECT& clip) override;
    void Unclip() override;

    PixelGrid grid_;
};

} // namespace device
