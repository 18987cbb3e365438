#include "platform/system/date_pattern.h"

#include <algorithm>

namespace device {
namespace {

bool IsPatternLetter(wchar_t character) {
    return (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z');
}

/// Takes literal text off the front, up to the next pattern letter outside quotes.
std::wstring TakeLiteral(const std::wstring& pattern, std::size_t& place) {
    std::wstring text;
    bool quoted = false;
    for (; place < pattern.size() && (quoted || !IsPatternLetter(pattern[place])); ++place) {
        if (pattern[place] != L'\'') {
            text += pattern[place];
        } else if (place + 1 < pattern.size() && pattern[place + 1] == L'\'') {
            // Two quotes stand for one.
            text += pattern[place++];
        } else {
            quoted = !quoted;
        }
    }
    return text;
}

std::optional<ShortDatePart> FieldPart(wchar_t letter, std::size_t length) {
    switch (letter) {
    case L'd':
        return ShortDatePart{ShortDatePart::Kind::Day, {}, length == 2};
    case L'M':
    case L'L':
        return length > 2 ? std::nullopt : std::optional{ShortDatePart{ShortDatePart::Kind::Month, {}, length == 2}};
    case L'y':
    case L'u':
        return ShortDatePart{ShortDatePart::Kind::Year, {}, false};
    default:
        return std::nullopt;
    }
}

bool HasOnce(const std::vector<ShortDatePart>& parts, ShortDatePart::Kind kind) {
    return std::count_if(parts.begin(), parts.end(), [kind](const ShortDatePart& part) { return part.kind == kind; })
        == 1;
}

bool IsWhole(const std::vector<ShortDatePart>& parts) {
    using Kind = ShortDatePart::Kind;
    return HasOnce(parts, Kind::Day) && HasOnce(parts, Kind::Month) && HasOnce(parts, Kind::Year);
}

} // namespace

std::optional<std::vector<ShortDatePart>> PartsOfPattern(const std::wstring& pattern) {
    std::vector<ShortDatePart> parts;
    for (std::size_t place = 0; place < pattern.size();) {
        if (std::wstring text = TakeLiteral(pattern, place); !text.empty()) {
            parts.push_back({ShortDatePart::Kind::Literal, std::move(text), false});
            continue;
        }
        const std::size_t begin = place;
        place = std::min(pattern.find_first_not_of(pattern[begin], begin), pattern.size());
        if (pattern[begin] == L'G')
            continue;
        auto part = FieldPart(pattern[begin], place - begin);
        if (!part)
            return std::nullopt;
        parts.push_back(std::move(*part));
    }
    return IsWhole(parts) ? std::optional{std::move(parts)} : std::nullopt;
}

} // namespace device
