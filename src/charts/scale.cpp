#include "charts/scale.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>

namespace charts {

namespace {

constexpr double LargestNumber = 1e15; // of which a double still has every whole one

const char* const MonthNames[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

} // namespace

std::string NumberText(double value, int digits) {
    double unit = 1;
    for (int i = 0; i < digits; ++i)
        unit *= 10;
    const auto scaled
        = static_cast<std::int64_t>(std::llround(std::clamp(value, -LargestNumber, LargestNumber) * unit));
    std::string text = std::to_string(std::abs(scaled));
    if (digits > 0) {
        const auto places = static_cast<std::size_t>(digits);
        if (text.size() <= places)
            text.insert(0, places + 1 - text.size(), '0');
        text.insert(text.size() - places, ".");
    }
    return scaled < 0 ? '-' + text : text;
}

ValueAxis ValueAxis::For(double least, double most, int steps) {
    ValueAxis axis;
    least = std::min(least, 0.0);
    most = std::max(most, 0.0);
    if (most <= least)
        return axis;
    const double rough = (most - least) / steps;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    const double ratio = rough / power;
    axis.step = power * (ratio <= 1 ? 1 : ratio <= 2 ? 2 : ratio <= 5 ? 5 : 10);
    axis.low = std::floor(least / axis.step) * axis.step;
    axis.high = std::ceil(most / axis.step) * axis.step;
    axis.digits = std::clamp(static_cast<int>(-std::floor(std::log10(axis.step) + 1e-9)), 0, 6);
    return axis;
}

std::vector<double> ValueAxis::Ticks() const {
    std::vector<double> ticks;
    const auto count = std::llround((high - low) / step);
    for (long long index = 0; index <= count; ++index)
        ticks.push_back(low + static_cast<double>(index) * step);
    return ticks;
}

std::vector<DayTick> DayTicks(Day first, Day last, int most) {
    using namespace std::chrono;
    constexpr int Steps[] = {1, 3, 6, 12, 24, 60, 120, 240, 600, 1200, 6000, 12000, 120000}; // months
    const year_month_day begin{first};
    const year_month_day end{last};
    const auto monthOf = [](const year_month_day& day) {
        return static_cast<int>(day.year()) * 12 + static_cast<int>(static_cast<unsigned>(day.month())) - 1;
    };
    const int months = monthOf(end) - monthOf(begin) + 1;
    const int* step
        = std::find_if(std::begin(Steps), std::end(Steps) - 1, [&](int each) { return months / each <= most; });
    std::vector<DayTick> ticks;
    for (int month = (monthOf(begin) + *step - 1) / *step * *step; month <= monthOf(end); month += *step) {
        const Day day = year{month / 12} / std::chrono::month{static_cast<unsigned>(month % 12 + 1)} / 1;
        if (day < first)
            continue;
        std::string label = std::to_string(month / 12);
        if (*step < 12)
            label.insert(0, " ").insert(0, MonthNames[month % 12]);
        ticks.push_back({day, std::move(label)});
    }
    return ticks;
}

} // namespace charts
