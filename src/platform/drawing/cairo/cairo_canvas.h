#pragma once

#include "platform/drawing/canvas.h"

#include <memory>

namespace device {

/// Draws into an image of its own, `zoom` image pixels a device pixel, 32 bits a pixel (0x00RRGGBB, host byte order).
class CairoCanvas final : public Canvas {
public:
    CairoCanvas(SIZE deviceSize, double zoom);
    ~CairoCanvas() override;
    CairoCanvas(const CairoCanvas&) = delete;
    CairoCanvas& operator=(const CairoCanvas&) = delete;

    /// A new image of another size or zoom; the content is lost and everything has to be painted anew.
    void Resize(SIZE deviceSize, double zoom);
    SIZE ImageSize() const;
    double Zoom() const;
    /// Rows of ImageSize().cx pixels, `Stride()` bytes apart.
    const unsigned char* Pixels() const;
    int Stride() const;
    /// An 8-bit RGB PNG; false when the file cannot be written.
    bool WritePng(const std::string& hostPath) const;

    TextMeasurer& Measurer() override { return DeviceMeasurer(); }
    void SetMarks(const PaintMarks& /*marks*/) override { }
    void Fill(const RECT& rectangle, COLORREF color, int alpha) override;
    void Line(POINT from, POINT to, COLORREF color, int width) override;
    void Frame(const RECT& rectangle, COLORREF color, int width) override;
    void Polygon(std::span<const POINT> points, COLORREF color) override;
    void Text(int x, int y, std::wstring_view text, const FontDescription& font, COLORREF color) override;
    void DrawPicture(const RECT& place, const Picture& picture) override;

private:
    void Clip(const RECT& clip) override;
    void Unclip() override;

    struct Surface;
    std::unique_ptr<Surface> surface_;
};

} // namespace device
