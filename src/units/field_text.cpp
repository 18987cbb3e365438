#include "units/field_text.h"

#include "platform/locale.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <iomanip>
#include <locale>
#include <regex>
#include <sstream>

namespace {

/// With a point whatever locale the process runs in. Beyond a double, infinite.
double NumberOf(const std::wstring& text) {
    std::wistringstream stream(text);
    stream.imbue(std::locale::classic());
    double value = 0;
    stream >> value;
    return stream.fail() && std::fabs(value) > 1 ? HUGE_VAL : value;
}

} // namespace

void SwapDecimalSeparator(wchar_t* text, std::size_t capacity, bool toPoint) {
    wchar_t separator[5] = {};
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, static_cast<int>(std::size(separator))) == 0)
        return;
    const wchar_t* from = toPoint ? separator : L".";
    const wchar_t* to = toPoint ? L"." : separator;
    if (*from == L'\0' || std::wcslen(text) + (toPoint ? 0 : std::wcslen(separator)) + 1 > capacity)
        return;
    wchar_t* found = std::wcsstr(text, from);
    if (!found)
        return;
    wchar_t* tail = found + std::wcslen(from);
    std::wmemmove(found + std::wcslen(to), tail, std::wcslen(tail) + 1);
    std::copy_n(to, std::wcslen(to), found);
}

std::wstring PrintPlainFloat(float value, int precision) {
    constexpr int MostDigits = 20;
    std::wostringstream text;
    text.imbue(std::locale::classic());
    text << std::setprecision(std::clamp(precision, 0, MostDigits))
         << (value == 0 ? 0.0F : value); // a field refuses "-0"
    return text.str();
}

std::wstring PrintFieldFloat(float value, int precision) {
    wchar_t text[FieldTextSize] = {};
    const std::wstring plain = PrintPlainFloat(value, precision);
    plain.copy(text, FieldTextSize - 1);
    SwapDecimalSeparator(text, FieldTextSize, false);
    return text;
}

bool ParsePlainFloat(const wchar_t* text, double* result) {
    // The runtime's own reader would also take hexadecimal digits and words such as "inf".
    static const std::wregex Number(L"[ \\t]*([+-]?([0-9]+[.]?[0-9]*|[.][0-9]+)([eE][+-]?[0-9]+)?)[ \\t]*");
    std::wcmatch parts;
    if (!text || std::wcslen(text) >= FieldTextSize || !std::regex_match(text, parts, Number))
        return false;
    const double value = NumberOf(parts[1]);
    // An empty field is no zero, so a zero has to be written as one. This refuses ".0" and "-0" as well.
    if (value == 0 && *parts[1].first != L'0')
        return false;
    if (!std::isfinite(value) || !std::isfinite(static_cast<float>(value)))
        return false;
    *result = value;
    return true;
}

bool ParseFieldFloat(const wchar_t* text, double* result) {
    if (!text)
        return false;
    wchar_t field[FieldTextSize] = {};
    if (std::wcslen(text) >= FieldTextSize)
        return false;
    std::wcscpy(field, text);
    SwapDecimalSeparator(field, FieldTextSize, true);
    return ParsePlainFloat(field, result);
}
