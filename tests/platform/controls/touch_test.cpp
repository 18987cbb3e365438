#include "control_test.h"

#include "platform/drawing/rectangles.h"
#include "platform/metrics.h"
#include "platform/windowing/open_menu.h"
#include "platform/windowing/soft_key_bar.h"

namespace {

constexpr UINT Amount = 11;
constexpr UINT Reading = 12;
constexpr UINT Day = 13;
constexpr UINT Asking = 77;
constexpr int Finger = 40;
constexpr MenuItemResource Items[] = {{L"Ask", Asking}, {L"Other", 78}};
constexpr MenuItemResource SoftKeys[] = {{L"Done", IDOK}, {L"Menu", 0, Items}};

} // namespace

/// What fingers do, and what a host with fields of its own over the device's is told and tells.
class TouchTest : public ControlTest {
protected:
    void Tap(POINT at, unsigned modifiers = 0) {
        host.events.push_back({.kind = Kind::Tap, .modifiers = modifiers, .x = at.x, .y = at.y});
    }
    void Pan(POINT at, std::initializer_list<int> moves) {
        bool isOn = false;
        for (const int move : moves)
            host.events.push_back(
                {.kind = Kind::Pan, .isRepeat = std::exchange(isOn, true), .x = at.x, .y = at.y, .delta = move});
    }
    void Enter(UINT field, const wchar_t* text, int start, int end) {
        host.events.push_back(
            {.kind = Kind::FieldText, .x = start, .y = end, .text = text, .field = Item(static_cast<int>(field))});
    }
    Step Back() {
        return [this] { host.events.push_back({.kind = Kind::Back}); };
    }
    LRESULT FirstSelected() const {
        return SendDlgItemMessageW(dialog, List, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
    }
    LRESULT CountSelected() const { return SendDlgItemMessageW(dialog, List, LVM_GETSELECTEDCOUNT, 0, 0); }
    const device::ShownField& Told(UINT id) const {
        static const device::ShownField none;
        for (const device::ShownField& field : host.fields)
            if (field.window == Item(static_cast<int>(id)))
                return field;
        return none;
    }
};

TEST_F(TouchTest, ATapChoosesTheNextOneActsAndALongPressAdds) {
    std::vector<WORD> keys;
    onInit = [this] { FillList(); };
    const DWORD style = LVS_REPORT | LVS_NOCOLUMNHEADER;
    Run({{L"SysListView32", Field | style, 2, 2, 90, 60, List, L""}},
        {[this] { Tap(Row(2)); }, // has the focus, but nothing is chosen yet
            [this] {
                EXPECT_EQ(FirstSelected(), 2);
                Tap(Row(1), MOD_CONTROL);
                Tap(Row(1)); // of two that are chosen
            },
            [this] { EXPECT_EQ(std::pair(FirstSelected(), CountSelected()), std::pair(LRESULT{1}, LRESULT{1})); }});
    int taken = 0;
    onCommand = [&](int id, UINT, LPARAM) { taken += id == IDOK ? 1 : 0; };
    Run({{L"ListBox", Field, 2, 2, 90, 60, List, L""}},
        {[this] {
             Tap({PlaceOf(List).left + 20, PlaceOf(List).top + 3});
         },
            [&] {
                EXPECT_EQ(taken, 0);
                Tap({PlaceOf(List).left + 20, PlaceOf(List).top + 3});
            },
            [&] { EXPECT_EQ(taken, 1); }});
}

TEST_F(TouchTest, ContentFollowsAFingerByThePixel) {
    LONG top = 0;
    onInit = [this] { FillList(); };
    Run({{L"SysListView32", Field | LVS_REPORT, 2, 2, 90, 60, List, L""}},
        {[&] {
             top = RowTop(0);
             Pan(Row(1), {-1000});
         },
            [this] {
                EXPECT_GT(RowTop(39), 0) << "no further than the last row";
                Pan(Row(39), {10'000, -7, -20});
            },
            [&] {
                EXPECT_EQ(RowTop(0), top - 27);
                Tap(Row(2));
            },
            [this] {
                EXPECT_EQ(FirstSelected(), 2);
                host.Press(VK_UP);
                host.Press(VK_UP);
            },
            [&] {
                EXPECT_EQ(FirstSelected(), 0);
                EXPECT_EQ(RowTop(0), top) << "a key shows its row whole";
            }});
    // Where the control under the finger has nothing to move, the form moves.
    Run({{L"Edit", Field, 2, 2, 90, 12, Amount, L""}, {L"Edit", Field, 2, 600, 90, 12, Reading, L""}},
        {[this] {
             Pan({PlaceOf(Amount).left + 3, PlaceOf(Amount).top + 3}, {-5, -6});
         },
            [this] { EXPECT_EQ(device::FindWindowRecord(dialog)->modal->scroll, 11); }});
}

TEST_F(TouchTest, BackLeavesWhateverHasTheFocusAndAsksWhereSomethingWasTyped) {
    onInit = [this] { device::SoftKeyBar::Make(dialog, SoftKeys); };
    int cancels = 0;
    onCommand = [&](int id, UINT, LPARAM) { cancels += id == IDCANCEL ? 1 : 0; };
    const auto hasQuestion = [] { return device::Desktop::The().Front()->isMessageBox; };
    Run({{L"Edit", Field, 2, 2, 90, 12, Amount, L"12"}},
        {Keys({VK_TSOFT2}), Back(),
            [&] {
                EXPECT_EQ(device::Desktop::The().Menu(), nullptr);
                EXPECT_EQ(cancels, 0) << "it closed the menu";
            },
            Back(),
            [&] {
                EXPECT_EQ(cancels, 1);
                EXPECT_EQ(TextOf(Amount), L"12") << "unlike the key";
                host.Type(L"3");
            },
            Back(),
            [&] {
                EXPECT_EQ(cancels, 1);
                EXPECT_TRUE(hasQuestion());
            },
            Keys({VK_TSOFT2}), // No
            [&] {
                EXPECT_EQ(cancels, 1);
                EXPECT_FALSE(hasQuestion());
            },
            Back(), Keys({VK_TSOFT1}), [&] { EXPECT_EQ(cancels, 2); }});
}

TEST_F(TouchTest, AMenuThatDoesNotFitFollowsAFingerAndATapChooses) {
    std::vector<MenuItemResource> items;
    for (UINT item = 0; item < 40; ++item)
        items.push_back({L"Item", 100 + item});
    const MenuItemResource keys[] = {{}, {L"Menu", 0, items}};
    onInit = [&] { device::SoftKeyBar::Make(dialog, keys); };
    int chosen = 0;
    int wanted = 0;
    onCommand = [&](int id, UINT, LPARAM) { chosen = id; };
    const auto place = [](int item) {
        const RECT row = device::Desktop::The().Menu()->ItemPlaces()[static_cast<std::size_t>(item)];
        return POINT{row.left + 10, (row.top + row.bottom) / 2};
    };
    Run({{L"Edit", Field, 2, 2, 90, 12, Amount, L""}},
        {Keys({VK_TSOFT2}),
            [&] {
                Pan(place(3), {-2000, 3});
            },
            [&] {
                const device::OpenMenu& menu = *device::Desktop::The().Menu();
                EXPECT_EQ(menu.FirstShown() + menu.CountShown(), 40) << "no further than the last item";
                Pan(place(39), {45});
            },
            [&] {
                const device::OpenMenu& menu = *device::Desktop::The().Menu();
                EXPECT_LT(menu.FirstShown() + menu.CountShown(), 40);
                Tap(place(menu.FirstShown() + 1));
                wanted = 100 + menu.FirstShown() + 1;
            },
            [&] { EXPECT_EQ(chosen, wanted); }});
}

TEST_F(TouchTest, AHostIsToldOfTheFieldsAndTellsWhatTheySay) {
    Set("HANDSET_LOCALE", "de_DE");
    onInit = [this] {
        SendDlgItemMessageW(dialog, Amount, EM_SETINPUTMODE, 0, EIM_NUMBERS);
        SendDlgItemMessageW(dialog, Reading, EM_LIMITTEXT, 4, 0);
    };
    const DWORD label = WS_CHILD | WS_VISIBLE;
    Run({{L"Static", label, 2, 2, 90, 10, 1, L"Amount:"}, {L"Edit", Field, 2, 12, 90, 12, Amount, L""},
            {L"Static", label, 2, 26, 90, 10, 2, L"Reading:"},
            {L"Edit", Field | ES_NUMBER, 2, 36, 90, 12, Reading, L"70"},
            {L"Edit", Field | ES_READONLY, 2, 50, 90, 12, 20, L""}},
        {[this] {
             using FieldKind = device::ShownField::Kind;
             ASSERT_EQ(host.fields.size(), 2U) << "nothing is typed into the third";
             EXPECT_EQ(Told(Amount).kind, FieldKind::Decimal);
             EXPECT_TRUE(Told(Amount).isFocused);
             EXPECT_EQ(Told(Amount).place, PlaceOf(Amount));
             EXPECT_EQ(Told(Reading).kind, FieldKind::Whole);
             EXPECT_EQ(Told(Reading).label, L"Reading");
             EXPECT_EQ(Told(Reading).limit, 4U);
             Enter(Amount, L"3.5", 3, 3);
             Enter(Reading, L"99", 0, 0); // the focus is elsewhere
         },
            [this] {
                EXPECT_EQ(Told(Amount).text, L"3,5") << "the keyboard's point is the locale's comma";
                EXPECT_EQ(Told(Amount).start, 3U);
                EXPECT_EQ(TextOf(Reading), L"70");
                SetFocus(Item(Reading));
                host.fields.clear();
                Enter(Reading, L"7x", 2, 2);
            },
            [this] {
                EXPECT_EQ(Told(Reading).text, TextOf(Reading)) << "what was refused is told, too";
                EXPECT_EQ(TextOf(Reading).find(L'x'), std::wstring::npos);
                Enter(Reading, L"123456", 6, 6);
            },
            [this] {
                EXPECT_EQ(Told(Reading).text, L"1234");
                host.fields.clear();
                Enter(Amount, L"5", 1, 1);
            },
            [this] {
                ASSERT_FALSE(host.fields.empty()) << "what came too late is answered, too";
                EXPECT_TRUE(Told(Reading).isFocused);
                Enter(Reading, L"", 0, 0);
            },
            [this] {
                EXPECT_EQ(TextOf(Reading), L"");
                MessageBoxW(dialog, L"Sure?", L"", MB_OK);
            },
            [this] {
                EXPECT_TRUE(host.fields.empty()) << "a message stands over them";
                host.Press(VK_TSOFT1);
            }});
}

TEST_F(TouchTest, WhatAFingerHitsIsLargeEnough) {
    device::SetTouchTarget(Finger);
    onInit = [this] {
        device::SoftKeyBar::Make(dialog, SoftKeys);
        SYSTEMTIME date{2026, 3, 0, 31};
        SendDlgItemMessageW(dialog, Day, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&date));
    };
    Run({{L"SysDateTimePick32", Field, 2, 2, 90, 12, Day, L""}, {L"Edit", Field, 2, 16, 90, 12, Amount, L""}},
        {[this] {
             EXPECT_EQ(device::SoftKeyBarHeight(), Finger);
             EXPECT_GE(device::HeightOf(PlaceOf(Day)), Finger);
             EXPECT_GE(PlaceOf(Amount).top, PlaceOf(Day).bottom) << "what stands below moves down";
             const RECT day = PlaceOf(Day);
             Tap({day.right - Finger / 2, day.top + Finger / 2});
             Tap({day.right - Finger / 2, day.top + Finger / 2});
             Tap({day.right - Finger - Finger / 2, day.top + Finger / 2});
         },
            [this] {
                SYSTEMTIME date;
                SendDlgItemMessageW(dialog, Day, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date));
                EXPECT_EQ(date.wMonth, 4) << "twice up, once down";
            }});
    device::SetTouchTarget(0);
}

TEST_F(TouchTest, TextsAreLargerAndAnOwnersRowsHaveRoom) {
    constexpr UINT Line = 14;
    constexpr UINT Picture = 15;
    onInit = [this] { FillList(); };
    const std::vector<DialogItemTemplate> items = {{L"STATIC", WS_CHILD | WS_VISIBLE, 2, 2, 60, 10, Line, L"Due"},
        {L"STATIC", WS_CHILD | WS_VISIBLE | SS_BITMAP, 2, 14, 40, 20, Picture, L""},
        {L"SysListView32", Field | LVS_REPORT | LVS_OWNERDRAWFIXED, 2, 40, 90, 60, List, L""}};
    std::vector<LONG> former;
    for (const int target : {0, Finger}) {
        device::SetTouchTarget(target);
        Run(items, {[&] {
            RECT label;
            label.left = LVIR_LABEL;
            SendDlgItemMessageW(dialog, List, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&label));
            const std::vector<LONG> now = {-host.canvas.Texts().front().font.height, PlaceOf(Line).right,
                label.top - RowTop(0), RowTop(1) - label.bottom};
            for (std::size_t each = 0; each < former.size(); ++each)
                EXPECT_GT(now[each], former[each]) << each;
            former = now;
            EXPECT_EQ(PlaceOf(Picture).right - PlaceOf(Picture).left, 60) << "a picture keeps its shape";
        }});
    }
    device::SetTouchTarget(0);
}
