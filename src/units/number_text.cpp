#include "units/number_text.h"

#include "platform/locale.h"

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <limits>

namespace {

using LocaleFormatter = int (*)(LCID, DWORD, const wchar_t*, const void*, wchar_t*, int);

/// A number in plain characters, always with a point.
std::wstring PlainText(float value, bool fraction) {
    if (!fraction)
        return std::to_wstring(WholeNumber(value));
    wchar_t text[64]; // the greatest float has 39 digits
    const int length = std::swprintf(text, std::size(text), L"%.2f", double{value});
    text[length - 3] = L'.'; // the process may run in a locale of its own
    return text;
}

std::wstring Format(LocaleFormatter formatter, const wchar_t* source) {
    wchar_t text[260]; // the greatest float takes half of it
    const int size = formatter(LOCALE_USER_DEFAULT, 0, source, nullptr, text, static_cast<int>(std::size(text)));
    return size > 0 ? std::wstring(text, static_cast<std::size_t>(size - 1)) : std::wstring();
}

/// A locale without a fraction leaves nothing to cut at, and the whole text stays.
void CutFraction(std::wstring* text) {
    wchar_t separator[4] = {};
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, static_cast<int>(std::size(separator))) == 0)
        return;
    const std::size_t cut = text->rfind(separator[0]);
    if (cut != std::wstring::npos)
        text->resize(cut);
}

} // namespace

LONG WholeNumber(float value) {
    using Limits = std::numeric_limits<LONG>;
    // The upper limit itself is no float; the next one above it is.
    if (value >= -static_cast<float>(Limits::min()))
        return Limits::max();
    if (value <= static_cast<float>(Limits::min()))
        return Limits::min();
    return value == value ? static_cast<LONG>(value) : 0; // NaN alone differs from itself
}

std::wstring NumberText(float value, bool decimals, bool currency) {
    // A sum may lie beyond a float; the locale has digits only.
    value = std::min(value, std::numeric_limits<float>::max());
    const std::wstring source = PlainText(value, decimals && value > 0);
    if (currency)
        return Format(GetCurrencyFormatW, source.c_str());
    std::wstring text = Format(GetNumberFormatW, source.c_str());
    if (!decimals)
        CutFraction(&text);
    return text;
}
