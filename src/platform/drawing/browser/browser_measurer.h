#pragma once

#include "platform/drawing/canvas.h"

#include <map>
#include <string>
#include <unordered_map>
#include <utility>

namespace device {

/// Measures with the browser's own layout, at one canvas pixel a device pixel, in the device's faces.
class BrowserMeasurer final : public TextMeasurer {
public:
    FontMetrics Metrics(const FontDescription& font) override;
    int Width(const FontDescription& font, std::wstring_view text) override;
    std::vector<double> PrefixWidths(const FontDescription& font, std::wstring_view text) override;
    int CaretX(const FontDescription& font, std::wstring_view text, std::size_t index) override;

    /// The number by which the browser's side knows the font.
    int FontNumber(const FontDescription& font);

    static BrowserMeasurer& Instance();

private:
    struct Font {
        int number = 0;
        FontMetrics metrics;
    };
    struct Run {
        int width = -1; ///< not measured yet
        std::vector<double> carets; ///< as is an empty one
    };
    struct FontHash {
        std::size_t operator()(const FontDescription& font) const;
    };

    const Font& FindFont(const FontDescription& font);
    Run& FindRun(const Font& font, std::wstring_view text);

    std::unordered_map<FontDescription, Font, FontHash> fonts_;
    /// Measured already; all are given up when they become many.
    std::map<std::pair<int, std::wstring>, Run> runs_;
    std::size_t characters_ = 0; ///< of their texts
};

} // namespace device
