#include "units/date_text.h"
#include "units/field_text.h"
#include "units/number_text.h"
#include "units/units.h"
#include "units_device.h"

#include <bit>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

namespace {

using Text = UnitsDevice;

TEST_F(Text, NumbersFollowTheLocale) {
    const struct {
        const char* locale;
        float value;
        const wchar_t *whole, *decimals, *money;
    } cases[] = {{"en_US", 1234.567F, L"1,234", L"1,234.57", L"$1,234.57"}, {"en_US", 0.004F, L"0", L"0.00", L"$0.00"},
        {"en_US", -3.75F, L"-3", L"-3.00", L"-$3.00"}, // only what is above 0 keeps its fraction
        {"en_US", 2147483648.0F, L"2,147,483,647", L"2,147,483,648.00", L"$2,147,483,648.00"},
        {"en_US", -3e9F, L"-2,147,483,648", L"-2,147,483,648.00", L"-$2,147,483,648.00"},
        {"de_DE", 1234.5F, L"1.234", L"1.234,50", L"1.234,50\u00A0€"}};
    for (const auto& row : cases) {
        UseLocale(row.locale);
        EXPECT_EQ(NumberText(row.value, false, false), row.whole);
        EXPECT_EQ(NumberText(row.value, true, false), row.decimals);
        EXPECT_EQ(NumberText(row.value, true, true), row.money);
    }
    EXPECT_EQ(WholeNumber(std::numeric_limits<float>::quiet_NaN()), 0);
}

TEST_F(Text, HundredthsAreTheLibrarysForAnyFloat) {
    UseLocale("en_US");
    std::mt19937 random(3);
    std::vector<float> values{0.125F, 0.375F, 0.005F, 0.015F, 2.675F, 1e-45F, 0.994999F, 0.995F, 9007199.0F, 9.99e15F,
        1e16F, 1.0000001e16F, 3.4e38F};
    for (int count = 0; count < 20000; ++count) {
        values.push_back(std::bit_cast<float>(static_cast<std::uint32_t>(random() >> 1U)));
        values.push_back(static_cast<float>(random() % 4000000) / 8); // ties, and what a log holds
    }
    for (const float value : values) {
        if (!(value > 0 && value <= std::numeric_limits<float>::max()))
            continue;
        char expected[64];
        std::snprintf(expected, sizeof expected, "%.2f", static_cast<double>(value));
        std::wstring text = NumberText(value, true, false);
        std::erase(text, L',');
        ASSERT_EQ(text, std::wstring(expected, expected + std::strlen(expected)));
    }
}

TEST_F(Text, FieldsPrintSixDigits) {
    const struct {
        float value;
        const wchar_t *american, *german;
    } cases[] = {{12.5F, L"12.5", L"12,5"}, {-0.0F, L"0", L"0"}, {-0.125F, L"-0.125", L"-0,125"},
        {123456.7F, L"123457", L"123457"}, {1234567, L"1.23457e+06", L"1,23457e+06"},
        {0.00001234F, L"1.234e-05", L"1,234e-05"}};
    for (const auto& row : cases) {
        UseLocale("en_US");
        EXPECT_EQ(PrintFieldFloat(row.value, 6), row.american);
        UseLocale("de_DE");
        EXPECT_EQ(PrintFieldFloat(row.value, 6), row.german);
        EXPECT_EQ(PrintPlainFloat(row.value, 6), row.american);
    }
}

TEST_F(Text, FieldsAreReadStrictly) {
    const struct {
        const wchar_t* text;
        double value;
    } accepted[] = {{L"12.5", 12.5}, {L" \t12.5\t ", 12.5}, {L"0", 0}, {L" 0 ", 0}, {L"0.00", 0}, {L"-3", -3},
        {L"+.5", 0.5}, {L".5", 0.5}, {L"5.", 5}, {L"1e3", 1000}, {L"1E-2", 0.01}, {L"0e9", 0}, {L"00012", 12},
        {L"3.40282e+38", 3.40282e38}};
    const wchar_t* refused[]
        = {L"", L"   ", L"abc", L"12abc", L"1,234.5", L"1.234,5", L".0", L"-0", L"+0", L".", L"-", L"e5", L"1e", L"1e+",
            L"1 2", L"1.2.3", L"0x10", L"inf", L"-INF", L"nan", L"1e39", L"-1e39", L"1e999", L"1e-999", L"١٢"};
    for (const char* locale : {"en_US", "de_DE"}) {
        UseLocale(locale);
        for (const auto& [text, value] : accepted) {
            double result = -1;
            EXPECT_TRUE(ParseFieldFloat(text, &result)) << text;
            EXPECT_EQ(result, value) << text;
        }
        for (const wchar_t* text : refused) {
            double result = -1;
            EXPECT_FALSE(ParseFieldFloat(text, &result)) << text;
            EXPECT_EQ(result, -1) << text;
        }
    }
    double result = -1;
    EXPECT_TRUE(ParseFieldFloat(L"12,5", &result));
    EXPECT_EQ(result, 12.5);
    EXPECT_FALSE(ParsePlainFloat(L"12,5", &result));
    EXPECT_FALSE(ParseFieldFloat(nullptr, &result));
}

TEST_F(Text, DatesAreShort) {
    EXPECT_EQ(DateText(39467.99), L"1/20/2008");
    EXPECT_EQ(DateText(-1.75), L"12/29/1899");
    EXPECT_EQ(DateText(1e9), L"");
    UseLocale("de_DE");
    EXPECT_EQ(DateText(39467), L"20.01.2008");
}

TEST_F(Text, UnitsThatThereAreNotHaveNoNames) {
    for (const int unit : {-1, 4}) {
        UseUnits(unit, unit, unit);
        EXPECT_EQ(DistanceUnitName(false, false) + VolumeUnitName(true, true) + FuelEconomyUnitLabel(), L"");
    }
}

} // namespace
