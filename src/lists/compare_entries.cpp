#include "lists/compare_entries.h"

#include "platform/locale.h"
#include "records/entry.h"
#include "shell/common/app_settings.h"
#include "units/record_text.h"

#include <utility>

namespace {

constexpr std::size_t UsualDescription = 32;

template <typename Value> int Order(const Value& a, const Value& b) {
    return a < b ? -1 : b < a ? 1 : 0;
}

double ValueOf(const CEntry& entry, int column) {
    switch (column) {
    case SortColumnDate:
        return entry.GetDate();
    case SortColumnOdometer:
        return entry.GetOdometer();
    case SortColumnAmount:
        return double{entry.GetAmount()};
    default:
        return 0;
    }
}

/// Texts that differ in their first characters differ in this number, and stand in its order.
std::uint64_t BeginOf(std::wstring_view text) {
    constexpr unsigned BitsOfCharacter = 21;
    std::uint64_t begin = 0;
    for (std::size_t place = 0; place < 3; ++place)
        begin = (begin << BitsOfCharacter) | static_cast<std::uint32_t>(place < text.size() ? text[place] : L'\0');
    return begin;
}

} // namespace

CEntrySortKeys::CEntrySortKeys(int column, const std::vector<const CEntry*>& rows)
    : column_(column)
    , ascending_(theSettings.SortAscending != 0) {
    const bool hasTies = column_ == SortColumnOdometer;
    values_.reserve(rows.size());
    ties_.reserve(hasTies ? rows.size() : 0);
    for (const CEntry* entry : rows) {
        values_.push_back(entry ? ValueOf(*entry, column_) : 0);
        if (hasTies)
            ties_.push_back(entry ? entry->GetAmount() : 0);
    }
    if (column_ == SortColumnDate || column_ == SortColumnDescription) {
        characters_.reserve(rows.size() * UsualDescription);
        texts_.reserve(rows.size());
        for (const CEntry* entry : rows)
            texts_.push_back({entry, NoText, 0, 0});
    }
}

int CEntrySortKeys::Compare(std::size_t first, std::size_t second) {
    if (!ascending_)
        std::swap(first, second);
    const int order = Order(values_[first], values_[second]);
    if (order != 0)
        return order;
    if (!ties_.empty())
        return Order(ties_[first], ties_[second]);
    return texts_.empty() ? 0 : CompareTexts(texts_[first], texts_[second]);
}

int CEntrySortKeys::CompareTexts(Text& first, Text& second) {
    MakeText(first);
    MakeText(second);
    const int order = Order(first.begin, second.begin);
    return order != 0 ? order : ViewOf(first).compare(ViewOf(second));
}

void CEntrySortKeys::MakeText(Text& text) {
    if (text.start != NoText)
        return;
    text.start = characters_.size();
    AppendEntrySummary(text.entry, &characters_);
    CharLowerW(characters_.data() + text.start);
    text.length = characters_.size() - text.start;
    text.begin = BeginOf(ViewOf(text));
}

int CompareEntries(LPARAM first, LPARAM second, LPARAM keys) {
    auto* made = reinterpret_cast<CEntrySortKeys*>(keys); // NOLINT(performance-no-int-to-ptr): the control's way
    return made->Compare(static_cast<std::size_t>(first), static_cast<std::size_t>(second));
}
