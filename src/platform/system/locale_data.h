#pragma once

#include "platform/system/date_order.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace device {
/// What the device's locale knows. Making it costs some milliseconds, asking it next to nothing.
class LocaleData {
public:
    /// Of the locales that the environment names; one that nobody knows is en_US.
    LocaleData();
    LocaleData(const LocaleData&) = delete;
    LocaleData& operator=(const LocaleData&) = delete;
    ~LocaleData();

    /// `number` is plain decimal text, taken digit for digit. Nothing if it is not, or the library failed.
    std::optional<std::wstring> NumberText(std::string_view number) const;
    std::optional<std::wstring> CurrencyText(std::string_view number) const;
    /// Below, equal to or above 0 in the order of the locale's dictionaries, ignoring case.
    std::optional<int> Compare(std::wstring_view first, std::wstring_view second) const;

    const std::wstring& DecimalSeparator() const { return decimalSeparator_; }
    const std::vector<ShortDatePart>& DateOrder() const { return dateOrder_; }
    /// In the digits that the locale writes dates with, at least `digits` of them.
    std::wstring DateDigits(unsigned number, std::size_t digits) const;

private:
    struct Library;
    std::unique_ptr<Library> library_;
    std::vector<ShortDatePart> dateOrder_;
    std::wstring decimalSeparator_ = L".";
    std::wstring dateDigits_ = L"0123456789"; ///< 0 first
};

const LocaleData& TheLocale();
/// Simple case mapping of one character.
wchar_t LowerCase(wchar_t character);
wchar_t UpperCase(wchar_t character);
} // namespace device
