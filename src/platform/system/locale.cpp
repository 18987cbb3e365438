#include "platform/locale.h"

#include "platform/files.h"
#include "platform/registry.h"
#include "platform/system/environment.h"
#include "platform/system/host_file.h"
#include "platform/system/locale_data.h"
#include "platform/time.h"

#include <algorithm>
#include <cwchar>
#include <optional>
#include <string>

namespace {

using OptionalText = std::optional<std::wstring>;

int Fail(LONG error) {
    SetLastError(static_cast<DWORD>(error));
    return 0;
}

/// Hands a text to a caller as all functions of the locale do.
int Deliver(const std::wstring& text, wchar_t* buffer, int size) {
    const int needed = static_cast<int>(text.size()) + 1;
    if (size == 0)
        return needed;
    if (buffer == nullptr || size < 0)
        return Fail(ERROR_INVALID_PARAMETER);
    if (size < needed)
        return Fail(device::ERROR_INSUFFICIENT_BUFFER);
    std::wmemcpy(buffer, text.c_str(), static_cast<std::size_t>(needed));
    return needed;
}

bool IsDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

/// The number in basic characters; nothing for a text that is no plain number. Zero has no sign.
std::optional<std::string> PlainNumber(const std::wstring& text) {
    const std::size_t begin = text.rfind(L'-', 0) == 0 ? 1 : 0;
    const std::size_t point = std::min(text.find(L'.', begin), text.size());
    const bool whole = point > begin && std::all_of(text.begin() + begin, text.begin() + point, IsDigit);
    const bool fraction = point == text.size()
        || (point + 1 < text.size() && std::all_of(text.begin() + point + 1, text.end(), IsDigit));
    if (!whole || !fraction)
        return std::nullopt;
    const bool zero = text.find_first_of(L"123456789") == std::wstring::npos;
    return std::string{text.begin() + (zero ? begin : 0), text.end()};
}

using Formatter = OptionalText (device::LocaleData::*)(std::string_view number) const;

int DeliverNumber(Formatter formatter, LCID locale, DWORD flags, const wchar_t* value, const void* format,
    wchar_t* buffer, int size) {
    if (locale != LOCALE_USER_DEFAULT || flags != 0 || value == nullptr || format != nullptr)
        return Fail(ERROR_INVALID_PARAMETER);
    const auto number = PlainNumber(value);
    const OptionalText text = number ? (device::TheLocale().*formatter)(*number) : std::nullopt;
    return text ? Deliver(*text, buffer, size) : Fail(ERROR_INVALID_PARAMETER);
}

} // namespace

int GetNumberFormatW(LCID locale, DWORD flags, const wchar_t* value, const void* format, wchar_t* buffer, int size) {
    return DeliverNumber(&device::LocaleData::NumberText, locale, flags, value, format, buffer, size);
}

int GetCurrencyFormatW(LCID locale, DWORD flags, const wchar_t* value, const void* format, wchar_t* buffer, int size) {
    return DeliverNumber(&device::LocaleData::CurrencyText, locale, flags, value, format, buffer, size);
}

int GetDateFormatW(
    LCID locale, DWORD flags, const SYSTEMTIME* date, const wchar_t* picture, wchar_t* buffer, int size) {
    if (locale != LOCALE_USER_DEFAULT || (flags & ~DATE_SHORTDATE) != 0 || date == nullptr || picture != nullptr)
        return Fail(ERROR_INVALID_PARAMETER);
    // The time of day is not shown, so it need not be one.
    const SYSTEMTIME shown{.wYear = date->wYear, .wMonth = date->wMonth, .wDay = date->wDay};
    double valid = 0.0;
    if (SystemTimeToVariantTime(&shown, &valid) == FALSE)
        return Fail(ERROR_INVALID_PARAMETER);
    std::wstring text;
    for (const device::ShortDatePart& part : device::ShortDateOrder())
        text += device::ShortDatePartText(part, shown);
    return Deliver(text, buffer, size);
}

int GetLocaleInfoW(LCID locale, DWORD type, wchar_t* buffer, int size) {
    if (locale != LOCALE_USER_DEFAULT || type != LOCALE_SDECIMAL)
        return Fail(ERROR_INVALID_PARAMETER);
    return Deliver(device::TheLocale().DecimalSeparator(), buffer, size);
}

wchar_t* CharLowerW(wchar_t* text) {
    std::transform(text, text + std::wcslen(text), text, device::LowerCase);
    return text;
}

wchar_t* CharUpperW(wchar_t* text) {
    std::transform(text, text + std::wcslen(text), text, device::UpperCase);
    return text;
}
