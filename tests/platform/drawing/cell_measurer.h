#pragma once

#include "platform/drawing/canvas.h"
#include "platform/drawing/text_fit.h"

/// 10 pixels a character, nothing for what joins the one before it; lines of 20 pixels.
class CellMeasurer final : public device::TextMeasurer {
public:
    device::FontMetrics Metrics(const device::FontDescription& /*font*/) override { return {16, 4, 0, 10}; }
    int Width(const device::FontDescription& /*font*/, std::wstring_view text) override {
        int cells = 0;
        for (std::size_t i = 0; i < text.size(); ++i)
            cells += device::IsTextBoundary(text, i) ? 1 : 0;
        ++Calls;
        LongestMeasured = std::max(LongestMeasured, text.size());
        return cells * 10;
    }
    std::vector<double> PrefixWidths(const device::FontDescription& font, std::wstring_view text) override {
        std::vector<double> widths{0};
        for (std::size_t i = 0; i < text.size(); ++i)
            widths.push_back(widths.back() + (device::IsTextBoundary(text, i) ? 10 : 0));
        Width(font, text);
        return widths;
    }
    int CaretX(const device::FontDescription& font, std::wstring_view text, std::size_t index) override {
        return Width(font, text.substr(0, index));
    }

    int Calls = 0;
    std::size_t LongestMeasured = 0;
};
