#include "units/date_text.h"

#include "platform/locale.h"
#include "platform/time.h"

#include <iterator>

std::wstring DateText(double date) {
    SYSTEMTIME day;
    if (!VariantTimeToSystemTime(date, &day))
        return {};
    wchar_t text[64];
    const int size
        = GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &day, nullptr, text, static_cast<int>(std::size(text)));
    return size > 0 ? std::wstring(text, static_cast<std::size_t>(size - 1)) : std::wstring();
}
