#include "platform/controls/list_view_rows.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {

using device::ListViewRows;

ListViewRows Rows(int count, bool single = false) {
    ListViewRows rows(single);
    while (rows.Count() < count)
        rows.Insert(0, {});
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

TEST(ListViewRows, AnOrderTakesFocusAndSelectionAlongAndHasToBeWhole) {
    ListViewRows rows = Rows(4);
    for (int row = 0; row < rows.Count(); ++row)
        rows.At(row).data = row;
    rows.MoveTo(1, ListViewRows::Move::Select);
    for (const std::vector<int>& bad :
        std::vector<std::vector<int>>{{}, {0, 1, 2}, {0, 1, 2, 2}, {0, 1, 2, 4}, {0, 1, 2, -1}, {0, 1, 2, 3, 3}}) {
        EXPECT_FALSE(rows.SetOrder(bad));
        EXPECT_EQ(Marks(rows), L".S..");
    }
    const int order[] = {3, 0, 2, 1};
    EXPECT_TRUE(rows.SetOrder(order));
    EXPECT_EQ(Marks(rows), L"...S");
    for (int row = 0; row < rows.Count(); ++row)
        EXPECT_EQ(rows.At(row).data, order[row]);
}

TEST(ListViewRows, FocusAndSelectionMove) {
    using Move = ListViewRows::Move;
    const std::tuple<const char*, bool, std::function<void(ListViewRows&)>, const wchar_t*> cases[] = {
        {"stops at the end", false, [](auto& r) { r.MoveTo(3, Move::Select), r.MoveBy(9, Move::Select); }, L"....S"},
        {"extend and back", false,
            [](auto& r) { r.MoveTo(2, Move::Select), r.MoveBy(2, Move::Extend), r.MoveBy(-3, Move::Extend); },
            L".Ss.."},
        {"turn over", false, [](auto& r) { r.MoveTo(1, Move::Select), r.MoveBy(2, Move::Alone), r.ToggleFocused(); },
            L".s.S."},
        {"all of a single", true, [](auto& r) { r.MoveTo(1, Move::Select), r.SelectAll(); }, L".S..."},
        {"single state", true,
            [](auto& r) { r.SetState(1, LVIS_SELECTED, LVIS_SELECTED), r.SetState(3, LVIS_SELECTED, LVIS_SELECTED); },
            L"...s."},
        {"insert before", false, [](auto& r) { r.MoveTo(1, Move::Select), r.Insert(1, {}); }, L"..S..."},
        {"the next key selects it", false,
            [](auto& r) { r.MoveTo(1, Move::Select), r.Remove(1), r.MoveBy(1, Move::Select); }, L".S.."},
        {"the last row deleted", false, [](auto& r) { r.MoveTo(4, Move::Select), r.Remove(4); }, L"...F"},
    };
    for (const auto& [name, single, act, expected] : cases) {
        ListViewRows rows = Rows(5, single);
        act(rows);
        const std::wstring marks = Marks(rows);
        EXPECT_EQ(marks, expected) << name;
        EXPECT_EQ(rows.SelectedCount(), std::count_if(marks.begin(), marks.end(), [](wchar_t c) { return c > L'F'; }));
    }
}

TEST(ListViewRows, ScrollsByWholeRowsAndFindsByTyping) {
    ListViewRows rows = Rows(10);
    for (const auto& [row, first] : {std::pair{7, 5}, {6, 5}, {9, 7}, {0, 0}}) {
        rows.EnsureVisible(row, 3);
        EXPECT_EQ(rows.First(), first) << row;
    }
    rows.SetCell(4, 0, L"\u00dcber");
    EXPECT_EQ(rows.TypeAhead(L'\u00fc'), 4);
    EXPECT_EQ(rows.Cell(4, 0), L"\u00dcber");
}

} // namespace
