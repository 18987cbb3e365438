#include "platform/drawing/text_fit.h"

#include "platform/utf8.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace device {

namespace {

constexpr wchar_t Ellipsis = L'\u2026';
constexpr char32_t ZeroWidthJoiner = 0x200D;

struct CharacterRange {
    char32_t first;
    char32_t last;
};

/// Characters that join the one before them: combining marks, joiners, variation selectors, skin tones, tags.
constexpr CharacterRange Joining[] = {{0x300, 0x36F}, {0x483, 0x489}, {0x591, 0x5BD}, {0x5BF, 0x5BF}, {0x5C1, 0x5C2},
    {0x5C4, 0x5C5}, {0x5C7, 0x5C7}, {0x610, 0x61A}, {0x64B, 0x65F}, {0x670, 0x670}, {0x6D6, 0x6DC}, {0x6DF, 0x6E4},
    {0x6E7, 0x6E8}, {0x6EA, 0x6ED}, {0x711, 0x711}, {0x730, 0x74A}, {0x7A6, 0x7B0}, {0x900, 0x903}, {0x93A, 0x93C},
    {0x93E, 0x94F}, {0x951, 0x957}, {0x962, 0x963}, {0x981, 0x983}, {0x9BC, 0x9BC}, {0x9BE, 0x9CD}, {0xA01, 0xA03},
    {0xA3C, 0xA4D}, {0xA81, 0xA83}, {0xABC, 0xABC}, {0xABE, 0xACD}, {0xB01, 0xB03}, {0xB3C, 0xB3C}, {0xB3E, 0xB4D},
    {0xBBE, 0xBCD}, {0xC3E, 0xC4D}, {0xCBC, 0xCBC}, {0xCBE, 0xCCD}, {0xD3B, 0xD3C}, {0xD3E, 0xD4D}, {0xDCA, 0xDDF},
    {0xE31, 0xE31}, {0xE34, 0xE3A}, {0xE47, 0xE4E}, {0xEB1, 0xEB1}, {0xEB4, 0xEBC}, {0xEC8, 0xECD}, {0xF18, 0xF19},
    {0xF71, 0xF84}, {0x102B, 0x103E}, {0x135D, 0x135F}, {0x17B4, 0x17D3}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF},
    {0x200D, 0x200D}, {0x20D0, 0x20F0}, {0x302A, 0x302F}, {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F},
    {0x1F3FB, 0x1F3FF}, {0xE0020, 0xE007F}, {0xE0100, 0xE01EF}};

bool JoinsBefore(wchar_t unit) {
    const auto character = static_cast<char32_t>(unit);
    if (character < Joining[0].first)
        return false;
    const auto* after = std::upper_bound(std::begin(Joining), std::end(Joining), character,
        [](char32_t value, const CharacterRange& range) { return value < range.first; });
    return after != std::begin(Joining) && character <= std::prev(after)->last;
}

bool IsRegional(wchar_t unit) {
    const auto character = static_cast<char32_t>(unit);
    return character >= 0x1F1E6 && character <= 0x1F1FF;
}

bool IsDrawnBlank(wchar_t character) {
    return (character >= 0x9 && character <= 0xD) || character == 0x85 || character == 0x2028 || character == 0x2029;
}

bool IsBlank(wchar_t character) {
    return character == L' ' || character == L'\t';
}

} // namespace

bool IsTextBoundary(std::wstring_view text, std::size_t index) {
    if (index == 0 || index >= text.size())
        return true;
    if (JoinsBefore(text[index]) || static_cast<char32_t>(text[index - 1]) == ZeroWidthJoiner)
        return false;
    if (!IsRegional(text[index]))
        return true;
    // Two regional letters make one flag: the cut is right after an even number of them.
    std::size_t letters = 0;
    while (letters < index && IsRegional(text[index - 1 - letters]))
        ++letters;
    return letters % 2 == 0;
}

std::size_t NextTextBoundary(std::wstring_view text, std::size_t index) {
    do
        ++index;
    while (!IsTextBoundary(text, index));
    return std::min(index, text.size());
}

std::size_t PreviousTextBoundary(std::wstring_view text, std::size_t index) {
    if (index == 0)
        return 0;
    index = std::min(index, text.size());
    do
        --index;
    while (!IsTextBoundary(text, index));
    return index;
}

bool IsControlCharacter(wchar_t character) {
    return character < L' ' || (character >= 0x7F && character < 0xA0);
}

std::wstring DrawableText(std::wstring_view text) {
    std::wstring drawable(text);
    for (wchar_t& character : drawable)
        character = IsDrawnBlank(character) ? L' ' : IsControlCharacter(character) ? L'\uFFFD' : character;
    return drawable;
}

std::string DrawableUtf8(std::wstring_view text) {
    return ToUtf8(DrawableText(text));
}

LineBreaker::LineBreaker(TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, int width)
    : measurer_(measurer)
    , font_(font)
    , text_(text)
    , width_(width) {
}

TextLine LineBreaker::Next(std::size_t start) {
    if (start < paragraph_ || start > stop_) {
        paragraph_ = start;
        stop_ = std::min(text_.find_first_of(L"\r\n", start), text_.size());
    }
    TextLine line = width_ > 0 ? Wrap(start) : TextLine{start, stop_, stop_};
    if (line.next == stop_ && stop_ < text_.size()) {
        const bool isPair = text_.compare(stop_, 2, L"\r\n") == 0;
        line.next += isPair ? 2 : 1;
    }
    return line;
}

bool LineBreaker::IsLast(const TextLine& line) const {
    return line.next == text_.size() && stop_ == text_.size();
}

/// What stands before `start` does not change the shapes behind it.
bool LineBreaker::IsParted(std::size_t start) const {
    return start == 0
        || (IsTextBoundary(text_, start)
            && std::wstring_view(L" \t\r\n").find(text_[start - 1]) != std::wstring_view::npos);
}

std::size_t LineBreaker::Fit(std::size_t start) {
    const bool isParted = IsParted(start);
    for (std::size_t length = isParted ? UsualPiece : UsualLine;; length *= 2) {
        const std::size_t end = std::min(pieceStart_ + widths_.size() - 1, stop_);
        if (start == pieceStart_ || (isParted && start > pieceStart_ && start <= end)) {
            const auto first = widths_.begin() + static_cast<std::ptrdiff_t>(start - pieceStart_);
            const auto last = widths_.begin() + static_cast<std::ptrdiff_t>(end - pieceStart_) + 1;
            const auto beyond = std::upper_bound(first, last, *first + width_);
            if (beyond != last || end == stop_)
                return static_cast<std::size_t>(beyond - first) - 1;
        }
        // Not by paragraphs: there may be as many as characters.
        pieceStart_ = start;
        widths_ = measurer_.PrefixWidths(font_, text_.substr(start, length));
    }
}

TextLine LineBreaker::Wrap(std::size_t start) {
    const std::wstring_view rest = text_.substr(start, stop_ - start);
    std::size_t fits = Fit(start);
    if (fits == rest.size())
        return {start, stop_, stop_};
    std::size_t cut = fits;
    while (cut > 0 && !IsBlank(rest[cut]))
        --cut;
    const bool hasWord = rest.substr(0, cut).find_first_not_of(L" \t") != std::wstring_view::npos;
    if (!hasWord) {
        fits = IsTextBoundary(rest, fits) ? fits : PreviousTextBoundary(rest, fits);
        // Letters that join take other shapes where they are parted.
        while (fits > 0 && measurer_.Width(font_, rest.substr(0, fits)) > width_)
            fits = PreviousTextBoundary(rest, fits);
        const std::size_t end = start + std::max(fits, NextTextBoundary(rest, 0));
        return {start, end, end};
    }
    std::size_t next = cut;
    while (next < rest.size() && IsBlank(rest[next]))
        ++next;
    while (cut > 0 && IsBlank(rest[cut - 1]))
        --cut;
    return {start, start + cut, start + next};
}

std::vector<TextLine> BreakLines(
    TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, int width) {
    LineBreaker breaker(measurer, font, text, width);
    std::vector<TextLine> lines{breaker.Next(0)};
    while (!breaker.IsLast(lines.back()))
        lines.push_back(breaker.Next(lines.back().next));
    return lines;
}

std::wstring EllipsisText(TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, int width) {
    if (text.empty())
        return {};
    // Of a text that is far longer than a line no more is laid out than may show.
    std::size_t shown = std::min(text.size(), LineBreaker::UsualPiece);
    while (measurer.Width(font, text.substr(0, shown)) <= width) {
        if (shown == text.size())
            return std::wstring(text);
        shown = std::min(2 * shown, text.size());
    }
    const std::vector<double> widths = measurer.PrefixWidths(font, text.substr(0, shown));
    const int room = width - measurer.Width(font, std::wstring_view(&Ellipsis, 1));
    const auto beyond = std::upper_bound(widths.begin() + 1, widths.end(), room);
    auto length = static_cast<std::size_t>(beyond - widths.begin()) - 1;
    if (!IsTextBoundary(text, length))
        length = PreviousTextBoundary(text, length);
    std::wstring result;
    for (;;) {
        result.assign(text.substr(0, length));
        result += Ellipsis;
        // Shaping may make the pair wider than its parts.
        if (length == 0 || measurer.Width(font, result) <= width)
            return result;
        length = PreviousTextBoundary(text, length);
    }
}

} // namespace device
