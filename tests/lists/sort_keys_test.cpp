#include "lists/compare_entries.h"
#include "platform/locale.h"
#include "records/entry.h"
#include "shell/common/app_settings.h"
#include "units/record_text.h"

#include <gtest/gtest.h>
#include <memory>
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

TEST(EntrySortKeys, OrderAsTheColumnsSayInBothDirections) {
    std::mt19937 random(7);
    const auto upTo = [&random](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    const wchar_t* names[] = {L"", L"oil", L"Oil change", L"OIL CHANGE", L"Öl", L"ÖL", L"été", L"ÉTÉ", L"🚗", L"ﬀ"};
    std::vector<std::unique_ptr<CEntry>> entries;
    std::vector<const CEntry*> rows{nullptr};
    for (int count = 0; count < 60; ++count) {
        auto entry = std::make_unique<CEntry>();
        entry->SetType(static_cast<CEntry::Type>(1 + upTo(4)));
        entry->SetDate(40000 + upTo(3) + (upTo(2) / 2.0));
        entry->SetOdometer(upTo(4) - 1);
        entry->SetAmount(static_cast<float>(upTo(5)) - 1.5F);
        entry->SetCustom1(static_cast<float>(upTo(12)));
        entry->SetCustom2(static_cast<float>(upTo(3)));
        entry->SetName(names[upTo(10)]);
        entry->SetVendor(names[upTo(3)]);
        rows.push_back(entry.get());
        entries.push_back(std::move(entry));
    }
    for (const int ascending : {1, 0}) {
        theSettings.SortAscending = ascending;
        for (int column = SortColumnDate; column <= SortColumnAmount; ++column) {
            CEntrySortKeys keys(column, rows);
            EXPECT_EQ(keys.Compare(0, 0), 0) << "a row without an entry";
            for (std::size_t first = 1; first < rows.size(); ++first) {
                for (std::size_t second = 1; second < rows.size(); ++second) {
                    const int plain = PlainOrder(*rows[first], *rows[second], column);
                    const int order = CompareEntries(
                        static_cast<LPARAM>(first), static_cast<LPARAM>(second), reinterpret_cast<LPARAM>(&keys));
                    ASSERT_EQ(Sign(order), ascending ? plain : -plain) << column << ": " << first << ", " << second;
                }
            }
        }
    }
    theSettings.SortAscending = 1;
}

} // namespace
