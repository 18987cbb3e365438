#include "platform/drawing/text_fit.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

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

bool IsBlank(wchar_t character) {
    return character == L' ' || character == L'\t';
}

/// How much of a text fits a width.
class TextPrefixes {
public:
    TextPrefixes(TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, int width)
        : measurer_(measurer)
        , font_(font)
        , text_(text)
        , width_(width) { }

    bool Fits(std::size_t length) const { return measurer_.Width(font_, text_.substr(0, length)) <= width_; }
    /// A length that fits, the whole one if it does, and one that does not. What is measured stays within a few times
    /// what fits, however long the text is.
    std::pair<std::size_t, std::size_t> Widen() const {
        std::size_t good = 0;
        std::size_t bad = UsualLine;
        while (bad < text_.size() && Fits(bad)) {
            good = bad;
            bad *= 2;
        }
        if (bad >= text_.size()) {
            if (Fits(text_.size()))
                return {text_.size(), text_.size()};
            bad = text_.size();
        }
        return {good, bad};
    }
    /// Which length from `good` on fits by the carets of the first `bad` characters.
    std::size_t Guess(std::size_t good, std::size_t bad) const {
        const std::wstring_view laidOut = text_.substr(0, bad);
        while (bad - good > 1) {
            const std::size_t middle = good + (bad - good) / 2;
            (measurer_.CaretX(font_, laidOut, middle) <= width_ ? good : bad) = middle;
        }
        return good;
    }

private:
    static constexpr std::size_t UsualLine = 64;

    TextMeasurer& measurer_;
    const FontDescription& font_;
    std::wstring_view text_;
    int width_;
};

/// The line of `text` from `start`, which ends at `stop` at the latest.
TextLine WrapLine(TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, std::size_t start,
    std::size_t stop, int width) {
    const std::wstring_view rest = text.substr(start, stop - start);
    const std::size_t fits = FittingLength(measurer, font, rest, width);
    if (fits == rest.size())
        return {start, stop, stop};
    std::size_t cut = fits;
    while (cut > 0 && !IsBlank(rest[cut]))
        --cut;
    const std::size_t firstWord = std::min(rest.find_first_not_of(L" \t"), rest.size());
    if (cut <= firstWord) {
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

std::size_t FittingLength(TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, int width) {
    const TextPrefixes prefixes(measurer, font, text, width);
    auto [good, bad] = prefixes.Widen();
    if (good == text.size())
        return good;
    // Its carets are known once a text is laid out; only the shaping at the cut itself may differ a little.
    const std::size_t guess = prefixes.Guess(good, bad);
    for (std::size_t length = guess; length < bad && length <= guess + 1; ++length) {
        if (length > good)
            (prefixes.Fits(length) ? good : bad) = length;
    }
    while (bad - good > 1) {
        const std::size_t middle = good + (bad - good) / 2;
        (prefixes.Fits(middle) ? good : bad) = middle;
    }
    return IsTextBoundary(text, good) ? good : PreviousTextBoundary(text, good);
}

std::wstring EllipsisText(TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, int width) {
    const auto [good, bad] = TextPrefixes(measurer, font, text, width).Widen();
    if (good == text.size())
        return std::wstring(text);
    const int room = width - measurer.Width(font, std::wstring_view(&Ellipsis, 1));
    std::size_t length = FittingLength(measurer, font, text.substr(0, bad), room);
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

std::vector<TextLine> BreakLines(
    TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, int width) {
    std::vector<TextLine> lines;
    std::size_t start = 0;
    for (;;) {
        const std::size_t stop = std::min(text.find_first_of(L"\r\n", start), text.size());
        do {
            lines.push_back(
                width > 0 ? WrapLine(measurer, font, text, start, stop, width) : TextLine{start, stop, stop});
            start = lines.back().next;
        } while (start < stop);
        if (stop == text.size())
            return lines;
        const bool pair = text[stop] == L'\r' && stop + 1 < text.size() && text[stop + 1] == L'\n';
        start = stop + (pair ? 2 : 1);
        lines.back().next = start;
    }
}

} // namespace device
