#include "platform/controls/list_view_rows.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace {

using device::ListViewRows;
using Values = std::vector<LPARAM>;

ListViewRows::Row RowOf(LPARAM data) {
    ListViewRows::Row row;
    row.data = data;
    return row;
}

Values DataOf(const ListViewRows& rows) {
    Values data;
    for (int row = 0; row < rows.Count(); ++row)
        data.push_back(rows.At(row).data);
    return data;
}

int ByTens(LPARAM first, LPARAM second, LPARAM values) {
    const auto& data = *reinterpret_cast<const Values*>(values);
    return static_cast<int>(
        (data[static_cast<std::size_t>(first)] / 10) - (data[static_cast<std::size_t>(second)] / 10));
}

TEST(ListViewRowsModel, SortsAnyOrderAsAStableSortDoes) {
    std::mt19937 random(3);
    const std::pair<const char*, std::function<LPARAM(LPARAM)>> shapes[] = {
        {"sorted", [](LPARAM i) { return i * 7; }},
        {"backwards", [](LPARAM i) { return 9000 - (i * 10); }},
        {"backwards with ties", [](LPARAM i) { return 9000 - (i * 4); }},
        {"saw", [](LPARAM i) { return i % 17 * 10; }},
        {"all alike", [](LPARAM i) { return i % 10; }},
        {"random", [&](LPARAM) { return static_cast<LPARAM>(random() % 900); }},
    };
    for (const auto& [name, shape] : shapes) {
        for (const int count : {0, 1, 2, 7, 8, 9, 16, 17, 100, 641}) {
            ListViewRows rows(false);
            for (int index = 0; index < count; ++index)
                rows.Insert(index, RowOf(shape(index)));
            Values data = DataOf(rows);
            if (count > 5)
                rows.MoveTo(5, ListViewRows::Move::Select);
            const LPARAM focused = count > 5 ? data[5] : -1;
            rows.Sort(ByTens, reinterpret_cast<LPARAM>(&data));
            std::stable_sort(data.begin(), data.end(), [](LPARAM a, LPARAM b) { return a / 10 < b / 10; });
            ASSERT_EQ(DataOf(rows), data) << name << " " << count;
            if (count > 5) {
                EXPECT_TRUE(rows.At(rows.Focused()).data == focused && rows.IsSelected(rows.Focused())) << name;
            }
        }
    }
}

TEST(ListViewRowsModel, InsertsDeletesAndSortsAsAPlainVectorDoes) {
    std::mt19937 random(11);
    const auto upTo = [&random](std::size_t end) { return static_cast<int>(random() % end); };
    ListViewRows rows(false);
    Values model;
    for (int step = 0; step < 3000; ++step) {
        const int place = upTo(model.size() + 1);
        if (random() % 5 < 3) {
            rows.Insert(place, RowOf(upTo(500)));
            model.insert(model.begin() + place, rows.At(place).data);
            EXPECT_TRUE(rows.Cell(place, 0).empty()) << "nothing is left of a row that was there";
            rows.SetCell(place, 0, L"text");
        } else if (rows.Remove(place)) {
            model.erase(model.begin() + place);
        }
        if (step % 500 == 499) {
            rows.Sort(ByTens, reinterpret_cast<LPARAM>(&model));
            std::stable_sort(model.begin(), model.end(), [](LPARAM a, LPARAM b) { return a / 10 < b / 10; });
        }
        ASSERT_EQ(DataOf(rows), model) << step;
    }
}

} // namespace
