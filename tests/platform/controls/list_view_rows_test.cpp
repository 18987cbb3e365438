#include "platform/controls/list_view_rows.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace {

using device::ListViewRows;
using Values = std::vector<LPARAM>;

ListViewRows Rows(int count, bool single = false) {
    ListViewRows rows(single);
    while (rows.Count() < count)
        rows.Insert(0, {}, 0);
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

Values DataOf(const ListViewRows& rows) {
    Values data;
    for (int row = 0; row < rows.Count(); ++row)
        data.push_back(rows.DataAt(row));
    return data;
}

TEST(ListViewRowsModel, InsertsDeletesAndOrdersAsAPlainVectorDoes) {
    std::mt19937 random(11);
    const auto upTo = [&random](std::size_t end) { return static_cast<int>(random() % end); };
    ListViewRows rows(false);
    Values model;
    for (int step = 0; step < 3000; ++step) {
        const int place = upTo(model.size() + 1);
        if (random() % 5 < 3) {
            rows.Insert(place, {}, upTo(500));
            model.insert(model.begin() + place, rows.DataAt(place));
            EXPECT_TRUE(rows.Cell(place, 0).empty()) << "nothing is left of a row that was there";
            rows.SetCell(place, 0, L"text");
        } else if (rows.Remove(place)) {
            model.erase(model.begin() + place);
        }
        if (step % 500 == 499) {
            const LVROWS all = rows.All();
            std::vector<std::uint32_t> order(all.places.begin(), all.places.end());
            std::shuffle(order.begin(), order.end(), random);
            rows.MoveTo(place / 2, ListViewRows::Move::Select);
            const LPARAM focused = rows.DataAt(place / 2);
            EXPECT_TRUE(rows.SetOrder(order));
            EXPECT_TRUE(rows.DataAt(rows.Focused()) == focused && rows.IsSelected(rows.Focused()));
            std::transform(order.begin(), order.end(), model.begin(), [&all](auto from) { return all.data[from]; });
            order.front() = order.back();
            EXPECT_FALSE(rows.SetOrder(order)) << "one row twice";
            order.pop_back();
            EXPECT_FALSE(rows.SetOrder(order)) << "too few";
        }
        ASSERT_EQ(DataOf(rows), model) << step;
    }
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
        {"insert before", false, [](auto& r) { r.MoveTo(1, Move::Select), r.Insert(1, {}, 0); }, L"..S..."},
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
