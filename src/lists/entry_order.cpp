#include "lists/entry_order.h"

#include "platform/locale.h"
#include "platform/utf8.h"
#include "records/entry.h"
#include "settings/app_settings.h"
#include "units/record_text.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

/// UTF-8 keeps the order of its characters, and takes a quarter of the memory to go through.
std::string Description(const CEntry& entry) {
    std::wstring text = EntrySummaryText(&entry);
    CharLowerW(text.data());
    return device::ToUtf8(text);
}

/// Gives `use` what makes an entry's key in the order of a column.
template <typename Use> auto WithKey(int column, Use use) {
    switch (column) {
    case SortColumnDate:
        return use([](const CEntry& entry) { return std::pair(entry.GetDate(), Description(entry)); });
    case SortColumnDescription:
        return use(Description);
    case SortColumnOdometer:
        return use([](const CEntry& entry) { return std::pair(entry.GetOdometer(), entry.GetAmount()); });
    case SortColumnAmount:
        return use([](const CEntry& entry) { return entry.GetAmount(); });
    default:
        return use([](const CEntry& /*entry*/) { return 0; });
    }
}

template <typename Key> bool IsBefore(const Key& first, const Key& second) {
    return theSettings.SortAscending != 0 ? first < second : second < first;
}

/// Each entry's key is made once: a description takes a hundred times as long to make as to compare.
template <typename MakeKey> std::vector<int> Sorted(const std::vector<const CEntry*>& entries, MakeKey make) {
    using Key = decltype(make(*entries.front()));
    std::vector<std::pair<Key, int>> keys;
    keys.reserve(entries.size());
    for (const CEntry* entry : entries)
        keys.emplace_back(make(*entry), static_cast<int>(keys.size()));
    std::stable_sort(keys.begin(), keys.end(),
        [](const auto& first, const auto& second) { return IsBefore(first.first, second.first); });
    std::vector<int> order(keys.size());
    std::transform(keys.begin(), keys.end(), order.begin(), [](const auto& key) { return key.second; });
    return order;
}

} // namespace

std::vector<int> OrderEntries(int column, const std::vector<const CEntry*>& entries) {
    return WithKey(column, [&](auto make) { return Sorted(entries, make); });
}

int PlaceInOrder(int column, const CEntry& entry, int count, const std::function<const CEntry&(int row)>& entryOfRow) {
    return WithKey(column, [&](auto make) {
        const auto key = make(entry);
        int place = 0;
        for (int end = count; place < end;) {
            const int middle = place + ((end - place) / 2);
            if (IsBefore(key, make(entryOfRow(middle))))
                end = middle;
            else
                place = middle + 1;
        }
        return place;
    });
}
