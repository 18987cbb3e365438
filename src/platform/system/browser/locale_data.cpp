#include "platform/system/locale_data.h"

#include "platform/system/date_pattern.h"
#include "platform/system/environment.h"
#include "platform/utf8.h"

#include <cstdlib>
#include <cwctype>
#include <utility>

extern "C" {
// In locale_library.js. Texts are UTF-8; those that come back are to be freed.
void odoledgerLocaleOpen(const char* numbers, const char* dates);
char* odoledgerLocaleNumber(const char* number);
char* odoledgerLocaleCurrency(const char* number);
int odoledgerLocaleCompare(const char* first, const char* second, int ignoreCase);
char* odoledgerLocaleDecimalSeparator();
char* odoledgerLocaleDatePattern(int index);
char* odoledgerLocaleDateDigits();
}

namespace device {
namespace {

constexpr int ShortPattern = 0;
constexpr int NumericPattern = 1;

std::wstring Taken(char* text) {
    const std::unique_ptr<char, void (*)(void*)> owned(text, std::free);
    return FromUtf8(owned.get());
}

} // namespace

/// It is all in JavaScript.
struct LocaleData::Library { };

LocaleData::LocaleData() {
    const Environment& environment = TheEnvironment();
    odoledgerLocaleOpen(environment.numberLocale.c_str(), environment.dateLocale.c_str());
    decimalSeparator_ = Taken(odoledgerLocaleDecimalSeparator());
    if (std::wstring digits = Taken(odoledgerLocaleDateDigits()); digits.size() == dateDigits_.size())
        dateDigits_ = std::move(digits);
    auto parts = PartsOfPattern(Taken(odoledgerLocaleDatePattern(ShortPattern)));
    if (!parts) // one that spells the month
        parts = PartsOfPattern(Taken(odoledgerLocaleDatePattern(NumericPattern)));
    dateOrder_ = parts.value_or(*PartsOfPattern(L"y-MM-dd"));
}

LocaleData::~LocaleData() = default;

std::optional<std::wstring> LocaleData::NumberText(std::string_view number) const {
    return Taken(odoledgerLocaleNumber(std::string(number).c_str()));
}

std::optional<std::wstring> LocaleData::CurrencyText(std::string_view number) const {
    return Taken(odoledgerLocaleCurrency(std::string(number).c_str()));
}

std::optional<int> LocaleData::Compare(std::wstring_view first, std::wstring_view second) const {
    return odoledgerLocaleCompare(ToUtf8(std::wstring(first)).c_str(), ToUtf8(std::wstring(second)).c_str(), 1);
}

wchar_t LowerCase(wchar_t character) {
    return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(character)));
}

wchar_t UpperCase(wchar_t character) {
    return static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(character)));
}

} // namespace device
