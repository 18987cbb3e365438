#include "units/field_text.h"

#include "platform/locale.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <iomanip>
#include <locale>
#include <sstream>

namespace {

bool IsDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

const wchar_t* SkipBlanks(const wchar_t* text) {
    while (*text == L' ' || *text == L'\t')
        ++text;
    return text;
}

const wchar_t* SkipDigits(const wchar_t* text) {
    while (IsDigit(*text))
        ++text;
    return text;
}

const wchar_t* SkipSign(const wchar_t* text) {
    return *text == L'+' || *text == L'-' ? text + 1 : text;
}

/// The end of the decimal number at the head of `text`; `text` itself where there is none. The runtime's own reader
/// would also take hexadecimal digits and words such as "inf".
const wchar_t* EndOfNumber(const wchar_t* text) {
    const wchar_t* digits = SkipSign(text);
    const wchar_t* end = SkipDigits(digits);
    bool any = end != digits;
    if (*end == L'.') {
        const wchar_t* fraction = end + 1;
        end = SkipDigits(fraction);
        any |= end != fraction;
    }
    if (!any)
        return text;
    if (*end == L'e' || *end == L'E') {
        const wchar_t* exponent = SkipSign(end + 1);
        if (IsDigit(*exponent))
            end = SkipDigits(exponent);
    }
    return end;
}

/// With a point whatever locale the process runs in. Beyond a double, infinite.
double NumberOf(const wchar_t* first, const wchar_t* last) {
    std::istringstream stream(std::string(first, last));
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
    if (!text)
        return false;
    const wchar_t* first = SkipBlanks(text);
    const wchar_t* last = EndOfNumber(first);
    if (last == first || *SkipBlanks(last) != L'\0')
        return false;
    const double value = NumberOf(first, last);
    // An empty field is no zero, so a zero has to be written as one. This refuses ".0" and "-0" as well.
    if (value == 0 && *first != L'0')
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
