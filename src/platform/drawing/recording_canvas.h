#pragma once

#include "platform/drawing/canvas.h"

#include <memory>
#include <string>
#include <vector>

namespace device {

/// A run of text that stands on the screen.
struct PaintedText {
    RECT place; ///< device pixels, whole cell
    std::wstring text;
    FontDescription font;
    COLORREF color;
    PaintMarks marks;
};

/// Keeps what stands on the screen: a frame drops what its dirty rectangle touches, and what lies beyond the screen,
/// and keeps what is painted anew. An opaque fill covers the texts that lie wholly below it.
class RecordingCanvas final : public Canvas {
public:
    /// The measurer is borrowed.
    explicit RecordingCanvas(TextMeasurer& measurer)
        : measurer_(measurer) { }

    const std::vector<PaintedText>& Texts() const { return texts_; }

    TextMeasurer& Measurer() override { return measurer_; }
    void SetMarks(const PaintMarks& marks) override { marks_ = marks; }
    void Fill(const RECT& rectangle, COLORREF color, int alpha) override;
    void Line(POINT /*from*/, POINT /*to*/, COLORREF /*color*/, int /*width*/) override { }
    void Frame(const RECT& /*rectangle*/, COLORREF /*color*/, int /*width*/) override { }
    void Polygon(std::span<const POINT> /*points*/, COLORREF /*color*/) override { }
    void Text(int x, int y, std::wstring_view text, const FontDescription& font, COLORREF color) override;
    void DrawPicture(const RECT& /*place*/, const Picture& /*picture*/) override { }

private:
    void Begin(const RECT& dirty) override;

    TextMeasurer& measurer_;
    std::vector<PaintedText> texts_;
    PaintMarks marks_;
};

} // namespace device
