#include "control_test.h"

#include "platform/controls/date_parts.h"
#include "platform/controls/date_picker.h"

namespace {

using Kind = device::ShortDatePart::Kind;

SYSTEMTIME Date(int year, int month, int day) {
    return {static_cast<WORD>(year), static_cast<WORD>(month), 0, static_cast<WORD>(day)};
}

std::vector<device::ShortDatePart> Order(std::vector<Kind> kinds) {
    std::vector<device::ShortDatePart> order;
    for (const Kind kind : kinds) {
        if (!order.empty())
            order.push_back({Kind::Literal, L"/", false});
        order.push_back({kind, {}, false});
    }
    return order;
}

const auto MonthFirst = Order({Kind::Month, Kind::Day, Kind::Year});
const auto DayFirst = Order({Kind::Day, Kind::Month, Kind::Year});
const auto YearFirst = Order({Kind::Year, Kind::Month, Kind::Day});

std::wstring Shown(const device::DateParts& parts) {
    std::wstring text;
    for (const auto& piece : parts.Pieces())
        text += piece.part == parts.Part() ? L"[" + piece.text + L"]" : piece.text;
    return text;
}

/// Digits, `<` `>` to choose, `+` `-` to step, `.` to leave.
void Press(device::DateParts& parts, const std::wstring& keys) {
    for (const wchar_t key : keys) {
        if (key == L'<' || key == L'>')
            parts.Choose(parts.Part() + (key == L'>' ? 1 : -1));
        else if (key == L'+' || key == L'-')
            parts.Step(key == L'+' ? 1 : -1);
        else if (key == L'.')
            parts.Settle();
        else
            parts.Type(key - L'0');
    }
}

} // namespace

class DatePartsTest : public DeviceTest { };

TEST_F(DatePartsTest, KeysFillChooseAndStep) {
    struct Case {
        const std::vector<device::ShortDatePart>& order;
        SYSTEMTIME date;
        const wchar_t* keys;
        const wchar_t* expected;
    };
    const auto& us = MonthFirst;
    const Case cases[]
        = {{us, Date(2026, 11, 22), L"<", L"[11]/22/2026"}, {us, Date(2026, 11, 22), L">>>", L"11/22/[2026]"},
            {us, Date(2026, 11, 22), L"1", L"[1]/22/2026"}, {us, Date(2026, 11, 22), L"12", L"12/[22]/2026"},
            {us, Date(2026, 11, 22), L"00", L"1/[22]/2026"}, {us, Date(2026, 11, 22), L"13", L"1/[3]/2026"},
            {us, Date(2026, 11, 22), L">>202<", L"11/[22]/2026"}, {us, Date(2026, 11, 22), L">>20301", L"11/22/[1]"},
            // A day that its month does not have, from both sides.
            {us, Date(2026, 1, 31), L"2", L"2/[28]/2026"}, {us, Date(2026, 1, 31), L"++", L"[3]/28/2026"},
            {DayFirst, Date(2024, 2, 5), L"30", L"29/[2]/2024"}, {us, Date(2024, 2, 29), L">>2023", L"2/28/[2023]"},
            // What is typed as a whole comes out as typed, whatever stood there before.
            {DayFirst, Date(2026, 2, 5), L"310", L"28/[0]/2026"}, {DayFirst, Date(2026, 2, 5), L"3103", L"31/3/[2026]"},
            {DayFirst, Date(2026, 2, 5), L"31.3", L"28/3/[2026]"},
            {YearFirst, Date(2026, 2, 5), L">>35", L"2026/2/[5]"}, {us, Date(2026, 2, 5), L"1+", L"[2]/5/2026"}};
    for (const Case& each : cases) {
        device::DateParts parts(each.order);
        ASSERT_TRUE(parts.Set(each.date));
        Press(parts, each.keys);
        EXPECT_EQ(Shown(parts), each.expected) << std::wstring(each.keys);
    }
}

TEST_F(DatePartsTest, ReadingEndsNoTypingAndNoBadDateIsTaken) {
    device::DateParts parts(MonthFirst);
    ASSERT_TRUE(parts.Set(Date(2008, 1, 20)));
    Press(parts, L">3");
    EXPECT_EQ(parts.Get().wDay, 3) << "what is typed so far counts";
    EXPECT_EQ(Shown(parts), L"1/[3]/2008");
    for (const SYSTEMTIME& bad : {Date(1600, 12, 31), Date(10000, 1, 1), Date(2023, 2, 29), Date(2023, 0, 1)})
        EXPECT_FALSE(parts.Set(bad));
    EXPECT_EQ(parts.Get().wYear, 2008);
}

class DatePickerTest : public ControlTest {
protected:
    ~DatePickerTest() override { unsetenv("TZ"); }

    const DialogItemTemplate picker{L"SysDateTimePick32", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 2, 0, 90, 12, 10, L""};
    const DialogItemTemplate other{L"Edit", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 2, 20, 90, 12, 11, L""};

    int Part() { return dynamic_cast<const device::DatePicker&>(*device::ControlOf(Item(10))).Part(); }
    void Put(const SYSTEMTIME& date) {
        EXPECT_TRUE(SendMessageW(Item(10), DTM_SETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date)));
    }
};

TEST_F(DatePickerTest, TakesTheLocalesOrderAndTodayAtFirst) {
    Set("HANDSET_LOCALE", "de_DE");
    Set("HANDSET_CLOCK", "2026-03-01T23:30:00Z");
    setenv("TZ", "Europe/Berlin", 1);
    Run({picker},
        {[&] {
             EXPECT_EQ(TextOf(10), L"02.03.2026");
             EXPECT_EQ(Painted(Item(10)), L"02|.|03|.|2026");
         },
            Typing(L"1"), [&] { EXPECT_EQ(TextOf(10), L"1.03.2026"); }});
}

TEST_F(DatePickerTest, FirstPartOnEntryAndTheSamePartAfterAMessageBox) {
    Run({picker, other},
        {[&] { Put(Date(2026, 11, 22)); }, Keys({VK_RIGHT}),
            [&] {
                EXPECT_EQ(Part(), 2);
                // The box waits inside this step; its script goes on with the next one.
                MessageBoxW(dialog, L"Text", L"Caption", MB_OK);
            },
            Keys({VK_RETURN}), Typing(L"9"), [&] { EXPECT_EQ(TextOf(10), L"11/9/2026"); }, Keys({VK_DOWN, VK_UP}),
            [&] {
                EXPECT_EQ(GetFocus(), Item(10));
                EXPECT_EQ(Part(), 1);
            }});
}

TEST_F(DatePickerTest, LeavingEndsTyping) {
    Run({picker, other},
        {[&] { Put(Date(2026, 11, 22)); }, Keys({VK_END}), Typing(L"19"), [&] { EXPECT_EQ(TextOf(10), L"11/22/19"); },
            Keys({VK_DOWN}), [&] { EXPECT_EQ(TextOf(10), L"11/22/2026"); }});
}
