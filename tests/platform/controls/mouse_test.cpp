#include "control_test.h"

#include "platform/controls/list_view.h"
#include "platform/drawing/device_context.h"
#include "platform/drawing/rectangles.h"
#include "platform/messages.h"
#include "platform/metrics.h"
#include "platform/windowing/scroll_bar.h"
#include "platform/windowing/soft_key_bar.h"

using device::Clipboard;
using device::PointerShape;

namespace {

constexpr DWORD Field = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr UINT List = 10;
constexpr UINT Text = 11;
constexpr UINT Other = 12;
constexpr int Rows = 40;

device::Window& WindowOf(HWND handle) {
    return *device::FindWindowRecord(handle);
}

POINT CentreOf(const RECT& place) {
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

} // namespace

class MouseTest : public ControlTest {
protected:
    using Kind = ScriptedHost::Event::Kind;
    using Button = ScriptedHost::Event::Button;

    /// A list of 40 rows, and two fields with the text "one two three" and none.
    std::vector<DialogItemTemplate> Items(const wchar_t* listClass, DWORD listStyle, DWORD textStyle = 0) {
        onInit = [this, isBox = std::wstring(listClass) == L"ListBox"] {
            for (int row = 0; row < Rows; ++row) {
                const std::wstring text = L"row " + std::to_wstring(row);
                LVITEMW item;
                item.mask = LVIF_TEXT;
                item.iItem = row;
                item.pszText = const_cast<wchar_t*>(text.c_str()); // NOLINT: as the interface has it
                SendDlgItemMessageW(dialog, List, isBox ? LB_ADDSTRING : LVM_INSERTITEMW, 0,
                    isBox ? reinterpret_cast<LPARAM>(text.c_str()) : reinterpret_cast<LPARAM>(&item));
            }
        };
        return {{listClass, Field | WS_VSCROLL | listStyle, 2, 2, 90, 60, List, L""},
            {L"Edit", Field | ES_AUTOHSCROLL | textStyle, 2, 70, 90, 12, Text, L"one two three"},
            {L"Edit", Field | ES_AUTOHSCROLL | ES_NUMBER, 2, 90, 90, 12, Other, L""}};
    }
    std::vector<DialogItemTemplate> WithListView(DWORD textStyle = 0) {
        return Items(L"SysListView32", LVS_REPORT | LVS_NOCOLUMNHEADER, textStyle);
    }

    POINT RowPlace(int row) const {
        const auto& view = dynamic_cast<const device::ListView&>(*WindowOf(Item(List)).control);
        const RECT client = ScreenClient(WindowOf(Item(List)));
        return {client.left + 20, client.top + (row - view.Rows().First()) * view.RowHeight() + 3};
    }
    std::vector<int> SelectedRows() const {
        std::vector<int> rows;
        for (LRESULT row = -1;
             (row = SendDlgItemMessageW(dialog, List, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED)) >= 0;)
            rows.push_back(static_cast<int>(row));
        return rows;
    }
    /// Before a character of a field.
    POINT Before(UINT field, const std::wstring& before) const {
        const device::Window& window = WindowOf(Item(static_cast<int>(field)));
        const RECT client = ScreenClient(window);
        const int width = device::Desktop::The().Screen().Measurer().Width(device::FontOf(window.font), before);
        return {client.left + device::Scaled(4) + width, CentreOf(client).y};
    }
    void ExpectSelection(UINT field, std::size_t start, std::size_t end) const {
        EXPECT_EQ(SendDlgItemMessageW(dialog, static_cast<int>(field), EM_GETSEL, 0, 0), MAKELPARAM(start, end));
    }
    /// Clicks beside the thumb, drags it, turns the wheel over it: what is behind the bar hears nothing of it.
    std::vector<Step> BarSteps(std::function<HWND()> window) {
        const auto bar = [window] { return device::ScrollBarOf(WindowOf(window())); };
        const auto expect = [bar](int position) { EXPECT_EQ(bar().position, position); };
        const auto shared = std::make_shared<int>();
        return {[=, this] {
                    ASSERT_FALSE(IsRectEmpty(bar().Thumb()));
                    expect(0);
                    host.Click({bar().place.left + 2, bar().place.bottom - 1});
                },
            [=, this] {
                expect(std::min(bar().page, bar().range - bar().page));
                host.Click({bar().place.left + 2, bar().place.top});
            },
            [=, this] {
                expect(0);
                host.Drag(CentreOf(bar().Thumb()), {0, 1000}); // also beside the bar
                host.Mouse(Kind::MouseMove, {0, 0});
            },
            [=, this] {
                expect(bar().range - bar().page);
                *shared = bar().position;
                host.Mouse(Kind::Wheel, CentreOf(bar().place));
                host.events.back().delta = 1;
            },
            [=, this] {
                EXPECT_LT(bar().position, *shared);
                host.Drag(CentreOf(bar().Thumb()), CentreOf(bar().place));
            },
            [=] { EXPECT_NEAR(bar().position, (bar().range - bar().page) / 2, bar().range / 10); }};
    }
};

TEST_F(MouseTest, ScrollBarsPageAndDragAndLeaveTheRowsAlone) {
    std::vector<Step> steps = BarSteps([this] { return Item(List); });
    steps.emplace_back([this] { EXPECT_EQ(SelectedRows(), std::vector<int>{}); });
    Run(WithListView(), steps);

    steps = BarSteps([this] { return Item(List); });
    steps.emplace_back([this] { EXPECT_EQ(SendDlgItemMessageW(dialog, List, LB_GETCURSEL, 0, 0), LB_ERR); });
    Run(Items(L"ListBox", 0), steps);

    std::wstring text = L"0";
    for (int line = 1; line < Rows; ++line)
        text += L"\n" + std::to_wstring(line);
    steps = BarSteps([this] { return Item(Text); });
    steps.insert(steps.begin(), [this] { host.Press(VK_HOME, MOD_CONTROL); });
    steps.emplace_back([this] { ExpectSelection(Text, 0, 0); });
    onInit = nullptr;
    Run({{L"Edit", Field | ES_MULTILINE | WS_VSCROLL, 2, 2, 90, 60, Text, text.c_str()}}, steps);

    // A form that is taller than the screen.
    std::vector<DialogItemTemplate> fields;
    for (UINT field = 0; field < Rows; ++field)
        fields.push_back({L"Edit", Field, 2, static_cast<int>(field) * 14, 90, 12, 100 + field, L""});
    steps = BarSteps([this] { return dialog; });
    steps.emplace_back([] { EXPECT_EQ(GetDlgCtrlID(GetFocus()), 100); });
    Run(fields, steps);
}

TEST_F(MouseTest, RowsAreSelectedByDragsAndByTheRightButton) {
    const std::vector<int> three = {2, 3, 4};
    Run(WithListView(),
        {[this] { host.Drag(RowPlace(2), RowPlace(4)); },
            [&] {
                EXPECT_EQ(SelectedRows(), three);
                host.Mouse(Kind::MouseMove, RowPlace(1)); // nothing is held any more
                host.Click(RowPlace(3), Button::Right);
            },
            [&] {
                EXPECT_EQ(SelectedRows(), three) << "a row of the selection keeps it";
                host.Click(RowPlace(1), Button::Right);
            },
            [this] {
                EXPECT_EQ(SelectedRows(), std::vector<int>{1});
                const RECT client = ScreenClient(WindowOf(Item(List)));
                host.Drag(RowPlace(1), {client.left, client.bottom + 50});
            },
            [this] {
                EXPECT_GT(device::ScrollBarOf(WindowOf(Item(List))).position, 0) << "beyond the edge it scrolls";
            }});
}

TEST_F(MouseTest, ADoubleClickTakesTheRowOnlyWhereBothHalvesHitIt) {
    int taken = 0;
    onCommand = [&](int id, UINT, LPARAM) { taken += id == IDOK ? 1 : 0; };
    const auto at = [this](int y) {
        const RECT client = ScreenClient(WindowOf(Item(List)));
        return POINT{client.left + 20, client.top + y};
    };
    Run(Items(L"ListBox", 0),
        {[&, this] {
             host.Click(at(5));
             host.Mouse(Kind::DoubleClick, at(45));
         },
            [&, this] {
                EXPECT_EQ(taken, 0);
                EXPECT_NE(SendDlgItemMessageW(dialog, List, LB_GETCURSEL, 0, 0), 0);
                host.DoubleClick(at(5));
            },
            [&] { EXPECT_EQ(taken, 1); }});
}

TEST_F(MouseTest, TheSecondHalfOfADoubleClickDoesNothingInWhatTheFirstOneOpened) {
    static constexpr MenuItemResource Keys[] = {{L"Delete", 77}};
    onCommand = [this](int id, UINT, LPARAM) {
        if (id == 77)
            MessageBoxW(dialog, L"Sure?", L"", MB_YESNO);
    };
    Run(WithListView(),
        {[this] {
             device::SoftKeyBar::Make(dialog, Keys);
             host.DoubleClick({20, device::ScreenSize().cy - 2});
         },
            [this] {
                ASSERT_NE(GetActiveWindow(), dialog) << "the question still stands";
                Close(GetActiveWindow(), IDNO);
            }});
}

TEST_F(MouseTest, ADragEndsWithItsWindowAndUnderAnotherOne) {
    onCommand = [this](int id, UINT, LPARAM) {
        if (id == 77)
            MessageBoxW(dialog, L"Wait", L"", MB_OK);
    };
    Run(WithListView(),
        {[this] {
             host.Mouse(Kind::MouseDown, RowPlace(2));
             PostMessageW(dialog, WM_COMMAND, 77, 0);
         },
            [this] {
                host.Mouse(Kind::MouseMove, RowPlace(5));
                host.Mouse(Kind::MouseUp, RowPlace(5));
                host.Press(VK_TACTION);
            },
            [this] {
                EXPECT_EQ(SelectedRows(), std::vector<int>{2});
                host.Mouse(Kind::MouseDown, CentreOf(device::ScrollBarOf(WindowOf(Item(List))).Thumb()));
            },
            [this] {
                DestroyWindow(Item(List));
                host.Mouse(Kind::MouseMove, {0, 300});
                host.Mouse(Kind::MouseUp, {0, 300});
            },
            [this] { EXPECT_EQ(Item(List), nullptr); }});
}

TEST_F(MouseTest, TextIsSelectedByTheMouse) {
    const auto selected = [] { return device::Desktop::The().StoredText(Clipboard::Selected); };
    Run(WithListView(),
        {[this] { host.Drag(Before(Text, L"one "), Before(Text, L"one tw")); },
            [&] {
                ExpectSelection(Text, 4, 6);
                EXPECT_EQ(selected(), L"tw");
                host.Click(Before(Text, L"one two th"), Button::Left, MOD_SHIFT);
            },
            [&] {
                ExpectSelection(Text, 4, 10);
                host.DoubleClick(Before(Text, L"o"));
                // A hand is never quite still.
                host.events.insert(host.events.end() - 1, {Kind::MouseMove});
                host.events[host.events.size() - 2].x = static_cast<int>(Before(Text, L"on").x);
            },
            [&] {
                ExpectSelection(Text, 0, 3);
                EXPECT_EQ(selected(), L"one");
            },
            [this] {
                SetWindowTextW(Item(Text), std::wstring(200, L'x').c_str());
                host.Mouse(Kind::MouseDown, Before(Text, L"xx"));
                for (int moves = 0; moves < 300; ++moves)
                    host.Mouse(Kind::MouseMove, {400, 0});
            },
            [this] { ExpectSelection(Text, 2, 200); }});
}

TEST_F(MouseTest, TextsGoThroughTheClipboard) {
    const auto copied = [] { return device::Desktop::The().StoredText(Clipboard::Copied); };
    Run(WithListView(),
        {[this] {
             SetFocus(Item(Text));
             host.Press('X', MOD_CONTROL);
         },
            [&, this] {
                EXPECT_EQ(TextOf(Text), L"");
                EXPECT_EQ(copied(), L"one two three");
                host.Type(L"7 km");
                host.Press(VK_HOME, MOD_SHIFT); // becomes what the middle button pastes
                host.Press(VK_END);
                host.Press(VK_INSERT, MOD_SHIFT);
            },
            [this] {
                EXPECT_EQ(TextOf(Text), L"7 kmone two three");
                SendDlgItemMessageW(dialog, Other, EM_LIMITTEXT, 3, 0);
                host.Click(CentreOf(ScreenClient(WindowOf(Item(Other)))), Button::Middle);
            },
            [this] {
                EXPECT_EQ(TextOf(Other), L"7");
                ScriptedHost::Event paste{Kind::Paste};
                paste.text = L"12.345\n";
                host.events.push_back(paste);
            },
            [this] { EXPECT_EQ(TextOf(Other), L"712") << "as many as there is room for"; }});

    Run(WithListView(ES_READONLY),
        {[this] {
             SetFocus(Item(Text));
             host.Press('V', MOD_CONTROL);
             host.Press('A', MOD_CONTROL);
             host.Press(VK_DELETE, MOD_SHIFT);
         },
            [&, this] {
                EXPECT_EQ(TextOf(Text), L"one two three");
                EXPECT_EQ(copied(), L"one two three");
            }});
}

TEST_F(MouseTest, DatesAreCopiedAndPastedAsAWhole) {
    const auto paste = [this](const wchar_t* text) {
        ScriptedHost::Event event{Kind::Paste};
        event.text = text;
        return [this, event] { host.events.push_back(event); };
    };
    Run({{L"SysDateTimePick32", Field, 2, 2, 90, 12, Text, L""}},
        {paste(L"1/5/2026"), [this] { EXPECT_EQ(TextOf(Text), L"1/5/2026"); }, paste(L"on 2024-02-29, 8"),
            [this] { EXPECT_EQ(TextOf(Text), L"1/5/2026") << "that is no date alone"; }, paste(L"2024-02-29\n"),
            [this] { EXPECT_EQ(TextOf(Text), L"2/29/2024"); }, paste(L"2/30/2024"), paste(L"12345678901234567890"),
            [this] {
                EXPECT_EQ(TextOf(Text), L"2/29/2024");
                host.Press('C', MOD_CONTROL);
            },
            [] { EXPECT_EQ(device::Desktop::The().StoredText(Clipboard::Copied), L"2/29/2024"); }});
}

TEST_F(MouseTest, ThePointerSaysWhatAClickWouldDo) {
    static constexpr MenuItemResource Keys[] = {{L"Done", 77}, {}};
    const LONG low = device::ScreenSize().cy - 2;
    Run(WithListView(),
        {[&, this] {
             device::SoftKeyBar::Make(dialog, Keys);
             for (const POINT at : {RowPlace(1), Before(Text, L"one"), Before(Text, L"o"), POINT{20, low},
                      POINT{device::ScreenSize().cx - 20, low}, Before(Other, L"")})
                 host.Mouse(Kind::MouseMove, at);
         },
            [this] {
                SendDlgItemMessageW(dialog, Other, EM_SETREADONLY, TRUE, 0);
                host.Mouse(Kind::MouseMove, Before(Other, L""));
            }});
    EXPECT_EQ(host.shapes,
        (std::vector{
            PointerShape::Text, PointerShape::Hand, PointerShape::Arrow, PointerShape::Text, PointerShape::Arrow}));
}
