#include "platform/drawing/context_state.h"
#include "platform/drawing/rectangles.h"
#include "platform/drawing/text_fit.h"

#include <cwchar>
#include <string>

namespace device {

namespace {

/// An ampersand marks the letter behind it; two stand for one.
std::wstring WithoutPrefixes(std::wstring_view text) {
    std::wstring result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&' && ++i == text.size())
            break;
        result += text[i];
    }
    return result;
}

std::vector<TextLine> LinesToDraw(
    TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, int width, UINT format) {
    if ((format & DT_SINGLELINE) != 0)
        return {{0, text.size(), text.size()}};
    std::vector<TextLine> lines
        = BreakLines(measurer, font, text, (format & DT_WORDBREAK) != 0 ? std::max(width, 1) : 0);
    // A line end at the end of a text ends its last line and begins no other.
    if (lines.size() > 1 && lines.back().start == text.size())
        lines.pop_back();
    return lines;
}

int AlignedLeft(const RECT& place, int width, UINT format) {
    if ((format & DT_RIGHT) != 0)
        return place.right - width;
    if ((format & DT_CENTER) != 0)
        return place.left + (place.right - place.left - width) / 2;
    return place.left;
}

/// One call of DrawTextW: where and how its lines go. `place` is in the canvas's coordinates.
struct TextBlock {
    const Context& context;
    RECT place;
    UINT format;
    TextMeasurer& measurer = context.canvas->Measurer();
    const FontDescription& font = *context.state.fontDescription;
    FontMetrics metrics = measurer.Metrics(font);

    int LineHeight() const { return metrics.Height() + metrics.externalLeading; }
    int Height(const std::vector<TextLine>& lines) const { return static_cast<int>(lines.size()) * LineHeight(); }
    void Draw(std::wstring_view text, const std::vector<TextLine>& lines) const;
};

void TextBlock::Draw(std::wstring_view text, const std::vector<TextLine>& lines) const {
    const ContextPainter painter(context, (format & DT_NOCLIP) != 0 ? context.state.clip : place);
    if (!painter.Shows())
        return;
    const int room = place.right - place.left;
    int top = place.top;
    if ((format & DT_VCENTER) != 0 && (format & DT_SINGLELINE) != 0)
        top += (place.bottom - place.top - Height(lines)) / 2;
    for (const TextLine& line : lines) {
        std::wstring run(text.substr(line.start, line.end - line.start));
        if ((format & DT_END_ELLIPSIS) != 0)
            run = EllipsisText(measurer, font, run, room);
        painter->Text(AlignedLeft(place, measurer.Width(font, run), format), top, run, font, context.state.textColor);
        top += LineHeight();
    }
}

} // namespace

} // namespace device

using namespace device;

BOOL GetTextMetricsW(HDC context, TEXTMETRICW* metrics) {
    const Context* found = FindContext(context);
    if (found == nullptr || metrics == nullptr)
        return FALSE;
    const FontMetrics known = found->canvas->Measurer().Metrics(*found->state.fontDescription);
    metrics->tmHeight = known.Height();
    metrics->tmExternalLeading = known.externalLeading;
    metrics->tmAveCharWidth = known.averageWidth;
    return TRUE;
}

BOOL GetTextExtentPoint32W(HDC context, const wchar_t* text, int length, SIZE* size) {
    const Context* found = FindContext(context);
    if (found == nullptr || size == nullptr || length < 0 || (text == nullptr && length > 0))
        return FALSE;
    TextMeasurer& measurer = found->canvas->Measurer();
    const FontDescription& font = *found->state.fontDescription;
    const std::wstring_view run = length == 0 ? std::wstring_view() : std::wstring_view(text, length);
    *size = {measurer.Width(font, run), measurer.Metrics(font).Height()};
    return TRUE;
}

int DrawTextW(HDC context, const wchar_t* text, int length, RECT* rectangle, UINT format) {
    const Context* found = FindContext(context);
    if (found == nullptr || text == nullptr || rectangle == nullptr || length < -1)
        return 0;
    std::wstring shown(text, length == -1 ? std::wcslen(text) : static_cast<std::size_t>(length));
    if ((format & DT_NOPREFIX) == 0)
        shown = WithoutPrefixes(shown);
    const TextBlock block{*found, Moved(*rectangle, found->origin), format};
    const std::vector<TextLine> lines
        = LinesToDraw(block.measurer, block.font, shown, rectangle->right - rectangle->left, format);
    if (!shown.empty())
        block.Draw(shown, lines);
    return block.Height(lines);
}
