#pragma once

#include "exchange/batch.h"

#include <map>

namespace exchange {

enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };

/// What a person says of a file that the file does not say itself.
struct ReadingOptions {
    std::string format; ///< the key of a format, as "fuelly"; empty to tell it by the contents
    std::map<std::string, std::string> columns; ///< the titles of any CSV file, by field (mapped_csv)
    std::optional<DateOrder> dates;
    std::optional<char> decimal; ///< '.' or ','
    std::optional<UnitDistance> distance;
    std::optional<UnitVolume> volume;
    /// What numbers are turned into while they still have all their digits; none: as they are.
    std::optional<UnitDistance> intoDistance;
    std::optional<UnitVolume> intoVolume;
};

/// What was seen of a file, in words.
struct FileFacts {
    std::string format; ///< empty where it is none that can be read, or could be of several
    std::string refusal; ///< why it cannot be read
    std::string variant;
    std::string encoding;
    std::string separator;
    std::string decimal; ///< empty where no number has a sign
    std::string dates;
    std::string distance;
    std::string volume;
    std::vector<std::string> assumed; ///< what the file itself does not say
    std::vector<std::string> questions; ///< what must be said before it can be read, with the option that does
    std::map<std::string, std::vector<int>> notices; ///< what a person should know, and the lines
};

} // namespace exchange
