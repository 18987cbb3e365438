#include "fake_host.h"

#include "platform/controls/edit.h"

namespace {

constexpr DWORD Field = WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL;

DialogItemTemplate EditItem(UINT id, int y, DWORD style = 0, const wchar_t* text = L"") {
    return {L"Edit", Field | style, 2, y, 90, 12, id, text};
}

} // namespace

class EditTest : public ControlTest {
protected:
    const device::Edit& EditOf(HWND window) { return dynamic_cast<const device::Edit&>(*device::ControlOf(window)); }
    void ExpectSelection(HWND window, std::size_t start, std::size_t end) {
        EXPECT_EQ(EditOf(window).SelectionStart(), start);
        EXPECT_EQ(EditOf(window).SelectionEnd(), end);
    }
    LRESULT DialogCode(int id, WORD key) {
        MSG pending{Item(id), WM_KEYDOWN, key, 0};
        return SendMessageW(Item(id), WM_GETDLGCODE, key, reinterpret_cast<LPARAM>(&pending));
    }
};

TEST_F(EditTest, EnteringSelectsAndTypingReplaces) {
    Run({EditItem(10, 0, 0, L"old"), EditItem(11, 20, ES_NUMBER, L"5")},
        {[&] { ExpectSelection(Item(10), 0, 3); }, Typing(L"n\u00e9w"), Keys({VK_DOWN}),
            [&] {
                EXPECT_EQ(TextOf(10), L"n\u00e9w");
                EXPECT_EQ(GetFocus(), Item(11));
                ExpectSelection(Item(11), 0, 1);
                const std::vector<std::pair<int, UINT>> expected{{10, EN_SETFOCUS}, {10, EN_CHANGE}, {10, EN_CHANGE},
                    {10, EN_CHANGE}, {10, EN_KILLFOCUS}, {11, EN_SETFOCUS}};
                EXPECT_EQ(notifications, expected);
            },
            Typing(L"x-4.2"),
            [&] {
                EXPECT_EQ(TextOf(11), L"42");
                SetDlgItemInt(dialog, 11, static_cast<UINT>(-7), TRUE);
                EXPECT_EQ(TextOf(11), L"-7") << "only typing is held to digits";
            }});
}

TEST_F(EditTest, KeysMoveSelectAndDelete) {
    Run({EditItem(10, 0, 0, L"abcdef")},
        {Keys({VK_HOME, VK_DELETE, VK_RIGHT}),
            [&] {
                EXPECT_EQ(TextOf(10), L"bcdef");
                ExpectSelection(Item(10), 1, 1);
                Key(VK_RIGHT, MOD_SHIFT);
                Key(VK_END, MOD_SHIFT);
            },
            [&] {
                ExpectSelection(Item(10), 1, 5);
                DWORD start = 9, end = 9;
                EXPECT_EQ(
                    SendMessageW(Item(10), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end)),
                    MAKELPARAM(1, 5));
                EXPECT_EQ(start, 1U);
                EXPECT_EQ(end, 5U);
                Key('A', MOD_CONTROL, L'\x1');
            },
            [&] {
                ExpectSelection(Item(10), 0, 5);
                Key(VK_END);
                Key(VK_BACK, 0, L'\b');
            },
            // The Back key deletes as well, and an empty field does not hand it on to the dialog.
            [&] { EXPECT_EQ(TextOf(10), L"bcde"); }, Keys({VK_TBACK, VK_TBACK, VK_TBACK, VK_TBACK, VK_TBACK}),
            [&] { EXPECT_EQ(TextOf(10), L""); }});
}

TEST_F(EditTest, ReadOnlyMovesAndChangesNothing) {
    Run({EditItem(10, 0, ES_READONLY, L"fixed")}, {Typing(L"x"), Keys({VK_DELETE, VK_TBACK, VK_END}), [&] {
                                                       EXPECT_EQ(TextOf(10), L"fixed");
                                                       ExpectSelection(Item(10), 5, 5);
                                                       EXPECT_STREQ(device::ControlOf(Item(10))->InputMark(), L"");
                                                       SetWindowTextW(Item(10), L"set");
                                                       EXPECT_EQ(TextOf(10), L"set");
                                                   }});
}

TEST_F(EditTest, InputMarksTellWhatIsTyped) {
    Run({EditItem(10, 0), EditItem(11, 20, ES_NUMBER), EditItem(12, 40, ES_UPPERCASE, L"abc"), EditItem(13, 60)},
        {[&] {
             SendDlgItemMessageW(dialog, 13, EM_SETINPUTMODE, 0, EIM_NUMBERS);
             const wchar_t* marks[] = {L"abc", L"123", L"ABC", L"123"};
             for (int id = 10; id <= 13; ++id)
                 EXPECT_STREQ(device::ControlOf(Item(id))->InputMark(), marks[id - 10]);
             EXPECT_EQ(TextOf(12), L"ABC");
             EXPECT_TRUE(EditOf(Item(13)).IsNumeric());
             SetFocus(Item(13));
         },
            Typing(L"1,5x"), [&] { EXPECT_EQ(TextOf(13), L"1,5x") << "numbers mode refuses nothing"; }});
}

TEST_F(EditTest, LimitHoldsForTypingAlone) {
    Run({EditItem(10, 0)},
        {[&] {
             SendDlgItemMessageW(dialog, 10, EM_LIMITTEXT, 3, 0);
             Type(L"abcdef");
         },
            [&] {
                EXPECT_EQ(TextOf(10), L"abc");
                SetDlgItemTextW(dialog, 10, L"abcdef");
                EXPECT_EQ(TextOf(10), L"abcdef");
                SendDlgItemMessageW(dialog, 10, EM_LIMITTEXT, 0, 0);
                Type(L"x");
            },
            [&] { EXPECT_EQ(TextOf(10), L"xabcdef"); }});
}

TEST_F(EditTest, TextIsPaintedOnceHoweverItIsSelected) {
    const auto expectOnce = [&](const wchar_t* text) { EXPECT_EQ(Painted(Item(10)), text); };
    Run({EditItem(10, 0, 0, L"Stra\u00dfe \U0001F697"), EditItem(11, 20, 0, L"other")},
        {[=] { expectOnce(L"Stra\u00dfe \U0001F697"); }, [&] { SendDlgItemMessageW(dialog, 10, EM_SETSEL, 2, 4); },
            [=] { expectOnce(L"Stra\u00dfe \U0001F697"); }, Keys({VK_DOWN}),
            [=] { expectOnce(L"Stra\u00dfe \U0001F697"); }, [&] { EXPECT_EQ(Painted(Item(11)), L"other"); }});
}

/// A long text with the partner that lets it open full screen.
class FullScreenTest : public EditTest {
protected:
    void RunNotes(const wchar_t* text, std::vector<FakeHost::Step> steps, DWORD upDown = UDS_EXPANDABLE) {
        onInit = [this] {
            SendDlgItemMessageW(dialog, 11, UDM_SETBUDDY, reinterpret_cast<WPARAM>(Item(10)), 0);
            notifications.clear();
        };
        Run({{L"Static", WS_CHILD | WS_VISIBLE, 2, 0, 90, 8, 216, L"Notes:"},
                {L"Edit", Field | ES_MULTILINE | ES_UPPERCASE, 2, 10, 90, 30, 10, text},
                {L"msctls_updown32", WS_CHILD | WS_VISIBLE | upDown, 0, 0, 0, 0, 11, L""}, EditItem(12, 50)},
            std::move(steps));
    }
    HWND Editor() { return GetFocus(); }
    std::wstring FrontTitle() { return TextOf(device::Desktop::The().Active()); }
};

TEST_F(FullScreenTest, DoneTakesTheTextOver) {
    RunNotes(L"ONE",
        {[&] {
             EXPECT_EQ(DialogCode(10, VK_RETURN) & DLGC_WANTMESSAGE, DLGC_WANTMESSAGE);
             EXPECT_EQ(DialogCode(10, VK_DOWN) & (DLGC_WANTMESSAGE | DLGC_WANTARROWS), 0);
             Key(VK_RETURN);
         },
            [&] {
                EXPECT_EQ(FrontTitle(), L"Notes");
                EXPECT_NE(Editor(), Item(10));
                RECT client, editor;
                GetClientRect(GetParent(Editor()), &client);
                GetClientRect(Editor(), &editor);
                EXPECT_EQ(client.bottom, editor.bottom);
                ExpectSelection(Editor(), 3, 3);
                Key(VK_RETURN);
                Type(L"two!");
            },
            Keys({VK_TBACK}), [&] { EXPECT_EQ(Painted(Editor()), L"ONE|TWO"); },
            Keys({VK_UP, VK_HOME, VK_DELETE, VK_TSOFT1}),
            [&] {
                EXPECT_EQ(TextOf(10), L"NE\nTWO");
                EXPECT_EQ(GetFocus(), Item(10));
                EXPECT_EQ(std::count(notifications.begin(), notifications.end(), std::pair(10, UINT{EN_CHANGE})), 1);
                EXPECT_EQ(FrontTitle(), L"Form");
            }});
}

TEST_F(FullScreenTest, CancelLeavesTheText) {
    RunNotes(L"ONE",
        {Keys({VK_RETURN}), Typing(L"x"), Keys({VK_TSOFT2}), [&] {
             EXPECT_EQ(TextOf(10), L"ONE");
             EXPECT_EQ(std::count(notifications.begin(), notifications.end(), std::pair(10, UINT{EN_CHANGE})), 0);
         }});
}

TEST_F(FullScreenTest, SameLimitInside) {
    RunNotes(L"ONE",
        {[&] {
             SendDlgItemMessageW(dialog, 10, EM_LIMITTEXT, 4, 0);
             Key(VK_RETURN);
         },
            Typing(L"xyz"), Keys({VK_RETURN, VK_TSOFT1}), [&] { EXPECT_EQ(TextOf(10), L"ONEX"); }});
}

TEST_F(FullScreenTest, WithoutExpandBitsActionIsTheDialogs) {
    RunNotes(L"ONE",
        {Keys({VK_RETURN}),
            [&] {
                EXPECT_EQ(TextOf(10), L"ONE");
                EXPECT_EQ(FrontTitle(), L"Form");
                EXPECT_EQ(notifications.back(), std::pair(IDOK, UINT{0}));
                EXPECT_EQ(GetFocus(), Item(10));
            },
            Keys({VK_DOWN}), [&] { EXPECT_EQ(GetFocus(), Item(12)); }},
        UDS_WRAP);
}

TEST_F(FullScreenTest, LongTextScrollsAndKeepsItsColumn) {
    std::wstring text;
    for (int line = 0; line < 200; ++line)
        text += (line % 2 ? L"LONGER LINE " : L"A") + std::to_wstring(line) + L"\n";
    RunNotes(text.c_str(),
        {Keys({VK_RETURN}),
            [&] {
                EXPECT_EQ(EditOf(Editor()).Caret(), text.size());
                EXPECT_NE(Painted(Editor()).find(L"LONGER LINE 199"), std::wstring::npos);
                EXPECT_EQ(Painted(Editor()).find(L"LONGER LINE 1|"), std::wstring::npos);
                Key(VK_HOME, MOD_CONTROL);
                Key(VK_DOWN);
                Key(VK_END);
                Key(VK_DOWN);
                Key(VK_DOWN);
            },
            [&] {
                const std::size_t second = text.find(L"LONGER LINE 3");
                EXPECT_EQ(EditOf(Editor()).Caret(), second + 13) << "past the short line between";
                EXPECT_NE(Painted(Editor()).find(L"LONGER LINE 1|"), std::wstring::npos);
                Key(VK_TSOFT2);
            }});
}
