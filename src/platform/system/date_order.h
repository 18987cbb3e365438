#pragma once

#include "platform/types.h"

#include <string>
#include <vector>

namespace device {
/// A piece of the short date: a part of the date or the text between two of them.
struct ShortDatePart {
    enum class Kind { Literal, Day, Month, Year };

    Kind kind = Kind::Literal;
    std::wstring text; ///< of a literal
    bool leadingZero = false; ///< a day or month below ten has two digits
};

/// The locale's short date from front to back. It has each of day, month and year once.
const std::vector<ShortDatePart>& ShortDateOrder();
/// One piece as GetDateFormatW writes it, in the locale's digits. The year has four.
std::wstring ShortDatePartText(const ShortDatePart& part, const SYSTEMTIME& date);
} // namespace device
