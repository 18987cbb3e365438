#include "hosts/console/registry_command.h"

#include "hosts/console/text_form.h"
#include "platform/registry.h"
#include "platform/system/registry_file.h"
#include "platform/utf8.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace device {

namespace {

std::string Hex(const std::vector<BYTE>& bytes) {
    std::string text;
    for (const BYTE byte : bytes) {
        std::array<char, 3> digits{};
        std::snprintf(digits.data(), digits.size(), "%02x", byte);
        text += digits.data();
    }
    return text;
}

std::string Told(const NamedRegistryValue& named) {
    const std::string name = OneLine(named.name);
    switch (named.value.type) {
    case REG_DWORD:
        return name + " dword " + std::to_string(named.value.Number());
    case REG_SZ:
        return name + " string " + Quoted(named.value.Text());
    case REG_EXPAND_SZ:
        return name + " expand " + Quoted(named.value.Text());
    default:
        return name + " binary " + Hex(named.value.data);
    }
}

/// The text up to the next blank, taken off the front of `rest`.
std::string TakeWord(std::string& rest) {
    const std::size_t space = rest.find(' ');
    std::string word = rest.substr(0, space);
    rest = space == std::string::npos ? std::string() : rest.substr(space + 1);
    return word;
}

std::optional<RegistryValue> ParseNumber(const std::string& text) {
    if (text.empty() || text.size() > 10 || text.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    const unsigned long long number = std::strtoull(text.c_str(), nullptr, 10);
    if (number > 0xFFFFFFFFULL)
        return std::nullopt;
    return RegistryValue::OfNumber(static_cast<DWORD>(number));
}

std::optional<RegistryValue> ParseHex(const std::string& text) {
    if (text.size() % 2 != 0 || text.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
        return std::nullopt;
    RegistryValue value{REG_BINARY, {}};
    for (std::size_t index = 0; index < text.size(); index += 2)
        value.data.push_back(static_cast<BYTE>(std::strtoul(text.substr(index, 2).c_str(), nullptr, 16)));
    return value;
}

std::optional<RegistryValue> ParseValue(const std::string& kind, const std::string& text) {
    if (kind == "dword")
        return ParseNumber(text);
    if (kind == "binary")
        return ParseHex(text);
    std::wstring plain;
    if ((kind != "string" && kind != "expand") || !Unquote(text, plain))
        return std::nullopt;
    return RegistryValue::OfText(plain, kind == "string" ? REG_SZ : REG_EXPAND_SZ);
}

std::vector<std::string> Set(const std::wstring& key, std::string rest) {
    const std::string name = TakeWord(rest);
    const std::string kind = TakeWord(rest);
    const auto value = ParseValue(kind, rest);
    if (name.empty() || !value)
        return {"? registry set NAME dword N, string \"TEXT\", expand \"TEXT\" or binary HEX"};
    if (SetRegistryValue(key, FromUtf8(name), *value) != ERROR_SUCCESS)
        return {"? the registry cannot be written"};
    return {};
}

std::vector<std::string> Remove(const std::wstring& key, const std::string& name) {
    if (name.empty() || name.find(' ') != std::string::npos)
        return {"? registry delete NAME"};
    const LONG error = DeleteRegistryValue(key, FromUtf8(name));
    if (error == ERROR_FILE_NOT_FOUND)
        return {"? no such value"};
    if (error != ERROR_SUCCESS)
        return {"? the registry cannot be written"};
    return {};
}

} // namespace

std::vector<std::string> RegistryCommand(const std::wstring& key, const std::string& arguments) {
    std::string rest = arguments;
    const std::string verb = TakeWord(rest);
    if (verb == "set")
        return Set(key, rest);
    if (verb == "delete")
        return Remove(key, rest);
    if (!verb.empty())
        return {"? registry, registry set or registry delete"};
    std::vector<std::string> lines;
    for (const NamedRegistryValue& named : ListRegistryValues(key))
        lines.push_back(Told(named));
    return lines;
}

} // namespace device
