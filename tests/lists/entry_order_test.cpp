#include "lists/entry_order.h"
#include "platform/locale.h"
#include "records/entry.h"
#include "settings/app_settings.h"
#include "units/record_text.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <numeric>
#include <random>

namespace {

int Sign(int value) {
    return (value > 0) - (value < 0);
}

template <typename Value> int Order(Value a, Value b) {
    return (a > b) - (a < b);
}

std::wstring Lowered(std::wstring text) {
    return CharLowerW(text.data());
}

/// The order as the lists promise it, both descriptions made anew for each comparison.
int PlainOrder(const CEntry& a, const CEntry& b, int column) {
    const int texts = Sign(Lowered(EntrySummaryText(&a)).compare(Lowered(EntrySummaryText(&b))));
    const int dates = Order(a.GetDate(), b.GetDate());
    const int readings = Order(a.GetOdometer(), b.GetOdometer());
    const int amounts = Order(a.GetAmount(), b.GetAmount());
    switch (column) {
    case SortColumnDate:
        return dates != 0 ? dates : texts;
    case SortColumnDescription:
        return texts;
    case SortColumnOdometer:
        return readings != 0 ? readings : amounts;
    case SortColumnAmount:
        return amounts;
    default:
        return 0;
    }
}

TEST(EntryOrder, IsThatOfTheColumnsInBothDirectionsWhateverItWas) {
    std::mt19937 random(7);
    const auto upTo = [&random](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    const wchar_t* names[] = {L"", L"oil", L"Oil change", L"OIL CHANGE", L"oil change of the winter", L"Öl", L"ÖL",
        L"oil change of the summer", L"été", L"ÉTÉ", L"🚗", L"ﬀ", L"oil chan", L"oil chang"};
    std::vector<std::unique_ptr<CEntry>> entries;
    for (int count = 0; count < 900; ++count) {
        auto& entry = entries.emplace_back(std::make_unique<CEntry>());
        entry->SetType(static_cast<CEntry::Type>(1 + upTo(4)));
        entry->SetDate(40000 + upTo(3) + (upTo(2) / 2.0));
        entry->SetOdometer(upTo(4) - 1);
        entry->SetAmount(static_cast<float>(upTo(5)) - 1.5F);
        entry->SetCustom1(static_cast<float>(upTo(12)));
        entry->SetCustom2(static_cast<float>(upTo(3)));
        entry->SetName(names[upTo(14)]);
        entry->SetVendor(names[upTo(3)]);
    }
    std::vector<const CEntry*> all(entries.size());
    std::ranges::transform(entries, all.begin(), [](const auto& entry) { return entry.get(); });
    for (const std::size_t count : {0U, 1U, 12U, 900U}) {
        // Some entries have no row, and the rows are no longer in the order of the entries.
        std::vector<std::uint32_t> rows(all.size());
        std::iota(rows.begin(), rows.end(), 0U);
        std::ranges::shuffle(rows, random);
        rows.resize(count);
        // What one turn leaves is where the next one starts: sorted, turned round, or sorted by something else.
        for (int turn = 0; turn < 24; ++turn) {
            theSettings.SortAscending = turn / 2 % 2;
            const int column = turn % 3 == 0 ? upTo(4) : turn / 6;
            const std::vector<std::uint32_t> ordered = OrderEntries(column, all, rows);
            std::ranges::stable_sort(rows, [&all, column](std::uint32_t a, std::uint32_t b) {
                const int order = PlainOrder(*all[a], *all[b], column);
                return (theSettings.SortAscending ? order : -order) < 0;
            });
            ASSERT_EQ(ordered, rows) << count << " rows, turn " << turn << ", column " << column;
        }
    }
    theSettings.SortAscending = 1;
    all.front() = nullptr;
    const std::vector<std::uint32_t> rows{1, 0};
    EXPECT_EQ(OrderEntries(SortColumnDate, all, rows), (std::vector<std::uint32_t>{0, 1})) << "no entry comes first";
}

TEST(EntryOrder, StaysThatOfTheColumnForVeryManyRows) {
    std::mt19937 random(11);
    const std::size_t count = 70'000;
    std::vector<CEntry> entries(count);
    std::vector<const CEntry*> all(count);
    for (std::size_t index = 0; index < count; ++index) {
        entries[index].SetOdometer(static_cast<LONG>(random() % 30'000) - 1'000);
        all[index] = &entries[index];
    }
    std::vector<std::uint32_t> rows(count);
    std::iota(rows.begin(), rows.end(), 0U);
    // Amounts that differ in one byte, and in several.
    for (const auto& [column, amounts] :
        {std::pair(SortColumnAmount, 2U), {SortColumnAmount, 3'000U}, {SortColumnOdometer, 3'000U}}) {
        for (CEntry& entry : entries)
            entry.SetAmount(1 + (static_cast<float>(random() % amounts) / 4));
        for (const int ascending : {1, 0}) {
            theSettings.SortAscending = ascending;
            std::ranges::shuffle(rows, random);
            const std::vector<std::uint32_t> ordered = OrderEntries(column, all, rows);
            std::ranges::stable_sort(rows, [&entries, byAmount = column == SortColumnAmount](auto a, auto b) {
                const CEntry& first = entries[theSettings.SortAscending ? a : b];
                const CEntry& second = entries[theSettings.SortAscending ? b : a];
                return std::pair(byAmount ? 0 : first.GetOdometer(), first.GetAmount())
                    < std::pair(byAmount ? 0 : second.GetOdometer(), second.GetAmount());
            });
            EXPECT_TRUE(ordered == rows) << column << ' ' << ascending;
        }
    }
    theSettings.SortAscending = 1;
}

} // namespace
