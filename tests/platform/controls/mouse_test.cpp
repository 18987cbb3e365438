#include "control_test.h"

#include "platform/drawing/device_context.h"
#include "platform/metrics.h"
#include "platform/windowing/soft_key_bar.h"

using device::Clipboard;
using device::PointerShape;

namespace {

constexpr UINT Text = 11;
constexpr UINT Other = 12;
constexpr UINT Asking = 77;
constexpr MenuItemResource SoftKeys[] = {{L"Ask", Asking}, {}};

POINT CentreOf(const RECT& place) {
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

std::wstring Stored(Clipboard where) {
    return device::Desktop::The().StoredText(where);
}

} // namespace

/// A list of 40 rows, a field with the text "one two three" and one of digits, and a soft key that opens a question.
class MouseTest : public ControlTest {
protected:
    using Button = ScriptedHost::Event::Button;

    void RunList(const wchar_t* listClass, DWORD textStyle, const std::vector<Step>& steps) {
        onInit = [this] {
            device::SoftKeyBar::Make(dialog, SoftKeys);
            FillList();
        };
        onCommand = [this](int id, UINT, LPARAM) {
            actions += id == IDOK ? 1 : 0;
            if (id == Asking)
                MessageBoxW(dialog, L"Sure?", L"", MB_YESNO);
        };
        const DWORD listStyle = *listClass == L'L' ? WS_VSCROLL : DWORD{LVS_REPORT | LVS_NOCOLUMNHEADER};
        Run({{listClass, Field | listStyle, 2, 2, 90, 60, List, L""},
                {L"Edit", Field | ES_AUTOHSCROLL | textStyle, 2, 70, 90, 12, Text, L"one two three"},
                {L"Edit", Field | ES_AUTOHSCROLL | ES_NUMBER, 2, 90, 90, 12, Other, L""}},
            steps);
    }
    Step Pasting(const wchar_t* text) {
        return [this, text] { host.events.push_back({.kind = Kind::Paste, .text = text}); };
    }

    LRESULT NextSelected(LRESULT row) const {
        return SendDlgItemMessageW(dialog, List, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED);
    }
    std::vector<LRESULT> Selected() const {
        std::vector<LRESULT> rows;
        for (LRESULT row = -1; (row = NextSelected(row)) >= 0;)
            rows.push_back(row);
        return rows;
    }
    /// Behind the first characters of a field.
    POINT Behind(UINT field, const wchar_t* first) const {
        const auto& font = device::FontOf(device::FindWindowRecord(Item(static_cast<int>(field)))->font);
        const int width = device::Desktop::The().Screen().Measurer().Width(font, first);
        return {ClientOf(field).left + device::Scaled(4) + width, CentreOf(ClientOf(field)).y};
    }
    void ExpectSelection(std::size_t start, std::size_t end) const {
        ControlTest::ExpectSelection(Item(Text), start, end);
    }
    device::ScrollBar Bar(UINT id) const {
        return device::ScrollBarOf(*device::FindWindowRecord(id == 0 ? dialog : Item(static_cast<int>(id))));
    }
    /// Clicks beside the thumb and drags it: what is behind the bar hears nothing of it.
    std::vector<Step> BarSteps(UINT id, Step check) {
        const auto end = [=, this](bool lower) {
            return POINT{Bar(id).place.left, lower ? Bar(id).place.bottom - 1 : Bar(id).place.top};
        };
        return {[=, this] { host.Click(end(true)); },
            [=, this] {
                EXPECT_EQ(Bar(id).position, std::min(Bar(id).page, Bar(id).range - Bar(id).page));
                host.Click(end(false));
            },
            [=, this] {
                EXPECT_EQ(Bar(id).position, 0);
                host.Drag(CentreOf(Bar(id).Thumb()), {0, 1000}); // also beside the bar
                host.Mouse(Kind::MouseMove, {0, 0});
            },
            [=, this] {
                EXPECT_EQ(Bar(id).position, Bar(id).range - Bar(id).page);
                host.Drag(CentreOf(Bar(id).Thumb()), CentreOf(Bar(id).place));
            },
            [=, this] {
                EXPECT_NEAR(Bar(id).position, (Bar(id).range - Bar(id).page) / 2, Bar(id).range / 10);
                check();
            }};
    }

    int actions = 0;
};

TEST_F(MouseTest, ScrollBarsPageAndDragAndLeaveTheRowsAlone) {
    RunList(L"SysListView32", 0, BarSteps(List, [this] { EXPECT_EQ(Selected(), std::vector<LRESULT>{}); }));
    RunList(L"ListBox", 0,
        BarSteps(List, [this] { EXPECT_EQ(SendDlgItemMessageW(dialog, List, LB_GETCURSEL, 0, 0), LB_ERR); }));
    onInit = nullptr;
    const std::wstring lines(40, L'\n');
    Run({{L"Edit", Field, 2, 70, 90, 12, Other, L""},
            {L"Edit", Field | ES_MULTILINE | WS_VSCROLL, 2, 2, 90, 60, Text, lines.c_str()}},
        BarSteps(Text, [this] { ExpectSelection(0, 0); }));
    Run({{L"Edit", Field, 2, 2, 90, 12, Text, L""}, {L"Edit", Field, 2, 600, 90, 12, Other, L""}},
        BarSteps(0, [this] { EXPECT_EQ(GetFocus(), Item(Text)); }));
}

TEST_F(MouseTest, RowsAreSelectedByDragsAndByTheRightButton) {
    const std::vector<LRESULT> three = {2, 3, 4};
    RunList(L"SysListView32", 0,
        {[this] { host.Drag(Row(2), Row(4)); },
            [&, this] {
                EXPECT_EQ(Selected(), three);
                host.Mouse(Kind::MouseMove, Row(1)); // nothing is held any more
                host.Click(Row(3), Button::Right);
            },
            [&, this] {
                EXPECT_EQ(Selected(), three) << "a row of the selection keeps it";
                host.Click(Row(1), Button::Right);
            },
            [this] {
                EXPECT_EQ(Selected(), std::vector<LRESULT>{1});
                host.Drag(Row(1), {20, ClientOf(List).bottom + 50});
            },
            [this] { EXPECT_GT(Bar(List).position, 0) << "beyond the edge it scrolls"; }});
}

TEST_F(MouseTest, TheHalvesOfADoubleClickBelongTogether) {
    const POINT row{30, device::TitleHeight() + 10};
    RunList(L"ListBox", 0,
        {[&, this] {
             host.Click(row);
             host.Mouse(Kind::DoubleClick, {row.x, row.y + 40});
         },
            [&, this] {
                EXPECT_EQ(actions, 0) << "two rows";
                host.DoubleClick(row);
            },
            [this] {
                EXPECT_EQ(actions, 1);
                host.DoubleClick({20, device::ScreenSize().cy - 2});
            },
            [this] {
                ASSERT_NE(GetActiveWindow(), dialog) << "the second half answers no question of the first one's";
                Close(GetActiveWindow(), IDNO);
            }});
}

TEST_F(MouseTest, ADragEndsWithItsWindowAndUnderAnotherOne) {
    RunList(L"SysListView32", 0,
        {[this] {
             host.Mouse(Kind::MouseDown, Row(2));
             PostMessageW(dialog, WM_COMMAND, Asking, 0);
         },
            [this] {
                host.Mouse(Kind::MouseMove, Row(4));
                host.Mouse(Kind::MouseUp, Row(4));
                Close(GetActiveWindow(), IDNO);
            },
            [this] {
                EXPECT_EQ(Selected(), std::vector<LRESULT>{2});
                host.Mouse(Kind::MouseDown, CentreOf(Bar(List).Thumb()));
            },
            [this] {
                DestroyWindow(Item(List));
                host.Mouse(Kind::MouseMove, {0, 300});
                host.Mouse(Kind::MouseUp, {0, 300});
            }});
}

TEST_F(MouseTest, TextIsSelectedByTheMouse) {
    RunList(L"ListBox", 0,
        {[this] { host.Drag(Behind(Text, L"one "), Behind(Text, L"one tw")); },
            [this] {
                ExpectSelection(4, 6);
                EXPECT_EQ(Stored(Clipboard::Selected), L"tw");
                host.Click(Behind(Text, L"one two th"), Button::Left, MOD_SHIFT);
            },
            [this] {
                ExpectSelection(4, 10);
                host.DoubleClick(Behind(Text, L"o"));
                host.events.pop_back();
                host.Mouse(Kind::MouseMove, Behind(Text, L"on")); // a hand is never quite still
            },
            [this] {
                ExpectSelection(0, 3);
                EXPECT_EQ(Stored(Clipboard::Selected), L"one");
                SetWindowTextW(Item(Text), std::wstring(200, L'x').c_str());
                host.Mouse(Kind::MouseDown, Behind(Text, L"xx"));
                for (int moves = 0; moves < 300; ++moves)
                    host.Mouse(Kind::MouseMove, {400, 0});
            },
            [this] { ExpectSelection(2, 200); }});
}

TEST_F(MouseTest, TextsGoThroughTheClipboard) {
    RunList(L"ListBox", 0,
        {[this] {
             SetFocus(Item(Text));
             host.Press('X', MOD_CONTROL);
             host.Type(L"7 km");
             host.Press(VK_HOME, MOD_SHIFT); // becomes what the middle button pastes
             host.Press(VK_END);
             host.Press(VK_INSERT, MOD_SHIFT);
         },
            [this] {
                EXPECT_EQ(TextOf(Text), L"7 kmone two three");
                SendDlgItemMessageW(dialog, Other, EM_LIMITTEXT, 3, 0);
                host.Click(CentreOf(ClientOf(Other)), Button::Middle);
            },
            Pasting(L"12.345\n"), [this] { EXPECT_EQ(TextOf(Other), L"712") << "as many as there is room for"; }});
    RunList(L"ListBox", ES_READONLY,
        {[this] {
             SetFocus(Item(Text));
             host.Press('A', MOD_CONTROL);
             host.Press(VK_DELETE, MOD_SHIFT);
         },
            Pasting(L"x"),
            [this] {
                EXPECT_EQ(TextOf(Text), L"one two three");
                EXPECT_EQ(Stored(Clipboard::Copied), L"one two three");
            }});
}

TEST_F(MouseTest, DatesArePastedAsAWhole) {
    const auto shows = [this](const wchar_t* date) { return [this, date] { EXPECT_EQ(TextOf(Text), date); }; };
    Run({{L"SysDateTimePick32", Field, 2, 2, 90, 12, Text, L""}},
        {Pasting(L"1/5/2026"), shows(L"1/5/2026"), Pasting(L"2024-02-29\n"), shows(L"2/29/2024"), Pasting(L"2/30/2024"),
            Pasting(L"123456789012"), Pasting(L"7"), shows(L"2/29/2024")});
}

TEST_F(MouseTest, ThePointerSaysWhatAClickWouldDo) {
    const LONG low = device::ScreenSize().cy - 2;
    RunList(L"ListBox", 0, {[=, this] {
        const auto style = GetWindowLongW(Item(Other), GWL_STYLE);
        SetWindowLongW(Item(Other), GWL_STYLE, style | ES_READONLY);
        for (const POINT at : {POINT{30, 40}, Behind(Text, L"one"), Behind(Text, L"o"), POINT{20, low},
                 POINT{device::ScreenSize().cx - 20, low}, Behind(Other, L"")})
            host.Mouse(Kind::MouseMove, at);
    }});
    EXPECT_EQ(host.shapes, (std::vector{PointerShape::Text, PointerShape::Hand, PointerShape::Arrow}));
}
