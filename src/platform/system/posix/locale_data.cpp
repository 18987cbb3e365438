#include "platform/system/locale_data.h"

#include "platform/system/date_pattern.h"
#include "platform/system/environment.h"

#include <algorithm>
#include <unicode/coll.h>
#include <unicode/dcfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/smpdtfmt.h>
#include <unicode/uchar.h>
#include <unicode/ucurr.h>
#include <unicode/uloc.h>

namespace device {
namespace {

using icu::Collator;
using icu::DecimalFormatSymbols;
using icu::Locale;
using icu::UnicodeString;
using icu::number::LocalizedNumberFormatter;

constexpr int FractionDigits = 2;

std::wstring Wide(const UnicodeString& text) {
    std::wstring result;
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1))
        result += static_cast<wchar_t>(text.char32At(i));
    return result;
}

UnicodeString Narrow(std::wstring_view text) {
    UnicodeString result;
    for (const wchar_t character : text) {
        const auto point = static_cast<UChar32>(static_cast<char32_t>(character));
        const bool scalar = point >= 0 && point <= UCHAR_MAX_VALUE && !U_IS_SURROGATE(point);
        result.append(scalar ? point : 0xFFFD);
    }
    return result;
}

/// The library gives every name a locale; whether it knows the language shows in its list. The list of names is read
/// and not that of ready-made locales, which takes as long to make as all the rest here.
Locale Known(const std::string& name) {
    Locale wanted = Locale::createFromName(name.c_str());
    const std::string language = wanted.getLanguage();
    for (std::int32_t i = 0; i < uloc_countAvailable(); ++i) {
        const std::string_view known = uloc_getAvailable(i);
        if (known.substr(0, known.find('_')) == language)
            return wanted;
    }
    return Locale::getUS();
}

LocalizedNumberFormatter PlainFormatter(const Locale& locale) {
    return icu::number::NumberFormatter::withLocale(locale)
        .precision(icu::number::Precision::fixedFraction(FractionDigits))
        .roundingMode(UNUM_ROUND_HALFUP);
}

LocalizedNumberFormatter CurrencyFormatter(const Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    Locale complete = locale;
    complete.addLikelySubtags(status);
    UChar code[4] = u"XXX";
    status = U_ZERO_ERROR;
    ucurr_forLocale(complete.getName(), code, 4, &status);
    status = U_ZERO_ERROR;
    const icu::CurrencyUnit unit{icu::ConstChar16Ptr(code), status};
    return icu::number::NumberFormatter::withLocale(locale).unit(unit).roundingMode(UNUM_ROUND_HALFUP);
}

std::vector<ShortDatePart> DateOrderOf(const Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    Locale gregorian = locale;
    // The log counts in the calendar that its dates are stored in, whatever else the country uses.
    gregorian.setKeywordValue("calendar", "gregorian", status);
    const std::unique_ptr<icu::DateFormat> format{
        icu::DateFormat::createDateInstance(icu::DateFormat::kShort, gregorian)};
    UnicodeString pattern;
    if (const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format.get()))
        simple->toPattern(pattern);
    if (auto parts = PartsOfPattern(Wide(pattern)))
        return *parts;
    // A short date that spells the month: its numbers in the locale's order.
    status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> patterns{
        icu::DateTimePatternGenerator::createInstance(gregorian, status)};
    if (U_SUCCESS(status))
        pattern = patterns->getBestPattern(UNICODE_STRING_SIMPLE("yMd"), status);
    return PartsOfPattern(Wide(pattern)).value_or(*PartsOfPattern(L"y-MM-dd"));
}

std::unique_ptr<Collator> CollatorOf(const Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<Collator> collator{Collator::createInstance(locale, status)};
    if (U_FAILURE(status))
        return nullptr;
    collator->setStrength(Collator::SECONDARY); // case does not count
    return collator;
}

std::optional<std::wstring> Formatted(const LocalizedNumberFormatter& formatter, std::string_view number) {
    UErrorCode status = U_ZERO_ERROR;
    const auto formatted = formatter.formatDecimal({number.data(), static_cast<std::int32_t>(number.size())}, status);
    const UnicodeString text = formatted.toString(status);
    return U_SUCCESS(status) ? std::optional{Wide(text)} : std::nullopt;
}

/// A digit that is more than one character stays as it is.
void SetDigit(const DecimalFormatSymbols& symbols, int digit, std::wstring* digits) {
    const std::wstring text = Wide(symbols.getConstDigitSymbol(digit));
    if (text.size() == 1)
        (*digits)[static_cast<std::size_t>(digit)] = text.front();
}

} // namespace

struct LocaleData::Library {
    Locale numbers = Known(TheEnvironment().numberLocale);
    Locale dates = Known(TheEnvironment().dateLocale);
    LocalizedNumberFormatter plain = PlainFormatter(numbers);
    LocalizedNumberFormatter currency = CurrencyFormatter(numbers);
    std::unique_ptr<Collator> collator = CollatorOf(numbers);
};

LocaleData::LocaleData()
    : library_(std::make_unique<Library>())
    , dateOrder_(DateOrderOf(library_->dates)) {
    UErrorCode status = U_ZERO_ERROR;
    const DecimalFormatSymbols ofNumbers{library_->numbers, status};
    const DecimalFormatSymbols ofDates{library_->dates, status};
    if (U_FAILURE(status))
        return;
    decimalSeparator_ = Wide(ofNumbers.getConstSymbol(DecimalFormatSymbols::kDecimalSeparatorSymbol));
    for (int digit = 0; digit < 10; ++digit)
        SetDigit(ofDates, digit, &dateDigits_);
}

LocaleData::~LocaleData() = default;

std::optional<std::wstring> LocaleData::NumberText(std::string_view number) const {
    return Formatted(library_->plain, number);
}

std::optional<std::wstring> LocaleData::CurrencyText(std::string_view number) const {
    return Formatted(library_->currency, number);
}

std::optional<int> LocaleData::Compare(std::wstring_view first, std::wstring_view second) const {
    UErrorCode status = U_ZERO_ERROR;
    if (library_->collator == nullptr)
        return std::nullopt;
    const UCollationResult result = library_->collator->compare(Narrow(first), Narrow(second), status);
    return U_SUCCESS(status) ? std::optional<int>{result} : std::nullopt;
}

wchar_t LowerCase(wchar_t character) {
    return static_cast<wchar_t>(u_tolower(static_cast<UChar32>(character)));
}

wchar_t UpperCase(wchar_t character) {
    return static_cast<wchar_t>(u_toupper(static_cast<UChar32>(character)));
}

} // namespace device
