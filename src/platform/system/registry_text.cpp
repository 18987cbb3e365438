#include "platform/system/registry_text.h"

#include "platform/registry.h"
#include "platform/utf8.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <string_view>

namespace device {
namespace {

constexpr std::string_view NumberPrefix = "dword:";
constexpr std::string_view TextPrefix = "sz:";
constexpr std::string_view ExpandPrefix = "expand:";
constexpr std::string_view BytesPrefix = "hex:";
constexpr const char* HexDigits = "0123456789abcdef";
/// A name of its own meaning to readers of key files, and the value without a name.
constexpr std::string_view ReservedName = "Encoding";
constexpr std::string_view NoName = "@";
/// What may follow a backslash in a text, and what it stands for.
constexpr std::string_view Letters = "snrt\\";
constexpr std::string_view Meanings = " \n\r\t\\";

bool IsPlain(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z')
        || (character >= '0' && character <= '9') || character == '-' || character == '_' || character == '.';
}

void AppendHex(std::string& text, char byte) {
    text += HexDigits[static_cast<unsigned char>(byte) >> 4U];
    text += HexDigits[static_cast<unsigned char>(byte) & 0xFU];
}

std::optional<BYTE> ByteFromHex(std::string_view digits) {
    BYTE byte = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    if (digits.size() != 2 || error != std::errc{} || end != digits.data() + 2)
        return std::nullopt;
    return byte;
}

bool TakePrefix(std::string_view& text, std::string_view prefix) {
    if (text.substr(0, prefix.size()) != prefix)
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

std::string EscapedText(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // A blank stands for itself but at the end of a line, where editors and readers cut it off.
        const bool isPlainBlank = text[i] == ' ' && i + 1 < text.size();
        const std::size_t meaning = isPlainBlank ? std::string_view::npos : Meanings.find(text[i]);
        if (meaning == std::string_view::npos)
            result += text[i];
        else
            result.append({'\\', Letters[meaning]});
    }
    return result;
}

std::optional<std::string> UnescapedText(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        const std::size_t letter = ++i < text.size() ? Letters.find(text[i]) : std::string_view::npos;
        if (letter == std::string_view::npos)
            return std::nullopt;
        result += Meanings[letter];
    }
    return result;
}

std::optional<RegistryValue> NumberFrom(std::string_view text) {
    DWORD number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return RegistryValue::OfNumber(number);
}

std::optional<RegistryValue> TextFrom(std::string_view text, DWORD type) {
    const auto plain = UnescapedText(text);
    // Text of another encoding was put there by something else than the device.
    if (!plain || plain->find('\0') != std::string::npos || ToUtf8(FromUtf8(*plain)) != *plain)
        return std::nullopt;
    return RegistryValue::OfText(FromUtf8(*plain), type);
}

std::optional<RegistryValue> BytesFrom(std::string_view text) {
    RegistryValue value{REG_BINARY, {}};
    while (!text.empty()) {
        const std::size_t comma = text.find(',');
        const auto byte = ByteFromHex(text.substr(0, comma));
        if (!byte || comma == text.size() - 1)
            return std::nullopt;
        value.data.push_back(*byte);
        text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
    }
    return value;
}

} // namespace

RegistryValue RegistryValue::OfNumber(DWORD number) {
    RegistryValue value{REG_DWORD, std::vector<BYTE>(sizeof number)};
    std::memcpy(value.data.data(), &number, sizeof number);
    return value;
}

RegistryValue RegistryValue::OfText(const std::wstring& text, DWORD type) {
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    RegistryValue value{type, std::vector<BYTE>(size)};
    std::memcpy(value.data.data(), text.c_str(), size);
    return value;
}

DWORD RegistryValue::Number() const {
    DWORD number = 0;
    std::memcpy(&number, data.data(), std::min(data.size(), sizeof number));
    return number;
}

std::wstring RegistryValue::Text() const {
    std::wstring text(data.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), data.data(), text.size() * sizeof(wchar_t));
    return text.substr(0, text.find(L'\0'));
}

std::string EscapedName(const std::wstring& name, const char* alsoAllowed) {
    const std::string bytes = ToUtf8(name);
    if (bytes.empty())
        return std::string{NoName};
    const bool isReserved = SameKeyName(bytes, ReservedName);
    std::string escaped;
    for (const char byte : bytes) {
        const bool isAllowed = IsPlain(byte) || (byte != '\0' && std::strchr(alsoAllowed, byte) != nullptr);
        if (isAllowed && !(isReserved && escaped.empty())) {
            escaped += byte;
        } else {
            escaped += '%';
            AppendHex(escaped, byte);
        }
    }
    return escaped;
}

std::wstring NameFromEscaped(const std::string& escaped) {
    if (escaped == NoName)
        return {};
    std::string bytes;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        const auto byte = escaped[i] == '%' ? ByteFromHex(std::string_view{escaped}.substr(i + 1, 2)) : std::nullopt;
        bytes += byte ? static_cast<char>(*byte) : escaped[i];
        i += byte ? 2 : 0;
    }
    return FromUtf8(bytes);
}

std::optional<std::string> ValueText(const RegistryValue& value) {
    switch (value.type) {
    case REG_DWORD:
        return std::string{NumberPrefix} + std::to_string(value.Number());
    case REG_SZ:
        return std::string{TextPrefix} + EscapedText(ToUtf8(value.Text()));
    case REG_EXPAND_SZ:
        return std::string{ExpandPrefix} + EscapedText(ToUtf8(value.Text()));
    case REG_BINARY: {
        std::string text{BytesPrefix};
        for (std::size_t i = 0; i < value.data.size(); ++i) {
            text += i == 0 ? "" : ",";
            AppendHex(text, static_cast<char>(value.data[i]));
        }
        return text;
    }
    default:
        return std::nullopt;
    }
}

std::optional<RegistryValue> ValueFromText(const std::string& text) {
    // Returns at the end belong to the line, which some editors end with more than one; a text has its own as "\\r".
    std::string_view rest = text;
    rest = rest.substr(0, rest.find_last_not_of('\r') + 1);
    if (TakePrefix(rest, NumberPrefix))
        return NumberFrom(rest);
    if (TakePrefix(rest, TextPrefix))
        return TextFrom(rest, REG_SZ);
    if (TakePrefix(rest, ExpandPrefix))
        return TextFrom(rest, REG_EXPAND_SZ);
    return TakePrefix(rest, BytesPrefix) ? BytesFrom(rest) : std::nullopt;
}

} // namespace device
