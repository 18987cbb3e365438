#include "control_test.h"

namespace {

DialogItemTemplate EditItem(UINT id, int y, DWORD style = 0, const wchar_t* text = L"") {
    return {L"Edit", Field | ES_AUTOHSCROLL | style, 2, y, 90, 12, id, text};
}

} // namespace

using EditTest = ControlTest;

TEST_F(EditTest, KeysMoveSelectAndDelete) {
    Run({EditItem(10, 0, 0, L"abcdef")},
        {Keys({VK_HOME, VK_DELETE, VK_RIGHT}), [&] { host.Press(VK_RIGHT, MOD_SHIFT); },
            [&] { host.Press(VK_END, MOD_SHIFT); },
            [&] {
                ExpectSelection(Item(10), 1, 5);
                host.Press('A', MOD_CONTROL, L'\x1');
            },
            [&] { ExpectSelection(Item(10), 0, 5); }, Keys({VK_END, VK_TBACK}), [&] { EXPECT_EQ(TextOf(10), L"bcde"); },
            // An empty field does not hand the Back key on to the dialog.
            Keys({VK_TBACK, VK_TBACK, VK_TBACK, VK_TBACK, VK_TBACK}),
            [&] {
                EXPECT_EQ(TextOf(10), L"");
                EXPECT_TRUE(notifications.empty());
            }});
}

/// A long text with the partner that lets it open full screen.
class FullScreenTest : public EditTest {
protected:
    void RunNotes(const wchar_t* text, std::vector<Step> steps, DWORD upDown = UDS_EXPANDABLE) {
        onInit = [this] {
            SendDlgItemMessageW(dialog, 11, UDM_SETBUDDY, reinterpret_cast<WPARAM>(Item(10)), 0);
            notifications.clear();
        };
        Run({{L"Static", WS_CHILD | WS_VISIBLE, 2, 0, 90, 8, 216, L"Notes:"},
                {L"Edit", Field | ES_MULTILINE | ES_UPPERCASE, 2, 10, 90, 30, 10, text},
                {L"msctls_updown32", WS_CHILD | WS_VISIBLE | upDown, 0, 0, 0, 0, 11, L""}, EditItem(12, 50)},
            std::move(steps));
    }
};

TEST_F(FullScreenTest, DoneTakesTheTextOver) {
    RunNotes(L"ONE",
        {Keys({VK_RETURN}),
            [&] {
                EXPECT_EQ(::TextOf(GetActiveWindow()), L"Notes");
                ExpectSelection(GetFocus(), 3, 3);
                host.Press(VK_RETURN);
                host.Type(L"two!");
            },
            Keys({VK_TBACK}), [&] { EXPECT_EQ(Painted(GetFocus()), L"ONE|TWO"); },
            Keys({VK_UP, VK_HOME, VK_DELETE, VK_TSOFT1}),
            [&] {
                EXPECT_EQ(TextOf(10), L"NE\nTWO");
                EXPECT_EQ(GetFocus(), Item(10));
            }});
}

TEST_F(FullScreenTest, SameLimitInsideAndCancelLeavesTheText) {
    RunNotes(L"ONE",
        {[&] { SendDlgItemMessageW(dialog, 10, EM_LIMITTEXT, 4, 0); }, Keys({VK_RETURN}), Typing(L"xyz"),
            Keys({VK_TSOFT1}), [&] { EXPECT_EQ(TextOf(10), L"ONEX"); }, Keys({VK_RETURN, VK_TBACK, VK_TSOFT2}),
            [&] { EXPECT_EQ(TextOf(10), L"ONEX"); }});
}

TEST_F(FullScreenTest, WithoutExpandBitsActionIsTheDialogs) {
    onCommand = [](int id, UINT, LPARAM sender) { EXPECT_EQ(sender == 0, id == IDOK); };
    RunNotes(L"ONE",
        {Keys({VK_RETURN}),
            [&] {
                EXPECT_EQ(notifications.back(), std::pair(IDOK, UINT{0}));
                EXPECT_EQ(GetFocus(), Item(10));
            }},
        UDS_WRAP);
}

TEST_F(FullScreenTest, LongTextScrollsAndKeepsItsColumn) {
    std::wstring text;
    for (int line = 0; line < 200; ++line)
        text += (line % 2 ? L"LONGER LINE " : L"A") + std::to_wstring(line) + L"\n";
    RunNotes(text.c_str(),
        {Keys({VK_RETURN}),
            [&] {
                ExpectSelection(GetFocus(), text.size(), text.size());
                host.Press(VK_HOME, MOD_CONTROL);
            },
            Keys({VK_DOWN, VK_END, VK_DOWN, VK_DOWN}),
            [&] {
                const std::size_t end = text.find(L"LONGER LINE 3") + 13; // past the short line between
                ExpectSelection(GetFocus(), end, end);
                EXPECT_NE(Painted(GetFocus()).find(L"LONGER LINE 1|"), std::wstring::npos) << "in view";
            },
            Keys({VK_TSOFT2})});
}
