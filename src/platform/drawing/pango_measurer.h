#pragma once

#include "platform/drawing/canvas.h"

#include <list>
#include <memory>
#include <pango/pangocairo.h>
#include <unordered_map>

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
    struct Run;
    struct RunKey {
        const Font* font;
        std::wstring_view text;
        bool operator==(const RunKey&) const = default;
    };
    struct Extent { ///< parts of the size
        double ascent;
        double descent;
    };
    struct FontHash {
        std::size_t operator()(const FontDescription& font) const;
    };
    struct RunHash {
        std::size_t operator()(const RunKey& key) const;
    };

    Extent ExtentOf(PangoFontDescription* description) const;
    Font& FindFont(const FontDescription& font);
    Run& FindRun(const FontDescription& font, std::wstring_view text);
    Run& MakeRun(const Font& font, std::wstring_view text);
    void Trim();

    PangoContext* context_;
    std::unordered_map<FontDescription, std::unique_ptr<Font>, FontHash> fonts_;
    /// The most recently used first; the keys of `found_` look into the texts here.
    std::list<Run> runs_;
    std::unordered_map<RunKey, std::list<Run>::iterator, RunHash> found_;
    std::size_t characters_ = 0;
};

} // namespace device
