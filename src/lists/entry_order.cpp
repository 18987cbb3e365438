#include "lists/entry_order.h"

#include "platform/locale.h"
#include "records/entry.h"
#include "shell/common/app_settings.h"
#include "units/record_text.h"

#include <algorithm>
#include <bit>
#include <span>
#include <string>

namespace {

constexpr std::size_t UsualDescription = 40; ///< bytes
constexpr std::size_t MostBytes = 4; ///< of a character
constexpr std::size_t ChunkSize = sizeof(std::uint64_t);

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

/// UTF-8, whose bytes stand in the order of the characters. Returns the end of what it wrote.
char* WriteBytes(char32_t character, char* bytes) {
    if (character < 0x80) {
        *bytes++ = static_cast<char>(character);
        return bytes;
    }
    const int following = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    constexpr unsigned Marks[] = {0, 0xC0, 0xE0, 0xF0};
    *bytes++ = static_cast<char>(Marks[following] | (character >> (6U * static_cast<unsigned>(following))));
    for (int left = following - 1; left >= 0; --left)
        *bytes++ = static_cast<char>(0x80U | ((character >> (6U * static_cast<unsigned>(left))) & 0x3FU));
    return bytes;
}

/// Lower-case descriptions, each made when it is first asked for, as numbers of eight bytes at a time: the order of the
/// first numbers that differ is that of the texts.
class Descriptions {
public:
    explicit Descriptions(const std::vector<const CEntry*>& rows)
        : rows_(rows)
        , starts_(rows.size(), NotMade) { }

    std::uint64_t Chunk(std::uint32_t row, std::size_t index) {
        if (starts_[row] == NotMade)
            Make(row);
        std::uint64_t chunk = 0;
        const char* bytes = bytes_.data() + starts_[row] + (index * ChunkSize);
        for (std::size_t place = 0; place < ChunkSize; ++place)
            chunk = (chunk << 8U) | static_cast<unsigned char>(bytes[place]);
        return chunk;
    }
    static bool IsLast(std::uint64_t chunk) { return (chunk & 0xFFU) == 0; }

private:
    static constexpr std::size_t NotMade = static_cast<std::size_t>(-1);

    void Make(std::uint32_t row) {
        const std::size_t start = bytes_.size();
        starts_[row] = start;
        text_.clear();
        AppendEntrySummary(rows_[row], &text_);
        CharLowerW(text_.data());
        if (start == 0)
            bytes_.reserve(rows_.size() * UsualDescription);
        bytes_.resize(start + (text_.size() * MostBytes) + ChunkSize);
        char* end = bytes_.data() + start;
        for (const wchar_t character : text_)
            end = WriteBytes(static_cast<char32_t>(character), end);
        const auto length = static_cast<std::size_t>(end - bytes_.data());
        bytes_.resize((length / ChunkSize + 1) * ChunkSize);
    }

    const std::vector<const CEntry*>& rows_;
    std::vector<std::size_t> starts_;
    std::string bytes_; ///< texts filled up with zeros, one at least, to whole chunks
    std::wstring text_;
};

constexpr std::size_t Few = 16;

struct Key {
    std::uint64_t value;
    std::uint32_t row;
};
using Keys = std::span<Key>;

void SortFewKeys(Keys keys) {
    for (auto next = keys.begin(); next != keys.end(); ++next) {
        const Key moved = *next;
        auto hole = next;
        for (; hole != keys.begin() && moved.value < (hole - 1)->value; --hole)
            *hole = *(hole - 1);
        *hole = moved;
    }
}

/// Calls `handle` with each run of two keys or more that have the same value.
template <typename Handle> void ForEqualKeys(Keys keys, Handle handle) {
    for (auto begin = keys.begin(); begin != keys.end();) {
        auto end = begin + 1;
        while (end != keys.end() && end->value == begin->value)
            ++end;
        if (end - begin > 1)
            handle(Keys(begin, end));
        begin = end;
    }
}

/// Rows mostly stand in order already, as those of a log do, or in just the other one.
void SortKeys(Keys keys) {
    if (keys.size() <= Few)
        return SortFewKeys(keys);
    const auto below = [](const Key& first, const Key& second) { return first.value < second.value; };
    const auto above = [](const Key& first, const Key& second) { return first.value > second.value; };
    if (std::is_sorted(keys.begin(), keys.end(), below))
        return;
    if (std::is_sorted(keys.begin(), keys.end(), above)) {
        std::reverse(keys.begin(), keys.end());
        ForEqualKeys(keys, [](Keys equal) { std::reverse(equal.begin(), equal.end()); });
    } else {
        std::stable_sort(keys.begin(), keys.end(), below);
    }
}

/// Orders by the chunks from `index` on. `turned` is what every value of the order is combined with.
void SortByText(Keys keys, std::size_t index, std::uint64_t turned, Descriptions& descriptions) {
    // A beginning that all have in common, however long, is no reason to nest.
    for (bool areEqual = true; areEqual; ++index) {
        for (Key& key : keys)
            key.value = descriptions.Chunk(key.row, index) ^ turned;
        SortKeys(keys);
        areEqual = keys.front().value == keys.back().value;
        if (areEqual && Descriptions::IsLast(keys.front().value ^ turned))
            return;
    }
    ForEqualKeys(keys, [&](Keys equal) {
        if (!Descriptions::IsLast(equal.front().value ^ turned))
            SortByText(equal, index, turned, descriptions);
    });
}

} // namespace

std::vector<std::uint32_t> OrderEntries(int column, const std::vector<const CEntry*>& rows) {
    const std::uint64_t turned = theSettings.SortAscending != 0 ? 0 : ~std::uint64_t{0};
    std::vector<Key> keys;
    keys.reserve(rows.size());
    for (const CEntry* entry : rows)
        keys.push_back({(entry ? ValueOf(*entry, column) : 0) ^ turned, static_cast<std::uint32_t>(keys.size())});
    SortKeys(keys);
    if (column == SortColumnDate || column == SortColumnDescription) {
        Descriptions descriptions(rows);
        ForEqualKeys(keys, [&](Keys equal) { SortByText(equal, 0, turned, descriptions); });
    }
    std::vector<std::uint32_t> order;
    order.reserve(keys.size());
    for (const Key& key : keys)
        order.push_back(key.row);
    return order;
}
