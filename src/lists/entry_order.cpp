#include "lists/entry_order.h"

#include "platform/locale.h"
#include "records/entry.h"
#include "settings/app_settings.h"
#include "units/record_text.h"
#include "units/units.h"

#include <algorithm>
#include <array>
#include <bit>
#include <functional>
#include <numeric>

namespace {

constexpr std::size_t ChunkSize = sizeof(std::uint64_t);
constexpr std::size_t UsualChunks = 5; ///< of a description

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

/// Writes a text in lower case as numbers, eight bytes of UTF-8 each: the order of the first numbers that differ is
/// that of the texts.
class ChunkWriter {
public:
    explicit ChunkWriter(std::vector<std::uint64_t>& chunks)
        : chunks_(chunks) { }

    void Write(std::wstring_view text) {
        for (const wchar_t character : text.substr(WriteAscii(text)))
            WriteCharacter(character);
    }
    /// Fills the last number up with zeros, one at least.
    void End() {
        do {
            WriteByte(0);
        } while (count_ != 0);
    }
    static bool IsLast(std::uint64_t chunk) { return (chunk & 0xFFU) == 0; }

private:
    /// The head of a text, and nearly always all of it. Returns its length.
    std::size_t WriteAscii(std::wstring_view text) {
        std::size_t length = 0;
        ChunkWriter writer(*this); // in registers
        for (; length < text.size() && static_cast<char32_t>(text[length]) < 0x80; ++length) {
            const auto byte = static_cast<char32_t>(text[length]);
            writer.WriteByte(byte - 'A' <= 'Z' - 'A' ? byte + ('a' - 'A') : byte);
        }
        chunk_ = writer.chunk_;
        count_ = writer.count_;
        return length;
    }
    void WriteCharacter(wchar_t written) {
        wchar_t lower[2] = {written, L'\0'};
        const auto character = static_cast<char32_t>(CharLowerW(lower)[0]);
        const unsigned following = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
        constexpr unsigned Marks[] = {0, 0xC0, 0xE0, 0xF0};
        WriteByte(Marks[following] | (character >> (6 * following)));
        for (unsigned left = following; left > 0; --left)
            WriteByte(0x80U | ((character >> (6 * (left - 1))) & 0x3FU));
    }
    void WriteByte(std::uint32_t byte) {
        chunk_ = (chunk_ << 8U) | byte;
        if (++count_ == ChunkSize) {
            chunks_.push_back(chunk_);
            count_ = 0;
        }
    }

    std::vector<std::uint64_t>& chunks_;
    std::uint64_t chunk_ = 0;
    unsigned count_ = 0; ///< bytes in it
};

/// The descriptions of entries in chunks, made as far as they are asked for: most differ in the first chunk.
class Descriptions {
public:
    explicit Descriptions(std::span<const CEntry* const> entries)
        : entries_(entries)
        , made_(entries.size()) { }

    std::uint64_t Chunk(std::uint32_t index, std::size_t number) {
        if (number >= made_[index].count)
            Make(index, number > 0);
        return chunks_[made_[index].start + number];
    }
    /// One behind the other, as the entries lie in memory.
    void MakeAll() {
        for (std::uint32_t index = 0; index < entries_.size(); ++index)
            Make(index, true);
    }

private:
    struct Made {
        std::uint32_t start = 0; ///< in chunks_
        std::uint32_t count = 0;
    };

    void Make(std::uint32_t index, bool whole) {
        if (chunks_.empty())
            chunks_.reserve(entries_.size() * UsualChunks);
        const std::size_t start = chunks_.size();
        ChunkWriter writer(chunks_);
        const auto take = [&](std::wstring_view piece) {
            writer.Write(piece);
            return whole || chunks_.size() == start;
        };
        if (entries_[index])
            ReadEntrySummary(*entries_[index], volumeUnit_, std::ref(take));
        if (whole || chunks_.size() == start)
            writer.End();
        made_[index] = {static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(chunks_.size() - start)};
    }

    std::span<const CEntry* const> entries_;
    std::wstring volumeUnit_ = VolumeUnitName(true, true);
    std::vector<Made> made_;
    std::vector<std::uint64_t> chunks_;
};

constexpr std::size_t Few = 16;
constexpr std::size_t Many = 65'536; ///< below, where all lies in a cache, the library's sort is quick enough

struct Key {
    std::uint64_t value;
    std::uint32_t index; ///< of the entry
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

/// Byte by byte from the lowest up, passing over those that all have in common: the work for each key does not grow
/// with their number.
void SortManyKeys(Keys keys) {
    const auto byteOf = [](const Key& key, std::size_t byte) { return (key.value >> (8 * byte)) & 0xFFU; };
    std::array<std::array<std::size_t, 256>, sizeof(std::uint64_t)> counts{};
    for (const Key& key : keys) {
        for (std::size_t byte = 0; byte < counts.size(); ++byte)
            ++counts[byte][byteOf(key, byte)];
    }
    std::vector<Key> room(keys.size());
    Keys from = keys;
    Keys to = room;
    for (std::size_t byte = 0; byte < counts.size(); ++byte) {
        auto& places = counts[byte];
        if (places[byteOf(keys.front(), byte)] == keys.size())
            continue;
        std::exclusive_scan(places.begin(), places.end(), places.begin(), std::size_t{0});
        for (const Key& key : from)
            to[places[byteOf(key, byte)]++] = key;
        std::swap(from, to);
    }
    if (from.data() != keys.data())
        std::copy(from.begin(), from.end(), keys.begin());
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
    } else if (keys.size() > Many) {
        SortManyKeys(keys);
    } else {
        std::stable_sort(keys.begin(), keys.end(), below);
    }
}

/// Orders keys that are equal in all that comes before by their descriptions. `turned` is what every value of the order
/// is combined with.
class TextOrder {
public:
    TextOrder(Descriptions& descriptions, std::uint64_t turned)
        : descriptions_(descriptions)
        , turned_(turned) { }

    /// By the chunks from `number` on.
    void Sort(Keys keys, std::size_t number) {
        // A beginning that all have in common, however long, is no reason to nest.
        for (bool areEqual = true; areEqual; ++number) {
            for (Key& key : keys)
                key.value = descriptions_.Chunk(key.index, number) ^ turned_;
            SortKeys(keys);
            areEqual = keys.front().value == keys.back().value;
            if (areEqual && IsLast(keys))
                return;
        }
        SortTies(keys, number);
    }
    /// The same for each run of equal keys among keys whose values are the chunks before `number`.
    void SortTies(Keys keys, std::size_t number) {
        ForEqualKeys(keys, [&](Keys equal) {
            if (!IsLast(equal))
                Sort(equal, number);
        });
    }

private:
    bool IsLast(Keys equal) const { return ChunkWriter::IsLast(equal.front().value ^ turned_); }

    Descriptions& descriptions_;
    std::uint64_t turned_;
};

} // namespace

std::vector<std::uint32_t> OrderEntries(
    int column, std::span<const CEntry* const> entries, std::span<const std::uint32_t> rows) {
    const std::uint64_t turned = theSettings.SortAscending != 0 ? 0 : ~std::uint64_t{0};
    const bool readsTexts = column == SortColumnDate || column == SortColumnDescription;
    Descriptions descriptions(readsTexts ? entries : std::span<const CEntry* const>{});
    if (column == SortColumnDescription)
        descriptions.MakeAll();
    // In the order of memory, not of the rows, which may be far from it.
    std::vector<std::uint64_t> values(entries.size());
    for (std::uint32_t index = 0; index < entries.size(); ++index) {
        if (entries[index])
            values[index]
                = column == SortColumnDescription ? descriptions.Chunk(index, 0) : ValueOf(*entries[index], column);
    }
    std::vector<Key> keys(rows.size());
    std::transform(rows.begin(), rows.end(), keys.begin(), [&](std::uint32_t index) {
        return Key{values[index] ^ turned, index};
    });
    SortKeys(keys);
    TextOrder texts(descriptions, turned);
    if (column == SortColumnDate)
        ForEqualKeys(keys, [&texts](Keys equal) { texts.Sort(equal, 0); });
    else if (column == SortColumnDescription)
        texts.SortTies(keys, 1);
    std::vector<std::uint32_t> order(keys.size());
    std::transform(keys.begin(), keys.end(), order.begin(), [](const Key& key) { return key.index; });
    return order;
}
