#include "platform/system/date_order.h"

#include "platform/system/locale_data.h"

namespace device {
namespace {

constexpr std::size_t YearDigits = 4;

} // namespace

const std::vector<ShortDatePart>& ShortDateOrder() {
    return TheLocale().DateOrder();
}

std::wstring ShortDatePartText(const ShortDatePart& part, const SYSTEMTIME& date) {
    const std::size_t least = part.leadingZero ? 2 : 1;
    switch (part.kind) {
    case ShortDatePart::Kind::Day:
        return TheLocale().DateDigits(date.wDay, least);
    case ShortDatePart::Kind::Month:
        return TheLocale().DateDigits(date.wMonth, least);
    case ShortDatePart::Kind::Year:
        return TheLocale().DateDigits(date.wYear, YearDigits);
    case ShortDatePart::Kind::Literal:
        break;
    }
    return part.text;
}

} // namespace device
