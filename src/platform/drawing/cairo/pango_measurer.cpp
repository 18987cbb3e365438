#include "platform/drawing/cairo/pango_measurer.h"

#include "platform/drawing/cairo/cairo_canvas.h"
#include "platform/drawing/text_fit.h"
#include "platform/system/environment.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

namespace device {

namespace {

constexpr char DeviceFace[] = "DejaVu Sans";

std::string Utf8Face(const std::wstring& face) {
    return face.empty() || face == DialogFace ? DeviceFace : DrawableUtf8(face);
}

} // namespace

struct PangoTextMeasurer::Font {
    explicit Font(const std::wstring& face)
        : description(pango_font_description_new()) {
        pango_font_description_set_family(description, Utf8Face(face).c_str());
        // Where there is no narrow cut the face's own width serves.
        pango_font_description_set_stretch(
            description, face == DialogFace ? PANGO_STRETCH_NORMAL : PANGO_STRETCH_CONDENSED);
    }
    ~Font() { pango_font_description_free(description); }
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    PangoFontDescription* description;
    FontMetrics metrics;
};

std::size_t PangoTextMeasurer::FontHash::operator()(const FontDescription& font) const {
    const std::size_t traits = (static_cast<std::size_t>(font.height) * 2 + (font.italic ? 1 : 0)) * 1009U;
    return std::hash<std::wstring>{}(font.face) ^ (traits + static_cast<std::size_t>(font.weight));
}

PangoTextMeasurer::PangoTextMeasurer() {
    // A map of its own: the shared one may be tuned by others to the display.
    PangoFontMap* map = pango_cairo_font_map_new();
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(map), 96.0);
    context_ = pango_font_map_create_context(map);
    g_object_unref(map);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    pango_cairo_context_set_font_options(context_, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context_, FALSE);
    // Fonts are found anew for each language; without one that the text's script fits the library guesses others.
    pango_context_set_language(context_, pango_language_from_string(TheEnvironment().numberLocale.c_str()));
}

PangoTextMeasurer::~PangoTextMeasurer() {
    g_object_unref(context_);
}

PangoTextMeasurer& PangoTextMeasurer::Instance() {
    // Outlives every static object of a program that may still measure while it is torn down.
    static auto* const instance = new PangoTextMeasurer;
    return *instance;
}

TextMeasurer& DeviceMeasurer() {
    return PangoTextMeasurer::Instance();
}

/// Of the face itself, whatever other faces stand in for characters that it lacks.
PangoTextMeasurer::Extent PangoTextMeasurer::ExtentOf(PangoFontDescription* description) const {
    constexpr double Size = double{MaximumFontHeight} * PANGO_SCALE;
    pango_font_description_set_absolute_size(description, Size);
    PangoFont* font = pango_context_load_font(context_, description);
    if (font == nullptr)
        return {0.8, 0.2};
    PangoFontMetrics* metrics = pango_font_get_metrics(font, nullptr);
    const Extent extent{pango_font_metrics_get_ascent(metrics) / Size, pango_font_metrics_get_descent(metrics) / Size};
    pango_font_metrics_unref(metrics);
    g_object_unref(font);
    return extent;
}

PangoTextMeasurer::Font& PangoTextMeasurer::FindFont(const FontDescription& font) {
    std::unique_ptr<Font>& place = fonts_[font];
    if (place)
        return *place;
    place = std::make_unique<Font>(font.face);
    PangoFontDescription* description = place->description;
    pango_font_description_set_weight(description, static_cast<PangoWeight>(std::clamp(font.weight, 100, 1000)));
    pango_font_description_set_style(description, font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);

    const Extent extent = ExtentOf(description);
    const double cell = std::max(extent.ascent + extent.descent, 0.1);
    const int height = std::clamp(font.height, -MaximumFontHeight, MaximumFontHeight);
    const double size = height > 0 ? height / cell : std::max(-height, 1);
    pango_font_description_set_absolute_size(description, size * PANGO_SCALE);

    FontMetrics& metrics = place->metrics;
    const double ascent = size * extent.ascent;
    const double descent = size * extent.descent;
    // Upwards: accents on capitals reach past the ascent that faces claim.
    metrics.ascent = static_cast<int>(height > 0 ? std::lround(ascent) : std::ceil(ascent));
    metrics.descent = height > 0 ? height - metrics.ascent : static_cast<int>(std::lround(descent));
    const auto letters = static_cast<int>(Alphabet.size());
    metrics.averageWidth = (MakeRun(*place, Alphabet).width + letters / 2) / letters;
    return *place;
}

PangoTextMeasurer::Run& PangoTextMeasurer::FindRun(const FontDescription& font, std::wstring_view text) {
    const Font& found = FindFont(font);
    const auto known = runs_.find({&found, std::wstring(text)});
    return known == runs_.end() ? MakeRun(found, text) : known->second;
}

PangoTextMeasurer::Run& PangoTextMeasurer::MakeRun(const Font& font, std::wstring_view text) {
    if (runs_.size() >= MaximumRuns || characters_ >= MaximumCharacters) {
        runs_.clear();
        characters_ = 0;
    }
    PangoLayout* layout = pango_layout_new(context_);
    const std::string utf8 = DrawableUtf8(text);
    pango_layout_set_single_paragraph_mode(layout, TRUE);
    pango_layout_set_font_description(layout, font.description);
    pango_layout_set_text(layout, utf8.data(), static_cast<int>(utf8.size()));
    Run& run = runs_.try_emplace({&font, std::wstring(text)}, layout).first->second;
    characters_ += text.size();
    PangoRectangle logical;
    pango_layout_get_extents(layout, nullptr, &logical);
    run.width = (logical.width + PANGO_SCALE - 1) / PANGO_SCALE;
    return run;
}

FontMetrics PangoTextMeasurer::Metrics(const FontDescription& font) {
    return FindFont(font).metrics;
}

int PangoTextMeasurer::Width(const FontDescription& font, std::wstring_view text) {
    return text.empty() ? 0 : FindRun(font, text).width;
}

std::vector<double> PangoTextMeasurer::PrefixWidths(const FontDescription& font, std::wstring_view text) {
    std::vector<double> widths(text.size() + 1);
    if (text.empty())
        return widths;
    PangoLayout* layout = FindRun(font, text).layout;
    const char* utf8 = pango_layout_get_text(layout);
    std::vector<int> advances(text.size());
    // In the order in which they stand on the line, which is not that of the text where directions mix.
    for (const GSList* each = pango_layout_get_line_readonly(layout, 0)->runs; each != nullptr; each = each->next) {
        const auto* run = static_cast<const PangoLayoutRun*>(each->data);
        const auto first = static_cast<std::size_t>(g_utf8_pointer_to_offset(utf8, utf8 + run->item->offset));
        pango_glyph_string_get_logical_widths(run->glyphs, utf8 + run->item->offset, run->item->length,
            run->item->analysis.level, advances.data() + first);
    }
    for (std::size_t index = 0; index < advances.size(); ++index)
        widths[index + 1] = widths[index] + static_cast<double>(advances[index]) / PANGO_SCALE;
    return widths;
}

int PangoTextMeasurer::CaretX(const FontDescription& font, std::wstring_view text, std::size_t index) {
    if (text.empty())
        return 0;
    const std::size_t before = DrawableUtf8(text.substr(0, std::min(index, text.size()))).size();
    PangoRectangle strong;
    pango_layout_get_cursor_pos(FindRun(font, text).layout, static_cast<int>(before), &strong, nullptr);
    return (strong.x + PANGO_SCALE / 2) / PANGO_SCALE;
}

PangoLayoutLine* PangoTextMeasurer::Line(const FontDescription& font, std::wstring_view text) {
    return pango_layout_get_line_readonly(FindRun(font, text).layout, 0);
}

} // namespace device

#ifdef __SANITIZE_ADDRESS__
extern "C" const char* __lsan_default_suppressions(); // NOLINT
// The fonts that are found are held where the leak check does not look, behind fontconfig's own packed tables; they are
// freed with the measurer, which lives as long as the process.
extern "C" const char* __lsan_default_suppressions() { // NOLINT: the sanitizer's name
    return "leak:libfontconfig\n";
}
#endif
