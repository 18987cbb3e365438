#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace charts {

/// A number as a person writes it, with a point, rounded to `digits` behind it. The same bytes in every locale.
std::string NumberText(double value, int digits);

/// The axis of values. It always holds 0, so that a length on it is true to what it stands for.
struct ValueAxis {
    double low = 0;
    double high = 1;
    double step = 1; ///< 1, 2 or 5 times a power of ten; both ends are multiples of it
    int digits = 0; ///< behind the point, as many as the step needs

    /// For values from `least` to `most`, both finite, with about `steps` steps.
    static ValueAxis For(double least, double most, int steps = 5);
    std::vector<double> Ticks() const;
};

using Day = std::chrono::sys_days;

struct DayTick {
    Day day;
    std::string label; ///< "2026" or "Mar 2026"
};

/// First days of months or years between two days, `most` of them at the most.
std::vector<DayTick> DayTicks(Day first, Day last, int most);

} // namespace charts
