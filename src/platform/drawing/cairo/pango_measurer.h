#pragma once

#include "platform/drawing/canvas.h"

#include <map>
#include <memory>
#include <pango/pangocairo.h>
#include <string>
#include <unordered_map>
#include <utility>

namespace device {

/// Measures with Pango, and hands out the layouts that it measured for drawing. Glyphs are laid out unhinted at one
/// image pixel a device pixel, so that the same layout, scaled, is right at every zoom.
class PangoTextMeasurer final : public TextMeasurer {
public:
    PangoTextMeasurer();
    ~PangoTextMeasurer() override;
    PangoTextMeasurer(const PangoTextMeasurer&) = delete;
    PangoTextMeasurer& operator=(const PangoTextMeasurer&) = delete;

    FontMetrics Metrics(const FontDescription& font) override;
    int Width(const FontDescription& font, std::wstring_view text) override;
    std::vector<double> PrefixWidths(const FontDescription& font, std::wstring_view text) override;
    int CaretX(const FontDescription& font, std::wstring_view text, std::size_t index) override;

    /// The only line of the run; valid until the next call.
    PangoLayoutLine* Line(const FontDescription& font, std::wstring_view text);

    static PangoTextMeasurer& Instance();

private:
    struct Font;
    struct Run {
        explicit Run(PangoLayout* made)
            : layout(made) { }
        ~Run() { g_object_unref(layout); }
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;

        PangoLayout* layout;
        int width = 0;
    };
    struct Extent { ///< parts of the size
        double ascent;
        double descent;
    };
    struct FontHash {
        std::size_t operator()(const FontDescription& font) const;
    };

    Extent ExtentOf(PangoFontDescription* description) const;
    Font& FindFont(const FontDescription& font);
    Run& FindRun(const FontDescription& font, std::wstring_view text);
    Run& MakeRun(const Font& font, std::wstring_view text);

    PangoContext* context_;
    std::unordered_map<FontDescription, std::unique_ptr<Font>, FontHash> fonts_;
    /// Laid out already; all are given up when they become many.
    std::map<std::pair<const Font*, std::wstring>, Run> runs_;
    std::size_t characters_ = 0; ///< of their texts
};

} // namespace device
