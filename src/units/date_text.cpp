#include "units/date_text.h"

#include "platform/locale.h"
#include "platform/time.h"

#include <iterator>

std::wstring DateText(double date) {
    SYSTEMTIME day;
    if (!VariantTimeToSystemTime(date, &day))
        return {};
    wchar_t usual[64];
    int size
        = GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &day, nullptr, usual, static_cast<int>(std::size(usual)));
    if (size > 0)
        return {usual, static_cast<std::size_t>(size - 1)};
    size = GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &day, nullptr, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(size > 0 ? size : 0), L'\0');
    size = GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &day, nullptr, text.data(), size);
    text.resize(static_cast<std::size_t>(size > 0 ? size - 1 : 0));
    return text;
}
