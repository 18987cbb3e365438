#include "exchange/decode_text.h"

#include "platform/utf8.h"

#include <algorithm>

namespace exchange {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

/// The characters from 0x80 to 0x9F; those above are the same as in Unicode. The five that there are not become
/// U+FFFD.
constexpr wchar_t Windows1252[] = {0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030,
    0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

/// The characters from 0x80 on.
constexpr wchar_t Windows1250[] = {0x20AC, 0xFFFD, 0x201A, 0xFFFD, 0x201E, 0x2026, 0x2020, 0x2021, 0xFFFD, 0x2030,
    0x0160, 0x2039, 0x015A, 0x0164, 0x017D, 0x0179, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0xFFFD, 0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A, 0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104,
    0x00A6, 0x00A7, 0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B, 0x00B0, 0x00B1, 0x02DB, 0x0142,
    0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C, 0x0154, 0x00C1,
    0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7, 0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE, 0x010E,
    0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7, 0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC, 0x00DD,
    0x0162, 0x00DF, 0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7, 0x010D, 0x00E9, 0x0119, 0x00EB,
    0x011B, 0x00ED, 0x00EE, 0x010F, 0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7, 0x0159, 0x016F,
    0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9};

constexpr int FirstBeyondAscii = 0x80;

wchar_t In1252(unsigned char byte) {
    const std::size_t place = byte - std::size_t{FirstBeyondAscii};
    return byte >= FirstBeyondAscii && place < std::size(Windows1252) ? Windows1252[place] : byte;
}

wchar_t In1250(unsigned char byte) {
    return byte >= FirstBeyondAscii ? Windows1250[byte - FirstBeyondAscii] : byte;
}

/// Line by line, so that a long text does not stand in memory once more.
bool IsUtf8(std::string_view bytes) {
    std::wstring wide;
    while (!bytes.empty()) {
        const std::string_view line = bytes.substr(0, bytes.find('\n'));
        device::FromUtf8(line, &wide);
        if (device::ToUtf8(wide) != line)
            return false;
        bytes.remove_prefix(std::min(line.size() + 1, bytes.size()));
    }
    return true;
}

/// By the words of the sections that Polish files have.
bool IsPolish(std::string_view bytes) {
    constexpr std::size_t Beginning = 65536;
    const std::string_view beginning = bytes.substr(0, Beginning);
    for (const char* word : {"#Tankowani", "#tankowani", "#Wydat", "#wydat", "#Serwis", "#serwis"})
        if (beginning.find(word) != std::string_view::npos)
            return true;
    return false;
}

} // namespace

const char* NameOf(Encoding encoding) {
    if (encoding == Encoding::Utf8)
        return "UTF-8";
    return encoding == Encoding::Windows1250 ? "Windows-1250" : "Windows-1252";
}

std::string DecodeText(std::string bytes, Encoding* encoding) {
    if (bytes.compare(0, ByteOrderMark.size(), ByteOrderMark) == 0)
        bytes.erase(0, ByteOrderMark.size());
    *encoding = Encoding::Utf8;
    if (IsUtf8(bytes))
        return bytes;
    const bool isPolish = IsPolish(bytes);
    *encoding = isPolish ? Encoding::Windows1250 : Encoding::Windows1252;
    std::wstring wide;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        wide += isPolish ? In1250(code) : In1252(code);
    }
    return device::ToUtf8(wide);
}

} // namespace exchange
