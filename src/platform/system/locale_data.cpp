#include "platform/system/locale_data.h"

#include "platform/system/environment.h"

namespace device {

std::wstring LocaleData::DateDigits(unsigned number, std::size_t digits) const {
    std::wstring text;
    for (; number != 0 || text.size() < digits; number /= 10)
        text.insert(text.begin(), dateDigits_[number % 10]);
    return text;
}

const LocaleData& TheLocale() {
    return MadeForEnvironment<LocaleData>();
}

} // namespace device
