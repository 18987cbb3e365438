#include "records/utf8.h"

namespace {

constexpr char32_t replacement = 0xFFFD;

bool IsScalar(char32_t point) {
    return point <= 0x10FFFF && (point < 0xD800 || point > 0xDFFF);
}

void AppendUtf8(char32_t point, std::string* result) {
    const auto tail = [&](int shift) { return static_cast<char>(0x80 | ((point >> shift) & 0x3F)); };
    if (point < 0x80) {
        *result += static_cast<char>(point);
    } else if (point < 0x800) {
        *result += {static_cast<char>(0xC0 | (point >> 6)), tail(0)};
    } else if (point < 0x10000) {
        *result += {static_cast<char>(0xE0 | (point >> 12)), tail(6), tail(0)};
    } else {
        *result += {static_cast<char>(0xF0 | (point >> 18)), tail(12), tail(6), tail(0)};
    }
}

struct Lead {
    std::size_t length; ///< 0 for a byte that begins no character
    char32_t bits;
    char32_t smallest; ///< below it the character was written too long
};

Lead LeadOf(unsigned char byte) {
    if (byte >= 0xF0 && byte < 0xF8)
        return {4, byte & 0x07U, 0x10000};
    if (byte >= 0xE0 && byte < 0xF0)
        return {3, byte & 0x0FU, 0x800};
    if (byte >= 0xC0 && byte < 0xE0)
        return {2, byte & 0x1FU, 0x80};
    return {0, 0, 0};
}

/// Reads one character of more than one byte from the head of `text` and returns the bytes taken, 1 for a bad one.
std::size_t ReadCharacter(std::string_view text, char32_t* point) {
    *point = replacement;
    const Lead lead = LeadOf(static_cast<unsigned char>(text[0]));
    if (lead.length == 0 || lead.length > text.size())
        return 1;
    char32_t value = lead.bits;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) != 0x80U)
            return 1;
        value = (value << 6) | (byte & 0x3FU);
    }
    if (value < lead.smallest || !IsScalar(value))
        return 1;
    *point = value;
    return lead.length;
}

} // namespace

void EncodeUtf8(std::wstring_view text, std::string* result) {
    result->clear();
    for (const wchar_t character : text) {
        const auto point = static_cast<char32_t>(character);
        AppendUtf8(IsScalar(point) ? point : replacement, result);
    }
}

void DecodeUtf8(std::string_view text, std::wstring* result) {
    // No character takes fewer bytes than one, so the room is enough, and is cut to measure at the end.
    result->resize(text.size());
    wchar_t* out = result->data();
    for (std::size_t i = 0; i < text.size();) {
        const auto byte = static_cast<unsigned char>(text[i]);
        char32_t point = byte;
        if (byte >= 0x80)
            i += ReadCharacter(text.substr(i), &point);
        else
            ++i;
        *out++ = static_cast<wchar_t>(point ? point : replacement);
    }
    result->resize(static_cast<std::size_t>(out - result->data()));
}
