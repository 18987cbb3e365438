#include "platform/drawing/browser/browser_measurer.h"

#include "platform/drawing/browser/library.h"
#include "platform/drawing/text_fit.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace device {

namespace {

/// Upwards, but for what is lost in sums of parts of a pixel.
int WholePixels(double width) {
    return static_cast<int>(std::ceil(width - 1.0 / 1024));
}

} // namespace

std::size_t BrowserMeasurer::FontHash::operator()(const FontDescription& font) const {
    const std::size_t traits = (static_cast<std::size_t>(font.height) * 2 + (font.italic ? 1 : 0)) * 1009U;
    return std::hash<std::wstring>{}(font.face) ^ (traits + static_cast<std::size_t>(font.weight));
}

BrowserMeasurer& BrowserMeasurer::Instance() {
    // Outlives every static object of a program that may still measure while it is torn down.
    static auto* const instance = new BrowserMeasurer;
    return *instance;
}

TextMeasurer& DeviceMeasurer() {
    return BrowserMeasurer::Instance();
}

const BrowserMeasurer::Font& BrowserMeasurer::FindFont(const FontDescription& font) {
    const auto [place, isNew] = fonts_.try_emplace(font);
    Font& found = place->second;
    if (!isNew)
        return found;
    const int isCondensed = font.face == DialogFace ? 0 : 1;
    const int weight = std::clamp(font.weight, 100, 1000);
    double ascent = 0;
    double descent = 0;
    odoledgerFontExtent(isCondensed, weight, font.italic ? 1 : 0, &ascent, &descent);
    const int height = std::clamp(font.height, -MaximumFontHeight, MaximumFontHeight);
    const double size = height > 0 ? height / std::max(ascent + descent, 0.1) : std::max(-height, 1);
    found.number = odoledgerFontMake(isCondensed, weight, font.italic ? 1 : 0, size);

    FontMetrics& metrics = found.metrics;
    // Upwards: accents on capitals reach past the ascent that faces claim.
    metrics.ascent = static_cast<int>(height > 0 ? std::lround(size * ascent) : std::ceil(size * ascent));
    metrics.descent = height > 0 ? height - metrics.ascent : static_cast<int>(std::lround(size * descent));
    const auto letters = static_cast<int>(Alphabet.size());
    const int width = WholePixels(odoledgerTextWidth(found.number, DrawableUtf8(Alphabet).c_str()));
    metrics.averageWidth = (width + letters / 2) / letters;
    return found;
}

BrowserMeasurer::Run& BrowserMeasurer::FindRun(const Font& font, std::wstring_view text) {
    if (runs_.size() >= MaximumRuns || characters_ >= MaximumCharacters) {
        runs_.clear();
        characters_ = 0;
    }
    const auto [place, isNew] = runs_.try_emplace({font.number, std::wstring(text)});
    if (isNew)
        characters_ += text.size();
    return place->second;
}

FontMetrics BrowserMeasurer::Metrics(const FontDescription& font) {
    return FindFont(font).metrics;
}

int BrowserMeasurer::FontNumber(const FontDescription& font) {
    return FindFont(font).number;
}

int BrowserMeasurer::Width(const FontDescription& font, std::wstring_view text) {
    if (text.empty())
        return 0;
    const Font& found = FindFont(font);
    Run& run = FindRun(found, text);
    if (run.width < 0)
        run.width = WholePixels(odoledgerTextWidth(found.number, DrawableUtf8(text).c_str()));
    return run.width;
}

std::vector<double> BrowserMeasurer::PrefixWidths(const FontDescription& font, std::wstring_view text) {
    std::vector<double> widths(text.size() + 1);
    odoledgerTextAdvances(FindFont(font).number, DrawableUtf8(text).c_str(), widths.data() + 1);
    for (std::size_t index = 1; index < widths.size(); ++index)
        widths[index] += widths[index - 1];
    return widths;
}

int BrowserMeasurer::CaretX(const FontDescription& font, std::wstring_view text, std::size_t index) {
    if (text.empty())
        return 0;
    const Font& found = FindFont(font);
    Run& run = FindRun(found, text);
    if (run.carets.empty()) {
        run.carets.resize(text.size() + 1);
        odoledgerTextCarets(found.number, DrawableUtf8(text).c_str(), run.carets.data());
    }
    return static_cast<int>(std::lround(run.carets[std::min(index, text.size())]));
}

} // namespace device
