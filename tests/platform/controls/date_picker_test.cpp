#include "control_test.h"

#include "platform/controls/date_parts.h"
#include "platform/controls/date_picker.h"

namespace {

SYSTEMTIME Date(int year, int month, int day) {
    return {static_cast<WORD>(year), static_cast<WORD>(month), 0, static_cast<WORD>(day)};
}

std::wstring Shown(const device::DateParts& parts) {
    std::wstring text;
    for (const auto& piece : parts.Pieces())
        text += piece.part == parts.Part() ? L"[" + piece.text + L"]" : piece.text;
    return text;
}

/// Digits, `<` `>` to choose, `+` `-` to step, `.` to leave.
void Press(device::DateParts& parts, const std::wstring& keys) {
    for (const wchar_t key : keys)
        if (key == L'<' || key == L'>')
            parts.Choose(parts.Part() + (key == L'>' ? 1 : -1));
        else if (key == L'+' || key == L'-')
            parts.Step(key == L'+' ? 1 : -1);
        else if (key == L'.')
            parts.Settle();
        else
            parts.Type(key - L'0');
}

} // namespace

class DatePartsTest : public DeviceTest { };

TEST_F(DatePartsTest, KeysFillChooseAndStep) {
    const char* us = "en_US";
    const char* dayFirst = "en_AU";
    const std::tuple<const char*, SYSTEMTIME, const wchar_t*, const wchar_t*> cases[]
        = {{us, Date(2026, 11, 22), L"<", L"[11]/22/2026"}, {us, Date(2026, 11, 22), L">>>", L"11/22/[2026]"},
            {us, Date(2026, 11, 22), L"1", L"[1]/22/2026"}, {us, Date(2026, 11, 22), L"12", L"12/[22]/2026"},
            {us, Date(2026, 11, 22), L"00", L"1/[22]/2026"}, {us, Date(2026, 11, 22), L"13", L"1/[3]/2026"},
            {us, Date(2026, 11, 22), L">>202<", L"11/[22]/2026"}, {us, Date(2026, 11, 22), L">>20301", L"11/22/[1]"},
            // A day that its month does not have, from both sides.
            {us, Date(2026, 1, 31), L"2", L"2/[28]/2026"}, {us, Date(2026, 1, 31), L"++", L"[3]/28/2026"},
            {dayFirst, Date(2024, 2, 5), L"30", L"29/[2]/2024"}, {us, Date(2024, 2, 29), L">>2023", L"2/28/[2023]"},
            // What is typed as a whole comes out as typed, whatever stood there before.
            {dayFirst, Date(2026, 2, 5), L"310", L"28/[0]/2026"}, {dayFirst, Date(2026, 2, 5), L"3103", L"31/3/[2026]"},
            {dayFirst, Date(2026, 2, 5), L"31.3", L"28/3/[2026]"}, {"zh_CN", Date(2026, 2, 5), L">>35", L"2026/2/[5]"},
            {us, Date(2026, 2, 5), L"1+", L"[2]/5/2026"}};
    for (const auto& [locale, date, keys, expected] : cases) {
        Set("HANDSET_LOCALE", locale);
        device::DateParts parts(device::ShortDateOrder());
        ASSERT_TRUE(parts.Set(date));
        Press(parts, keys);
        EXPECT_EQ(Shown(parts), expected) << std::wstring(keys);
    }
}

TEST_F(DatePartsTest, ReadingEndsNoTypingAndNoBadDateIsTaken) {
    device::DateParts parts(device::ShortDateOrder());
    ASSERT_TRUE(parts.Set(Date(2008, 1, 20)));
    Press(parts, L">3");
    for (const SYSTEMTIME& bad : {Date(1600, 12, 31), Date(10000, 1, 1), Date(2023, 2, 29), Date(2023, 0, 1)})
        EXPECT_FALSE(parts.Set(bad));
    EXPECT_EQ(parts.Get().wDay, 3) << "what is typed so far counts";
    EXPECT_EQ(Shown(parts), L"1/[3]/2008");
}

class DatePickerTest : public ControlTest {
protected:
    static DialogItemTemplate Picker(UINT id) { return {L"SysDateTimePick32", Field, 2, 0, 90, 12, id, L""}; }
    int Part() { return dynamic_cast<const device::DatePicker&>(*device::ControlOf(Item(10))).Part(); }
    void Put(const SYSTEMTIME& date) {
        EXPECT_TRUE(SendMessageW(Item(10), DTM_SETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date)));
    }
};

TEST_F(DatePickerTest, FirstPartOnEntryAndTheSamePartAfterAMessageBox) {
    Run({Picker(10), Picker(11)},
        {[&] { Put(Date(2026, 11, 22)); }, Keys({VK_RIGHT}),
            // The box waits inside this step; its script goes on with the next one.
            [&] { MessageBoxW(dialog, L"Text", L"Caption", MB_OK); }, Keys({VK_RETURN}), Typing(L"9"),
            [&] { EXPECT_EQ(TextOf(10), L"11/9/2026"); }, Keys({VK_END}), Typing(L"19"),
            [&] { EXPECT_EQ(TextOf(10), L"11/9/19"); }, Keys({VK_DOWN}),
            [&] { EXPECT_EQ(TextOf(10), L"11/9/2026") << "leaving ends typing"; }, Keys({VK_UP}),
            [&] { EXPECT_EQ(Part(), 1); }});
}
