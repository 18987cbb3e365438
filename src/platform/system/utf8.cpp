#include "platform/utf8.h"

namespace device {
namespace {

constexpr char32_t Replacement = 0xFFFD;

bool IsScalar(char32_t point) {
    return point <= 0x10FFFF && (point < 0xD800 || point > 0xDFFF);
}

void Append(std::string& bytes, char32_t point) {
    const auto continuation = [&](unsigned shift) { bytes += static_cast<char>(0x80U | ((point >> shift) & 0x3FU)); };
    if (point < 0x80) {
        bytes += static_cast<char>(point);
    } else if (point < 0x800) {
        bytes += static_cast<char>(0xC0U | (point >> 6U));
        continuation(0);
    } else if (point < 0x10000) {
        bytes += static_cast<char>(0xE0U | (point >> 12U));
        continuation(6);
        continuation(0);
    } else {
        bytes += static_cast<char>(0xF0U | (point >> 18U));
        continuation(12);
        continuation(6);
        continuation(0);
    }
}

/// How many bytes a sequence has that begins with `lead`; 0 for a byte that begins none.
std::size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

/// Takes one code point off the front of `bytes`; a broken sequence costs its first byte only, so that what
/// follows it is not lost.
char32_t TakePoint(std::string_view& bytes) {
    static constexpr char32_t Least[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(bytes.front());
    const std::size_t length = SequenceLength(lead);
    char32_t point = length == 1 ? lead : lead & (0x7FU >> length);
    bool good = length != 0 && length <= bytes.size();
    for (std::size_t i = 1; good && i < length; ++i) {
        const auto next = static_cast<unsigned char>(bytes[i]);
        good = (next & 0xC0U) == 0x80;
        point = (point << 6U) | (next & 0x3FU);
    }
    good = good && point >= Least[length] && IsScalar(point);
    bytes.remove_prefix(good ? length : 1);
    return good ? point : Replacement;
}

} // namespace

std::string ToUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (const wchar_t character : text) {
        const auto point = static_cast<char32_t>(character);
        Append(bytes, IsScalar(point) ? point : Replacement);
    }
    return bytes;
}

std::wstring FromUtf8(std::string_view bytes) {
    std::wstring text;
    FromUtf8(bytes, &text);
    return text;
}

void FromUtf8(std::string_view bytes, std::wstring* text) {
    // No character takes fewer bytes than one, so the room is enough, and is cut to measure at the end.
    text->resize(bytes.size());
    wchar_t* out = text->data();
    while (!bytes.empty())
        *out++ = static_cast<wchar_t>(TakePoint(bytes));
    text->resize(static_cast<std::size_t>(out - text->data()));
}

} // namespace device
