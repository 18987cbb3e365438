#include "lists/compare_entries.h"

#include "platform/locale.h"
#include "records/entry.h"
#include "shell/common/app_settings.h"
#include "units/record_text.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// The lower-case summaries of entries, each made when it is first asked for. One table and one text hold them all: a
/// sort asks for millions.
class SummaryKeys {
public:
    SummaryKeys()
        : slots_(FirstSize) { }

    int Compare(const CEntry* a, const CEntry* b) {
        const Slot first = SlotOf(a);
        const Slot second = SlotOf(b);
        return KeyIn(first).compare(KeyIn(second));
    }

private:
    struct Slot {
        const CEntry* entry = nullptr; ///< null: free
        std::size_t start = 0;
        std::size_t length = 0;
    };
    static constexpr std::size_t FirstSize = 64; ///< sizes are powers of 2

    std::wstring_view KeyIn(const Slot& slot) const { return std::wstring_view(keys_).substr(slot.start, slot.length); }
    Slot& Find(const CEntry* entry);
    Slot SlotOf(const CEntry* entry);
    void Grow();

    std::vector<Slot> slots_;
    std::size_t used_ = 0;
    std::wstring keys_;
};

/// The entry's slot, or the free one that it would take.
SummaryKeys::Slot& SummaryKeys::Find(const CEntry* entry) {
    // Objects of one kind lie at multiples of their size: the lowest bits tell little.
    const std::size_t hash = std::hash<const CEntry*>()(entry);
    std::size_t place = (hash >> 4U) ^ (hash >> 12U);
    while (slots_[place & (slots_.size() - 1)].entry && slots_[place & (slots_.size() - 1)].entry != entry)
        ++place;
    return slots_[place & (slots_.size() - 1)];
}

SummaryKeys::Slot SummaryKeys::SlotOf(const CEntry* entry) {
    Slot& slot = Find(entry);
    if (slot.entry)
        return slot;
    std::wstring key = EntrySummaryText(entry);
    CharLowerW(key.data());
    slot = {entry, keys_.size(), key.size()};
    keys_ += key;
    const Slot made = slot;
    if (++used_ * 2 > slots_.size())
        Grow();
    return made;
}

void SummaryKeys::Grow() {
    std::vector<Slot> former(slots_.size() * 2);
    former.swap(slots_);
    for (const Slot& slot : former) {
        if (slot.entry)
            Find(slot.entry) = slot;
    }
}

SummaryKeys* kept = nullptr; ///< null outside a sort

int CompareSummaries(const CEntry* a, const CEntry* b) {
    return kept ? kept->Compare(a, b) : _wcsicmp(EntrySummaryText(a).c_str(), EntrySummaryText(b).c_str());
}

template <typename Value> int Order(Value a, Value b) {
    return a < b ? -1 : b < a ? 1 : 0;
}

const CEntry* EntryOf(LPARAM data) {
    return reinterpret_cast<const CEntry*>(data); // NOLINT(performance-no-int-to-ptr)
}

} // namespace

CSummaryMemory::CSummaryMemory() {
    kept = new SummaryKeys;
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
