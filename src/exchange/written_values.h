#pragma once

#include "exchange/reading.h"

#include <string>
#include <string_view>

/// Numbers and dates as other programs write them, each in the manner of the place that it was written at.
namespace exchange {

/// ASCII letters only.
std::string LowerCase(std::string text);
/// Without white space at its ends, and without byte order marks before it.
std::string Trimmed(std::string_view text);

/// With `decimal` ('.' or ',') as the decimal sign, and the other one, blanks or apostrophes between groups of digits.
/// Brackets are a minus. `isMoney` allows the sign or the code of a currency at either end.
std::optional<double> ReadWrittenNumber(std::string_view text, char decimal, bool isMoney);

/// A calendar's date, and behind it a time of day or nothing. A year of four digits in front, and dots between the
/// parts, need no order. The result is an OLE date that a date field can hold.
std::optional<double> ReadWrittenDate(std::string_view text, DateOrder order);

/// By a pattern such as "dd.MM.yyyy"; nothing for what is none.
std::optional<DateOrder> DateOrderOf(const std::string& pattern);

/// Which of a few ways to write values a file has, by the first values that tell.
template <typename Way, std::size_t count> class WayFinder {
public:
    explicit WayFinder(const Way (&ways)[count])
        : ways_(ways) { }

    /// `read` gives the value of a text in a way, or nothing. What can be read in no way says nothing.
    template <typename Read> void Look(const std::string& text, Read read) {
        if (Found())
            return;
        unsigned good = 0;
        bool isSame = true;
        std::optional<double> first;
        for (std::size_t way = 0; way < count; ++way)
            if (const std::optional<double> value = IsPossible(way) ? read(ways_[way]) : std::nullopt) {
                good |= 1U << way;
                isSame = isSame && (!first || *first == *value);
                first = value;
            }
        if (good != 0)
            possible_ = good;
        if (!isSame && example_.empty())
            example_ = text;
    }

    /// Nothing where the values leave several, or none needs to be told.
    std::optional<Way> Found() const {
        for (std::size_t way = 0; way < count; ++way)
            if (possible_ == 1U << way)
                return ways_[way];
        return std::nullopt;
    }
    bool IsOpen() const { return !Found() && !example_.empty(); }
    /// A text that may be read in several ways.
    const std::string& Example() const { return example_; }

private:
    bool IsPossible(std::size_t way) const { return (possible_ >> way & 1U) != 0; }

    const Way (&ways_)[count];
    unsigned possible_ = (1U << count) - 1;
    std::string example_;
};

} // namespace exchange
