#pragma once

#include "platform/drawing/canvas.h"

namespace device {

/// Hands everything on to two canvases, which are borrowed and measure alike.
class ForkedCanvas final : public Canvas {
public:
    ForkedCanvas(Canvas& first, Canvas& second)
        : first_(first)
        , second_(second) { }

    TextMeasurer& Measurer() override { return first_.Measurer(); }
    void SetMarks(const PaintMarks& marks) override {
        first_.SetMarks(marks);
        second_.SetMarks(marks);
    }
    void Fill(const RECT& rectangle, COLORREF color, int alpha) override {
        first_.Fill(rectangle, color, alpha);
        second_.Fill(rectangle, color, alpha);
    }
    void Line(POINT from, POINT to, COLORREF color, int width) override {
        first_.Line(from, to, color, width);
        second_.Line(from, to, color, width);
    }
    void Frame(const RECT& rectangle, COLORREF color, int width) override {
        first_.Frame(rectangle, color, width);
        second_.Frame(rectangle, color, width);
    }
    void Polygon(std::span<const POINT> points, COLORREF color) override {
        first_.Polygon(points, color);
        second_.Polygon(points, color);
    }
    void Text(int x, int y, std::wstring_view text, const FontDescription& font, COLORREF color) override {
        first_.Text(x, y, text, font, color);
        second_.Text(x, y, text, font, color);
    }
    void DrawPicture(const RECT& place, const Picture& picture) override {
        first_.DrawPicture(place, picture);
        second_.DrawPicture(place, picture);
    }

private:
    void Begin(const RECT& dirty) override {
        first_.BeginFrame(dirty);
        second_.BeginFrame(dirty);
    }
    void Clip(const RECT& clip) override {
        first_.PushClip(clip);
        second_.PushClip(clip);
    }
    void Unclip() override {
        first_.PopClip();
        second_.PopClip();
    }

    Canvas& first_;
    Canvas& second_;
};

} // namespace device
