#include "platform/system/locale_name.h"

#include <algorithm>
#include <vector>

namespace device {
namespace {

bool IsLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool IsNamePart(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char character) {
        return IsLetter(character) || IsDigit(character) || character == '-' || character == '_';
    });
}

bool IsOf(std::string_view text, std::size_t least, std::size_t most, bool (*test)(char)) {
    return text.size() >= least && text.size() <= most && std::all_of(text.begin(), text.end(), test);
}

std::string Cased(std::string_view text, bool firstUpper, bool restUpper) {
    std::string result;
    for (const char character : text) {
        const bool upper = result.empty() ? firstUpper : restUpper;
        const auto lower = static_cast<char>(IsLetter(character) ? character | 0x20 : character);
        result += static_cast<char>(upper && IsLetter(character) ? lower & ~0x20 : lower);
    }
    return result;
}

std::vector<std::string_view> Parts(std::string_view text) {
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t end = text.find_first_of("_-");
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

/// Cuts `text` at `mark` and gives what followed it; nothing if the mark is not there.
std::optional<std::string_view> CutAt(std::string_view& text, char mark) {
    const std::size_t place = text.find(mark);
    if (place == std::string_view::npos)
        return std::nullopt;
    const std::string_view rest = text.substr(place + 1);
    text = text.substr(0, place);
    return rest;
}

bool AreKeywords(std::string_view text) {
    while (true) {
        std::string_view keyword = text.substr(0, text.find(';'));
        const bool last = keyword.size() == text.size();
        text.remove_prefix(last ? text.size() : keyword.size() + 1);
        const auto value = CutAt(keyword, '=');
        if (!value || !IsNamePart(keyword) || !IsNamePart(*value))
            return false;
        if (last)
            return true;
    }
}

std::string ScriptOfModifier(std::string_view modifier) {
    if (modifier == "latin")
        return "Latn";
    if (modifier == "cyrillic")
        return "Cyrl";
    return modifier == "devanagari" ? "Deva" : "";
}

/// Language, script and region. Variants are passed over: what they change is spelling, and one of them ("POSIX")
/// takes the grouping away.
std::optional<std::string> BaseName(std::string_view text, std::string script) {
    const std::vector<std::string_view> parts = Parts(text);
    if (!IsOf(parts.front(), 2, 3, IsLetter))
        return std::nullopt;
    std::string region;
    for (std::size_t i = 1; i < parts.size(); ++i)
        if (i == 1 && IsOf(parts[i], 4, 4, IsLetter))
            script = Cased(parts[i], true, false);
        else if (region.empty() && (IsOf(parts[i], 2, 2, IsLetter) || IsOf(parts[i], 3, 3, IsDigit)))
            region = '_' + Cased(parts[i], true, true);
        else if (!IsNamePart(parts[i]) || parts[i].size() < 4)
            return std::nullopt;
    return Cased(parts.front(), false, false) + (script.empty() ? "" : '_' + script) + region;
}

} // namespace

std::optional<std::string> LocaleName(std::string_view name) {
    const auto modifier = CutAt(name, '@');
    const auto codeSet = CutAt(name, '.');
    const bool keywords = modifier && modifier->find('=') != std::string_view::npos;
    if ((modifier && !(keywords ? AreKeywords(*modifier) : IsNamePart(*modifier)))
        || (codeSet && !IsNamePart(*codeSet))) {
        return std::nullopt;
    }
    if (name == "C" || name == "POSIX")
        return "en_US";
    auto base = BaseName(name, ScriptOfModifier(modifier.value_or("")));
    if (base && keywords)
        *base += '@' + std::string{*modifier};
    return base;
}

} // namespace device
