#pragma once

#include "platform/types.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CEntry;

/// The columns of the log's order, as the settings keep them.
enum SortColumn : std::int32_t {
    SortColumnNone = -1,
    SortColumnDate = 0,
    SortColumnDescription = 1,
    SortColumnOdometer = 2,
    SortColumnAmount = 3,
};

/// What the rows of a log are ordered by, made once for one sort: a column and, where two rows are equal in it, the
/// next. Dates fall to the description (without regard to case), readings to the amount. The direction of the settings
/// turns all of it round. The entries must not change meanwhile.
class CEntrySortKeys {
public:
    /// `rows` are the entries from the top row down. Null has the lowest values.
    CEntrySortKeys(int column, const std::vector<const CEntry*>& rows);

    /// Orders two rows by their places in that order. Below 0, 0 or above 0.
    int Compare(std::size_t first, std::size_t second) {
        const std::uint64_t a = values_[first];
        const std::uint64_t b = values_[second];
        if (a != b)
            return a < b ? -1 : 1;
        return texts_.empty() ? 0 : CompareTexts(first, second);
    }

private:
    struct Text {
        const CEntry* entry;
        std::size_t start; ///< in texts_; NoText: not asked for yet
        std::size_t length;
        std::uint64_t begin; ///< the first three characters as one number
    };
    static constexpr std::size_t NoText = static_cast<std::size_t>(-1);

    int CompareTexts(std::size_t first, std::size_t second);
    void MakeText(Text& text);
    std::wstring_view ViewOf(const Text& text) const {
        return std::wstring_view(characters_).substr(text.start, text.length);
    }

    bool ascending_;
    // Apart from the texts, since a sort reads at random what it compares first: the less that is, the faster.
    std::vector<std::uint64_t> values_; ///< of dates or amounts, or of odometers with their amounts, in their order
    std::vector<Text> texts_;
    std::wstring characters_; ///< lower-case descriptions, one behind the other
};

/// The list view's callback: `keys` is a CEntrySortKeys*.
int CompareEntries(LPARAM first, LPARAM second, LPARAM keys);
