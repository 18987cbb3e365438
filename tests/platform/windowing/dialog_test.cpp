#include "../controls/control_test.h"
#include "platform/metrics.h"
#include "platform/windowing/soft_key_bar.h"

namespace {

/// Labels from 200 on and edits from 100 on.
std::vector<DialogItemTemplate> Fields(UINT count) {
    constexpr DWORD Shown = WS_CHILD | WS_VISIBLE;
    std::vector<DialogItemTemplate> items;
    for (UINT index = 0; index < count; ++index) {
        const int top = static_cast<int>(index) * 25;
        items.push_back({L"Static", Shown, 3, top, 100, 10, 200 + index, L"Label:"});
        items.push_back({L"Edit", Shown | WS_TABSTOP | ES_AUTOHSCROLL, 3, top + 11, 100, 12, 100 + index, L"text"});
    }
    return items;
}

class DialogTest : public ControlTest {
protected:
    static int Focused() { return GetDlgCtrlID(GetFocus()); }
};

TEST_F(DialogTest, TheControlEnteredShowsWithItsLabel) {
    device::SetScreenSize({176, 160});
    const Step shows = [&] {
        const auto placeOf = [](HWND window) { return ScreenPlace(*device::FindWindowRecord(window)); };
        EXPECT_GE(placeOf(Item(Focused() + 100)).top, placeOf(dialog).top);
        EXPECT_LE(placeOf(GetFocus()).bottom, placeOf(dialog).bottom);
    };
    std::vector<Step> steps;
    for (int step = 0; step < 9; ++step)
        steps.insert(steps.end(), {Keys({VK_DOWN}), shows});
    Run(Fields(8), steps);
    device::SetScreenSize({320, 480});
}

TEST_F(DialogTest, WhoeverSetsTheFocusWhileItIsLostWins) {
    onCommand = [&](int id, UINT code, LPARAM) {
        if (id == 101 && code == EN_KILLFOCUS)
            SetFocus(Item(103));
    };
    Run(Fields(4),
        {Keys({VK_DOWN, VK_DOWN}), [&] {
             EXPECT_EQ(Focused(), 103);
             notifications.clear();
             EndDialog(dialog, 1);
             SetFocus(Item(100));
             EXPECT_EQ(std::count(notifications.begin(), notifications.end(), std::pair(103, EN_KILLFOCUS)), 0)
                 << "after EndDialog the controls hear no more of focus";
             host.steps.clear();
             PostMessageW(dialog, WM_NULL, 0, 0);
         }});
}

TEST_F(DialogTest, AKeyThatClosesAMessageBoxReachesNobodyElse) {
    onInit = [&] {
        static constexpr MenuItemResource Keys[] = {{L"Done", 1}, {L"Cancel", 2}};
        const device::SoftKeyBar* bar = device::SoftKeyBar::Make(dialog, Keys);
        SendMessageW(bar->Handle(), SHCMBM_OVERRIDEKEY, VK_TBACK, SHMBOF_NODEFAULT_NOTIFY);
    };
    std::vector<int> answers;
    onCommand = [&](int id, UINT, LPARAM sender) {
        if (id != 1 || sender == 0)
            return;
        for (const UINT style : {MB_OK, MB_OK, MB_OKCANCEL, MB_YESNO})
            answers.push_back(MessageBoxW(dialog, L"Text", L"Caption", style));
    };
    std::vector<Step> steps;
    for (const WORD key : {VK_TSOFT1, VK_TBACK, VK_TACTION, VK_TACTION, VK_TBACK, VK_TACTION, VK_TBACK})
        steps.push_back(Keys({key}));
    steps.insert(steps.end(),
        {[&] { EXPECT_EQ(::TextOf(GetActiveWindow()), L"Caption"); }, Keys({VK_TSOFT2}),
            [&] { EXPECT_TRUE(hotKeys.empty()); }, Keys({VK_TBACK})});
    Run(Fields(1), steps);
    EXPECT_EQ(hotKeys, (std::vector<UINT>{0, MOD_KEYUP}));
    EXPECT_EQ(answers, (std::vector{IDOK, IDOK, IDCANCEL, IDNO}));
}

TEST_F(DialogTest, ABeepConcernsTheFocusedFieldElseTheTitle) {
    const auto concerns = [](const RECT& place) {
        const RECT beep = device::Desktop::The().BeepPlace();
        EXPECT_EQ(std::tuple(beep.left, beep.top, beep.right, beep.bottom),
            std::tuple(place.left, place.top, place.right, place.bottom));
    };
    const RECT title{0, 0, 320, device::TitleHeight()};
    concerns(title); // no window at all
    onCommand = [&](int id, UINT, LPARAM) {
        if (id == 1)
            MessageBoxW(dialog, L"Text", L"Caption", MB_OK);
    };
    Run(Fields(2),
        {Keys({VK_DOWN}), [&] { concerns(ScreenPlace(*device::FindWindowRecord(Item(101)))); },
            [&] { PostMessageW(dialog, WM_COMMAND, 1, 0); }, [&] { concerns(title); }, Keys({VK_TACTION})});
}

TEST_F(DialogTest, AHeldKeyActsInTheControlThatHeardItFirst) {
    const auto hold1 = [this] {
        for (const bool isRepeat : {false, true, true}) {
            host.Type(L"1");
            host.events.back().isRepeat = isRepeat;
        }
    };
    Run(Fields(3),
        {Keys({VK_END}), [&] { host.Hold(VK_BACK, 3); }, [&] { EXPECT_EQ(TextOf(100), L"t"); },
            [&] { host.Hold(VK_DOWN, 3); },
            [&] {
                EXPECT_EQ(Focused(), 101);
                host.events.push_back({ScriptedHost::Event::Kind::KeyUp, VK_DOWN});
                host.Hold(VK_DOWN, 3);
            },
            [&] {
                EXPECT_EQ(Focused(), 102);
                SetFocus(Item(101));
                host.Hold(VK_BACK, 3); // gone meanwhile and back: no more
                hold1();
            },
            [&] {
                EXPECT_EQ(TextOf(101), L"111");
                SetFocus(Item(100));
                host.Type(L"1");
                host.events.back().isRepeat = true;
            },
            [&] { EXPECT_EQ(TextOf(100), L"t"); }});
}

TEST_F(DialogTest, WholeNumbersReadStrictly) {
    const std::tuple<const wchar_t*, BOOL, LONG> cases[]
        = {{L"-5", 1, -5}, {L" 7 ", 1, 7}, {L"", 0, 0}, {L"12a", 0, 0}, {L"-", 0, 0}, {L"2147483647", 1, 2147483647},
            {L"2147483648", 0, 0}, {L"-2147483648", 1, -2147483647 - 1}, {L"99999999999999999999999", 0, 0}};
    Run(Fields(1), {[&] {
        for (const auto& [text, wanted, value] : cases) {
            SetDlgItemTextW(dialog, 100, text);
            BOOL reads = TRUE;
            EXPECT_EQ(static_cast<LONG>(GetDlgItemInt(dialog, 100, &reads, TRUE)), value);
            EXPECT_EQ(reads, wanted) << value;
        }
    }});
}

} // namespace
