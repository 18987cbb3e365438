#include "device_fixture.h"
#include "platform/locale.h"
#include "platform/system/date_order.h"
#include "platform/system/date_pattern.h"
#include "platform/system/locale_data.h"
#include "platform/utf8.h"

#include <array>

namespace {

using Formatter = int (*)(LCID, DWORD, const wchar_t*, const void*, wchar_t*, int);

class LocaleTest : public DeviceTest {
protected:
    /// As callers do it: first the length, then the text. "-" for a failure.
    template <typename Call> static std::string Twice(Call call) {
        const int size = call(nullptr, 0);
        std::wstring buffer(static_cast<std::size_t>(size) + 1, L'#');
        if (size == 0 || call(buffer.data(), size - 1) != 0 || call(buffer.data(), size) != size)
            return "-";
        EXPECT_EQ(buffer[static_cast<std::size_t>(size)], L'#');
        return device::ToUtf8(buffer.c_str());
    }
    static std::string Format(Formatter formatter, const wchar_t* value) {
        return Twice(
            [&](wchar_t* buffer, int size) { return formatter(LOCALE_USER_DEFAULT, 0, value, nullptr, buffer, size); });
    }
    static std::string Format(SYSTEMTIME date) {
        return Twice([&](wchar_t* buffer, int size) {
            return GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &date, nullptr, buffer, size);
        });
    }
};

TEST_F(LocaleTest, NumbersMoneyAndDatesAreTheLocales) {
    const SYSTEMTIME date{.wYear = 2008, .wMonth = 1, .wDay = 20};
    const std::array<const char*, 5> cases[] = {{"en_US", "1,234,567.50", "-3.00", "$1,234.50", "1/20/2008"},
        {"de_DE", "1.234.567,50", "-3,00", "1.234,50\u00A0€", "20.01.2008"},
        {"en_IN", "12,34,567.50", "-3.00", "₹1,234.50", "20/01/2008"},
        {"sv_SE", "1\u00A0234\u00A0567,50", "\u22123,00", "1\u00A0234,50\u00A0kr", "2008-01-20"},
        {"xx_YY", "1,234,567.50", "-3.00", "$1,234.50", "1/20/2008"}};
    for (const auto& [locale, number, negative, money, day] : cases) {
        Set("HANDSET_LOCALE", locale);
        EXPECT_EQ(Format(GetNumberFormatW, L"1234567.5"), number) << locale;
        EXPECT_EQ(Format(GetNumberFormatW, L"-3"), negative) << locale;
        EXPECT_EQ(Format(GetCurrencyFormatW, L"1234.5"), money) << locale;
        EXPECT_EQ(Format(date), day) << locale;
    }
}

TEST_F(LocaleTest, DigitsAreExactRoundedAwayFromZeroAndPlainTextAlone) {
    const std::pair<const wchar_t*, const char*> cases[]
        = {{L"0", "0.00"}, {L"-0.00", "0.00"}, {L"0.005", "0.01"}, {L"-0.005", "-0.01"}, {L"2.675", "2.68"},
            {L"123456789012345678901234567890.12", "123,456,789,012,345,678,901,234,567,890.12"}};
    for (const wchar_t* refused : {L"", L"-", L".5", L"5.", L"1e5", L"1,000", L" 1", L"--1", L"1.2.3", L"+1", L"٣"})
        EXPECT_EQ(Format(GetNumberFormatW, refused), "-") << device::ToUtf8(refused);
    for (const auto& [value, expected] : cases)
        EXPECT_EQ(Format(GetNumberFormatW, value), expected) << device::ToUtf8(value);
    EXPECT_EQ(Format(GetCurrencyFormatW, L"-3"), "-$3.00");
}

TEST_F(LocaleTest, DatesThatNoCalendarHasAreRefused) {
    const std::pair<SYSTEMTIME, const char*> cases[] = {{{.wYear = 2024, .wMonth = 2, .wDay = 29}, "2/29/2024"},
        {{.wYear = 2023, .wMonth = 2, .wDay = 29}, "-"}, {{.wYear = 100, .wMonth = 1, .wDay = 1}, "1/1/0100"},
        {{.wYear = 9999, .wMonth = 12, .wDay = 31, .wHour = 99}, "12/31/9999"}, {{}, "-"}};
    for (const auto& [date, expected] : cases)
        EXPECT_EQ(Format(date), expected);
}

TEST_F(LocaleTest, ThePartsOfADateAreInItsOrderAndItsDigits) {
    const SYSTEMTIME date{.wYear = 2008, .wMonth = 3, .wDay = 5};
    const std::pair<const char*, const char*> cases[]
        = {{"en_US", "3|/|5|/|2008"}, {"de_DE", "05|.|03|.|2008"}, {"sv_SE", "2008|-|03|-|05"},
            {"hu_HU", "2008|. |03|. |05|."}, {"fa_IR", "۲۰۰۸|/|۳|/|۵"}, {"mr_IN", "५|/|३|/|२००८"}};
    for (const auto& [locale, expected] : cases) {
        Set("HANDSET_LOCALE", locale);
        std::string parts;
        for (const auto& part : device::ShortDateOrder())
            parts += (parts.empty() ? "" : "|") + device::ToUtf8(device::ShortDatePartText(part, date));
        EXPECT_EQ(parts, expected) << locale;
        std::erase(parts, '|');
        EXPECT_EQ(parts, Format(date)) << locale;
    }
    for (const wchar_t* pattern : {L"", L"d.M.", L"d MMM y", L"d.d.M.y", L"EEE d.M.y", L"'dMy'"})
        EXPECT_FALSE(device::PartsOfPattern(pattern)) << device::ToUtf8(pattern);
    EXPECT_EQ(device::PartsOfPattern(L"'d''y' d/M/yy GGGGG").value().front().text, L"d'y ");
}

TEST_F(LocaleTest, TextIsComparedAsInADictionary) {
    const std::tuple<const char*, const wchar_t*, const wchar_t*, int> cases[]
        = {{"en_US", L"apple", L"Banana", -1}, {"en_US", L"Zebra", L"apple", 1}, {"en_US", L"car", L"CAR", 0},
            {"en_US", L"résumé", L"resume", 1}, {"sv_SE", L"ö", L"z", 1}, {"de_DE", L"ö", L"z", -1}};
    for (const auto& [locale, first, second, order] : cases) {
        Set("HANDSET_LOCALE", locale);
        EXPECT_EQ(device::TheLocale().Compare(first, second), order) << device::ToUtf8(first);
    }
}

TEST_F(LocaleTest, CaseIsMappedCharacterByCharacter) {
    std::wstring text = L"ÀÉ Straße ΣΑΣ 1";
    EXPECT_STREQ(CharLowerW(text.data()), L"àé straße σασ 1");
    EXPECT_STREQ(CharUpperW(text.data()), L"ÀÉ STRAßE ΣΑΣ 1");
}

TEST(Utf8, KeepsWhatItCanAndReplacesTheRest) {
    const std::pair<const char*, const wchar_t*> cases[] = {{"\xF0\x9F\x9A\x97!", L"\U0001F697!"},
        {"\xE2\x82", L"\uFFFD\uFFFD"}, {"\xED\xA0\x80x", L"\uFFFD\uFFFD\uFFFDx"}, {"\xC3(", L"\uFFFD("},
        {"\xE0\x80\xAF", L"\uFFFD\uFFFD\uFFFD"}, {"\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"}};
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(device::FromUtf8(bytes), text);
    const std::wstring broken{static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0x110000), L'\0', L'ß'};
    EXPECT_EQ(device::ToUtf8(broken), std::string("\xEF\xBF\xBD\xEF\xBF\xBD\0\xC3\x9F", 9));
}

} // namespace
