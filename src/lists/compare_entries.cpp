#include "lists/compare_entries.h"

#include "platform/locale.h"
#include "records/entry.h"
#include "shell/common/app_settings.h"
#include "units/record_text.h"

#include <string>
#include <unordered_map>

namespace {

using Summaries = std::unordered_map<const CEntry*, std::wstring>;

Summaries* kept = nullptr; ///< null outside a sort

/// Such that comparing two of them ignores case.
std::wstring SummaryKey(const CEntry* entry) {
    std::wstring key = EntrySummaryText(entry);
    CharLowerW(key.data());
    return key;
}

const std::wstring& KeptSummaryKey(const CEntry* entry) {
    const auto [place, added] = kept->try_emplace(entry);
    if (added)
        place->second = SummaryKey(entry);
    return place->second;
}

int CompareSummaries(const CEntry* a, const CEntry* b) {
    if (kept)
        return KeptSummaryKey(a).compare(KeptSummaryKey(b));
    return SummaryKey(a).compare(SummaryKey(b));
}

template <typename Value> int Order(Value a, Value b) {
    return a < b ? -1 : b < a ? 1 : 0;
}

const CEntry* EntryOf(LPARAM data) {
    return reinterpret_cast<const CEntry*>(data); // NOLINT(performance-no-int-to-ptr)
}

} // namespace

CSummaryMemory::CSummaryMemory() {
    kept = new Summaries;
}

CSummaryMemory::~CSummaryMemory() {
    delete kept;
    kept = nullptr;
}

int CompareEntries(LPARAM first, LPARAM second, LPARAM column) {
    const CEntry* a = EntryOf(theSettings.SortAscending ? first : second);
    const CEntry* b = EntryOf(theSettings.SortAscending ? second : first);
    int order = 0;
    switch (column) {
    case SortColumnDate:
        order = Order(a->GetDate(), b->GetDate());
        return order != 0 ? order : CompareSummaries(a, b);
    case SortColumnDescription:
        return CompareSummaries(a, b);
    case SortColumnOdometer:
        order = Order(a->GetOdometer(), b->GetOdometer());
        return order != 0 ? order : Order(a->GetAmount(), b->GetAmount());
    case SortColumnAmount:
        return Order(a->GetAmount(), b->GetAmount());
    default:
        return 0;
    }
}
