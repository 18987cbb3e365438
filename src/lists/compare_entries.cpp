#include "lists/compare_entries.h"

#include "platform/locale.h"
#include "records/entry.h"
#include "shell/common/app_settings.h"
#include "units/record_text.h"

#include <bit>
#include <utility>

namespace {

constexpr std::size_t UsualDescription = 32;

// Whole numbers in the order of the values that they stand for. A zero is one zero, whatever its sign.

std::uint64_t InOrder(double value) {
    constexpr std::uint64_t Sign = std::uint64_t{1} << 63U;
    const auto bits = std::bit_cast<std::uint64_t>(value + 0.0);
    return (bits & Sign) != 0 ? ~bits : bits | Sign;
}

std::uint32_t InOrder(float value) {
    constexpr std::uint32_t Sign = std::uint32_t{1} << 31U;
    const auto bits = std::bit_cast<std::uint32_t>(value + 0.0F);
    return (bits & Sign) != 0 ? ~bits : bits | Sign;
}

std::uint32_t InOrder(LONG value) {
    return static_cast<std::uint32_t>(value) ^ (std::uint32_t{1} << 31U);
}

std::uint64_t ValueOf(const CEntry& entry, int column) {
    switch (column) {
    case SortColumnDate:
        return InOrder(entry.GetDate());
    case SortColumnOdometer:
        return (std::uint64_t{InOrder(entry.GetOdometer())} << 32U) | InOrder(entry.GetAmount());
    case SortColumnAmount:
        return InOrder(entry.GetAmount());
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
    : ascending_(theSettings.SortAscending != 0) {
    const std::uint64_t turned = ascending_ ? 0 : ~std::uint64_t{0};
    values_.reserve(rows.size());
    for (const CEntry* entry : rows)
        values_.push_back((entry ? ValueOf(*entry, column) : 0) ^ turned);
    if (column != SortColumnDate && column != SortColumnDescription)
        return;
    characters_.reserve(rows.size() * UsualDescription);
    texts_.reserve(rows.size());
    for (const CEntry* entry : rows)
        texts_.push_back({entry, NoText, 0, 0});
}

int CEntrySortKeys::CompareTexts(std::size_t first, std::size_t second) {
    if (!ascending_)
        std::swap(first, second);
    Text& a = texts_[first];
    Text& b = texts_[second];
    MakeText(a);
    MakeText(b);
    if (a.begin != b.begin)
        return a.begin < b.begin ? -1 : 1;
    return ViewOf(a).compare(ViewOf(b));
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
