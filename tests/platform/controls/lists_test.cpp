#include "control_test.h"

#include "platform/controls/list_box.h"
#include "platform/controls/list_view_rows.h"

using device::ListViewRows;

class ListBoxTest : public ControlTest {
protected:
    static DialogItemTemplate List(DWORD style = 0) {
        return {L"ListBox", WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 2, 0, 90, 30, 10, L""};
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendDlgItemMessageW(dialog, 10, message, wParam, lParam);
    }
    LRESULT Add(const wchar_t* text) { return Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)); }
    std::wstring Row(WPARAM index) {
        wchar_t text[32] = {};
        Send(LB_GETTEXT, index, reinterpret_cast<LPARAM>(text));
        return text;
    }
};

TEST_F(ListBoxTest, SortedRowsAndTheSelectionThatFollowsThem) {
    onInit = [this] {
        EXPECT_EQ(Add(L"pear"), 0);
        EXPECT_EQ(Add(L"Apple"), 0);
        EXPECT_EQ(Add(L"\u00c4quator"), 1) << "the locale's collation";
        EXPECT_EQ(Send(LB_SETCURSEL, 2), 2);
        EXPECT_EQ(Add(L"banana"), 2);
        EXPECT_EQ(Send(LB_GETCURSEL), 3) << "the selection stays with its row";
        EXPECT_EQ(Send(LB_SETITEMDATA, 3, 77), 0);
        EXPECT_EQ(Send(LB_DELETESTRING, 0), 3);
        EXPECT_EQ(Send(LB_GETITEMDATA, 2), 77);
        EXPECT_EQ(Send(LB_GETCURSEL), 2);
        EXPECT_EQ(Send(LB_DELETESTRING, 2), 2);
        EXPECT_EQ(Send(LB_GETCURSEL), LB_ERR) << "the selected row is gone";
        for (const UINT message : {LB_GETTEXTLEN, LB_GETITEMDATA, LB_DELETESTRING, LB_SETITEMDATA})
            EXPECT_EQ(Send(message, 2), LB_ERR);
        EXPECT_EQ(Send(LB_SETCURSEL, 9), LB_ERR);
        Send(LB_RESETCONTENT);
        EXPECT_EQ(Send(LB_GETCOUNT), 0);
    };
    Run({List(LBS_SORT)}, {Keys({VK_DOWN}), [&] { EXPECT_EQ(Send(LB_GETCURSEL), LB_ERR) << "nothing to select"; }});
}

TEST_F(ListBoxTest, KeysSelectAndTellOnlyOfChanges) {
    onInit = [this] {
        for (const wchar_t* text : {L"one", L"two", L"three", L"four", L"five"})
            Add(text);
    };
    Run({List(LBS_NOTIFY)},
        {Keys({VK_DOWN}), [&] { EXPECT_EQ(Send(LB_GETCURSEL), 0) << "the first press"; },
            Keys({VK_UP, VK_END, VK_DOWN}),
            [&] {
                EXPECT_EQ(Send(LB_GETCURSEL), 4);
                EXPECT_EQ(notifications.size(), 2U) << "at the ends nothing changes";
                EXPECT_EQ(notifications.back(), std::pair(10, UINT{LBN_SELCHANGE}));
            },
            Typing(L"T"), [&] { EXPECT_EQ(Row(static_cast<WPARAM>(Send(LB_GETCURSEL))), L"two"); }, Typing(L"t"),
            [&] { EXPECT_EQ(Send(LB_GETCURSEL), 2); },
            [&] { EXPECT_NE(Painted(Item(10)).find(L"three"), std::wstring::npos) << "in view"; }});
}

TEST_F(ListBoxTest, SpinnerWrapsSidewaysAndLeavesUpAndDownToTheDialog) {
    onInit = [this] {
        for (const wchar_t* text : {L"one", L"two", L"three"})
            Add(text);
        Send(LB_SETCURSEL, 0);
        SendDlgItemMessageW(dialog, 11, UDM_SETBUDDY, reinterpret_cast<WPARAM>(Item(10)), 0);
    };
    Run({List(), {L"msctls_updown32", WS_CHILD | WS_VISIBLE | UDS_HORZ, 0, 0, 0, 0, 11, L""},
            {L"Edit", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 2, 40, 90, 12, 12, L""}},
        {Keys({VK_LEFT}), [&] { EXPECT_EQ(Painted(Item(10)), L"three"); }, Keys({VK_RIGHT, VK_DOWN}),
            [&] {
                EXPECT_EQ(Send(LB_GETCURSEL), 0);
                EXPECT_EQ(GetFocus(), Item(12));
            }});
}

namespace {

ListViewRows Rows(int count, bool single = false) {
    ListViewRows rows(single);
    for (int index = 0; index < count; ++index) {
        ListViewRows::Row row;
        row.text = L"row " + std::to_wstring(index);
        row.data = 100 + index;
        rows.Insert(index, std::move(row));
    }
    return rows;
}

/// A character a row: `.` plain, `s` selected, and in capitals (`F` for a plain one) with the focus.
std::wstring Marks(const ListViewRows& rows) {
    std::wstring marks;
    for (int row = 0; row < rows.Count(); ++row) {
        const bool focused = rows.Focused() == row;
        marks += rows.IsSelected(row) ? (focused ? L'S' : L's') : (focused ? L'F' : L'.');
    }
    return marks;
}

} // namespace

TEST(ListViewRows, FocusAndSelectionMove) {
    using Move = ListViewRows::Move;
    struct Case {
        const char* name;
        bool single;
        std::function<void(ListViewRows&)> act;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {"first move", false, [](auto& r) { r.MoveBy(1, Move::Select); }, L"S...."},
        {"stops at the end", false, [](auto& r) { r.MoveTo(3, Move::Select), r.MoveBy(9, Move::Select); }, L"....S"},
        {"extend and back", false,
            [](auto& r) { r.MoveTo(2, Move::Select), r.MoveBy(2, Move::Extend), r.MoveBy(-3, Move::Extend); },
            L".Ss.."},
        {"turn over", false, [](auto& r) { r.MoveTo(1, Move::Select), r.MoveBy(2, Move::Alone), r.ToggleFocused(); },
            L".s.S."},
        {"all", false, [](auto& r) { r.SelectAll(); }, L"Sssss"},
        {"all of a single", true, [](auto& r) { r.MoveTo(1, Move::Select), r.SelectAll(); }, L".S..."},
        {"single never extends", true, [](auto& r) { r.MoveTo(1, Move::Select), r.MoveBy(1, Move::Extend); }, L"..S.."},
        {"single state", true,
            [](auto& r) { r.SetState(1, LVIS_SELECTED, LVIS_SELECTED), r.SetState(3, LVIS_SELECTED, LVIS_SELECTED); },
            L"...s."},
        {"insert before", false, [](auto& r) { r.MoveTo(1, Move::Select), r.Insert(0, {}); }, L"..S..."},
        {"the next key selects it", false,
            [](auto& r) { r.MoveTo(1, Move::Select), r.Remove(1), r.MoveBy(1, Move::Select); }, L".S.."},
        {"the last row deleted", false, [](auto& r) { r.MoveTo(4, Move::Select), r.Remove(4); }, L"...F"},
        {"bad rows", false, [](auto& r) { r.SetState(9, 3, 3), r.Remove(-1), r.MoveTo(5, Move::Select); }, L"....."},
    };
    for (const Case& each : cases) {
        ListViewRows rows = Rows(5, each.single);
        each.act(rows);
        EXPECT_EQ(Marks(rows), each.expected) << each.name;
        const std::wstring marks = Marks(rows);
        EXPECT_EQ(rows.SelectedCount(), std::count_if(marks.begin(), marks.end(), [](wchar_t c) { return c > L'F'; }));
    }
}

TEST(ListViewRows, SortKeepsEqualRowsAndCarriesFocusAndSelection) {
    ListViewRows rows = Rows(5);
    rows.MoveTo(1, ListViewRows::Move::Select);
    rows.Sort([](LPARAM first, LPARAM second, LPARAM) { return static_cast<int>(second % 2 - first % 2); }, 0);
    for (const auto& [row, data] : {std::pair{0, 101}, {1, 103}, {2, 100}, {3, 102}, {4, 104}})
        EXPECT_EQ(rows.At(row).data, data);
    EXPECT_EQ(Marks(rows), L"S....");
    EXPECT_EQ(rows.FindData(104, -1), 4);
    EXPECT_EQ(rows.FindData(104, 4), -1);
}

TEST(ListViewRows, ScrollsByWholeRowsAndFindsByTyping) {
    ListViewRows rows = Rows(10);
    rows.EnsureVisible(7, 3);
    EXPECT_EQ(rows.First(), 5);
    rows.EnsureVisible(6, 3);
    EXPECT_EQ(rows.First(), 5) << "a row in view moves nothing";
    rows.ScrollTo(99, 3);
    EXPECT_EQ(rows.First(), 7);
    rows.EnsureVisible(0, 3);
    EXPECT_EQ(rows.First(), 0);
    rows.SetCell(4, 0, L"\u00dcber");
    rows.SetCell(4, 3, L"cell");
    EXPECT_EQ(rows.Cell(4, 2), L"");
    EXPECT_EQ(rows.Cell(4, 3), L"cell");
    EXPECT_EQ(rows.Cell(99, 0), L"");
    EXPECT_EQ(rows.TypeAhead(L'\u00fc'), 4);
    EXPECT_EQ(rows.TypeAhead(L'z'), -1);
}
