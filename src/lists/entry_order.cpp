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

/// Each entry's key is made once: a description takes a hundred times as long to make as to compare.
template <typename MakeKey> std::vector<int> Sorted(const std::vector<const CEntry*>& entries, MakeKey make) {
    using Key = decltype(make(*entries.front()));
    std::vector<std::pair<Key, int>> keys;
    keys.reserve(entries.size());
    for (const CEntry* entry : entries)
        keys.emplace_back(make(*entry), static_cast<int>(keys.size()));
    const bool isAscending = theSettings.SortAscending != 0;
    std::stable_sort(keys.begin(), keys.end(), [isAscending](const auto& first, const auto& second) {
        return isAscending ? first.first < second.first : second.first < first.first;
    });
    std::vector<int> order(keys.size());
    std::transform(keys.begin(), keys.end(), order.begin(), [](const auto& key) { return key.second; });
    return order;
}

} // namespace

std::vector<int> OrderEntries(int column, const std::vector<const CEntry*>& entries) {
    switch (column) {
    case SortColumnDate:
        return Sorted(entries, [](const CEntry& entry) { return std::pair(entry.GetDate(), Description(entry)); });
    case SortColumnDescription:
        return Sorted(entries, Description);
    case SortColumnOdometer:
        return Sorted(entries, [](const CEntry& entry) { return std::pair(entry.GetOdometer(), entry.GetAmount()); });
    case SortColumnAmount:
        return Sorted(entries, [](const CEntry& entry) { return entry.GetAmount(); });
    default:
        return Sorted(entries, [](const CEntry& /*entry*/) { return 0; });
    }
}
