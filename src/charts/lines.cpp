#include "charts/frame.h"

#include <algorithm>

namespace charts {

namespace {

constexpr std::size_t MostDots = 150; // more would be a band
constexpr int MostDayTicks = 8;

std::string DayText(Day day) {
    const std::chrono::year_month_day date{day};
    const std::string month = std::to_string(100 + static_cast<unsigned>(date.month())).substr(1);
    const std::string inMonth = std::to_string(100 + static_cast<unsigned>(date.day())).substr(1);
    return std::to_string(static_cast<int>(date.year())) + '-' + month + '-' + inMonth;
}

struct Extent {
    Day first = Day::max();
    Day last = Day::min();
    double least = 0;
    double most = 0;
    std::size_t count = 0;

    explicit Extent(const Lines& chart) {
        for (const auto& run : chart.runs) {
            for (const Point& point : run) {
                first = std::min(first, point.day);
                last = std::max(last, point.day);
                least = std::min(least, point.value);
                most = std::max(most, point.value);
            }
            count += run.size();
        }
        if (first == last) { // a single day stands in the middle
            first -= std::chrono::days{15};
            last += std::chrono::days{15};
        }
    }

    double XOf(Day day) const {
        const auto whole = static_cast<double>((last - first).count());
        return Left + (Right - Left) * static_cast<double>((day - first).count()) / whole;
    }
};

} // namespace

std::string ToSvg(const Lines& chart) {
    const Extent extent(chart);
    if (extent.count == 0)
        return Nothing(chart.words);
    Svg svg(chart.words.id, chart.words.title, chart.words.description);
    const ValueAxis axis = ValueAxis::For(extent.least, extent.most);
    DrawAxis(svg, axis, chart.words.unit);
    for (const DayTick& tick : DayTicks(extent.first, extent.last, MostDayTicks)) {
        const double x = extent.XOf(tick.day);
        svg.Line(x, Bottom, x, Bottom + 5, "axis");
        DrawBelow(svg, std::min(x, Right - static_cast<double>(tick.label.size()) * LetterWidth / 2), tick.label);
    }
    for (const auto& run : chart.runs)
        for (const Point& point : run)
            svg.AddToPath(extent.XOf(point.day), YOf(axis, point.value), &point == &run.front());
    svg.EndPath("line");
    for (const auto& run : chart.runs)
        for (const Point& point : run)
            if (extent.count <= MostDots || run.size() == 1)
                svg.Dot(extent.XOf(point.day), YOf(axis, point.value), ColorOf(0),
                    DayText(point.day) + ": " + NumberText(point.value, 2) + ' ' + chart.words.unit);
    return svg.Finish();
}

} // namespace charts
