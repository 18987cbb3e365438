#include "platform/system/date_order.h"

#include "platform/system/locale_data.h"

namespace device {
namespace {

constexpr std::size_t YearDigits = 4;

} // namespace

const std::vector<ShortDatePart>& ShortDateOrder() {
    return TheLocale().DateOrder();
}

void AppendShortDatePart(const ShortDatePart& part, const SYSTEMTIME& date, std::wstring* text) {
    const std::size_t least = part.leadingZero ? 2 : 1;
    switch (part.kind) {
    case ShortDatePart::Kind::Day:
        return TheLocale().AppendDateDigits(date.wDay, least, text);
    case ShortDatePart::Kind::Month:
        return TheLocale().AppendDateDigits(date.wMonth, least, text);
    case ShortDatePart::Kind::Year:
        return TheLocale().AppendDateDigits(date.wYear, YearDigits, text);
    case ShortDatePart::Kind::Literal:
        *text += part.text;
    }
}

std::wstring ShortDatePartText(const ShortDatePart& part, const SYSTEMTIME& date) {
    std::wstring text;
    AppendShortDatePart(part, date, &text);
    return text;
}

} // namespace device
