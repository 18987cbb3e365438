#include "platform/system/number_pattern.h"
#include "platform/system/utf8.h"

#include <gtest/gtest.h>
#include <map>
#include <random>
#include <unicode/dcfmtsym.h>
#include <unicode/numberformatter.h>
#include <unicode/ucurr.h>
#include <unicode/uloc.h>

namespace {

using device::NumberPattern;
using icu::number::LocalizedNumberFormatter;
using icu::number::NumberFormatter;

std::wstring Wide(const icu::UnicodeString& text) {
    std::string bytes;
    return device::FromUtf8(text.toUTF8String(bytes));
}

NumberPattern::Library Writer(const LocalizedNumberFormatter& formatter) {
    return [formatter](std::string_view number) -> std::optional<std::wstring> {
        UErrorCode status = U_ZERO_ERROR;
        const auto text = formatter.formatDecimal({number.data(), static_cast<std::int32_t>(number.size())}, status)
                              .toString(status);
        return Wide(text);
    };
}

std::wstring DigitsOf(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::DecimalFormatSymbols symbols(locale, status);
    std::wstring digits;
    for (int digit = 0; digit < 10; ++digit)
        digits += Wide(symbols.getConstDigitSymbol(digit)).substr(0, 1);
    return digits;
}

TEST(NumberPattern, WritesAsTheLibraryDoesInEveryLocale) {
    std::mt19937_64 random(5);
    std::map<std::string, int> learned;
    for (std::int32_t index = 0; index < uloc_countAvailable(); ++index) {
        const icu::Locale locale(uloc_getAvailable(index));
        const auto base = NumberFormatter::withLocale(locale).roundingMode(UNUM_ROUND_HALFUP);
        UErrorCode status = U_ZERO_ERROR;
        UChar code[4] = u"XXX";
        ucurr_forLocale(locale.getName(), code, 4, &status);
        status = U_ZERO_ERROR;
        const icu::CurrencyUnit currency(icu::ConstChar16Ptr(code), status);
        for (const auto& formatter : {base.precision(icu::number::Precision::fixedFraction(2)), base.unit(currency)}) {
            const auto library = Writer(formatter);
            const auto pattern = NumberPattern::Learn(library, DigitsOf(locale));
            learned[locale.getName()] += pattern ? 1 : 0;
            for (int trial = 0; pattern && trial < 60; ++trial) {
                std::string number = std::to_string(static_cast<std::int64_t>(random()) >> (random() % 64));
                if (random() % 2)
                    number += "." + std::to_string(random() % 100);
                const auto written = pattern->Write(number);
                if (written && number != "-0") {
                    ASSERT_EQ(written, library(number)) << locale.getName() << " " << number;
                }
            }
        }
    }
    for (const char* usual : {"en_US", "en_IN", "de_DE", "de_CH", "fr_FR", "es_ES", "pl_PL", "ja_JP", "ar_EG", "hi_IN"})
        EXPECT_EQ(learned[usual], 2) << usual << " is written without the library";
}

TEST(NumberPattern, LeavesToTheLibraryWhatItWouldHaveToRound) {
    const auto library
        = Writer(NumberFormatter::withLocale(icu::Locale::getUS()).precision(icu::number::Precision::fixedFraction(2)));
    const auto pattern = NumberPattern::Learn(library, L"0123456789");
    ASSERT_TRUE(pattern);
    for (const char* number : {"1.005", "007", "", "-", ".5"})
        EXPECT_FALSE(pattern->Write(number)) << number;
    EXPECT_EQ(pattern->Write("1.500"), L"1.50");
    const auto groupsFromTenMillion = [&](std::string_view number) {
        auto text = library(number);
        if (number.size() < 8)
            std::erase(*text, L',');
        return text;
    };
    EXPECT_FALSE(NumberPattern::Learn(groupsFromTenMillion, L"0123456789")) << "is found out";
}

} // namespace
