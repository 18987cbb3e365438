#include "units/number_text.h"

#include "platform/locale.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

using LocaleFormatter = int (*)(LCID, DWORD, const wchar_t*, const void*, wchar_t*, int);

/// A number in plain characters, always with a point, whatever locale the process itself runs in.
class PlainText {
public:
    PlainText(float value, bool fraction) {
        char digits[Room];
        const char* end = fraction ? WriteCents(value, digits) : WriteWhole(WholeNumber(value), digits);
        *std::copy(static_cast<const char*>(digits), end, text_) = L'\0';
    }
    const wchar_t* Get() const { return text_; }

private:
    static constexpr std::size_t Room = 64; ///< the greatest float has 39 digits

    template <typename Whole> static char* WriteWhole(Whole value, char* text) {
        return std::to_chars(text, text + Room, value).ptr;
    }
    /// `value` is not negative. A hundred times a float is exact as a double, so that the library's slow way to two
    /// decimals is needed only where the hundredths do not fit into a whole number.
    static char* WriteCents(float value, char* text) {
        constexpr double MostCents = 1e18;
        const double cents = std::nearbyint(static_cast<double>(value) * 100);
        if (!(cents < MostCents))
            return std::to_chars(text, text + Room, static_cast<double>(value), std::chars_format::fixed, 2).ptr;
        const auto whole = static_cast<std::uint64_t>(cents);
        text = WriteWhole(whole / 100, text);
        *text++ = '.';
        *text++ = static_cast<char>('0' + (whole / 10 % 10));
        *text++ = static_cast<char>('0' + (whole % 10));
        return text;
    }

    wchar_t text_[Room + 1];
};

std::wstring Format(LocaleFormatter formatter, const wchar_t* source) {
    wchar_t usual[64];
    int size = formatter(LOCALE_USER_DEFAULT, 0, source, nullptr, usual, static_cast<int>(std::size(usual)));
    if (size > 0)
        return {usual, static_cast<std::size_t>(size - 1)};
    size = formatter(LOCALE_USER_DEFAULT, 0, source, nullptr, nullptr, 0);
    if (size <= 0)
        return {};
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    size = formatter(LOCALE_USER_DEFAULT, 0, source, nullptr, text.data(), size);
    text.resize(size > 0 ? static_cast<std::size_t>(size - 1) : 0);
    return text;
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
    const PlainText source(value, decimals && value > 0);
    if (currency)
        return Format(GetCurrencyFormatW, source.Get());
    std::wstring text = Format(GetNumberFormatW, source.Get());
    if (!decimals)
        CutFraction(&text);
    return text;
}
