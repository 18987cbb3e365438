#include "platform/system/locale_name.h"

#include <regex>

namespace device {
namespace {

constexpr std::size_t LongestName = 128;

// A language with its script and its region, or one of the two plain names; then a code set and a modifier, which is
// a word or a list of keywords. Variants are passed over: what they change is spelling, and one of them ("POSIX")
// takes the grouping away.
constexpr const char* Pattern = "(?:C|POSIX|([A-Za-z]{2,3})(?:[_-]([A-Za-z]{4}))?"
                                "(?:[_-][A-Za-z0-9]{4,})*(?:[_-]([A-Za-z]{2}|[0-9]{3}))?(?:[_-][A-Za-z0-9]{4,})*)"
                                "(?:[.][A-Za-z0-9_-]+)?"
                                "(?:@([A-Za-z0-9_-]+)|(@[A-Za-z0-9_-]+=[A-Za-z0-9_-]+"
                                "(?:;[A-Za-z0-9_-]+=[A-Za-z0-9_-]+)*))?";

// Basic letters and digits, whatever locale the process runs in.

std::string Lower(std::string text) {
    for (char& character : text)
        character = static_cast<char>(character | 0x20);
    return text;
}

std::string Upper(std::string text) {
    for (char& character : text)
        character = static_cast<char>(character >= 'a' ? character & ~0x20 : character);
    return text;
}

std::string ScriptOfModifier(std::string_view modifier) {
    if (modifier == "latin")
        return "Latn";
    if (modifier == "cyrillic")
        return "Cyrl";
    return modifier == "devanagari" ? "Deva" : "";
}

} // namespace

std::optional<std::string> LocaleName(std::string_view name) {
    std::cmatch parts;
    if (name.size() > LongestName
        || !std::regex_match(name.data(), name.data() + name.size(), parts, std::regex{Pattern}))
        return std::nullopt;
    const std::string language = Lower(parts[1]);
    const std::string region = Upper(parts[3]);
    if (language.empty())
        return "en_US";
    std::string script = Lower(parts[2]);
    script = script.empty() ? ScriptOfModifier(parts[4].str()) : Upper(script.substr(0, 1)) + script.substr(1);
    return language + (script.empty() ? "" : '_' + script) + (region.empty() ? "" : '_' + region) + parts[5].str();
}

} // namespace device
