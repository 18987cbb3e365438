#include "charts/chart.h"
#include "charts/svg.h"

#include <gtest/gtest.h>
#include <regex>
#include <tuple>

using namespace charts;
using namespace std::chrono_literals;

namespace {

std::size_t Count(const std::string& text, const std::string& pattern) {
    const std::regex wanted(pattern);
    return static_cast<std::size_t>(std::distance(std::sregex_iterator(text.begin(), text.end(), wanted), {}));
}

TEST(Scale, NumbersAreWrittenWithAPointAndRounded) {
    const std::tuple<double, int, const char*> cases[] = {{0, 0, "0"}, {1.006, 2, "1.01"}, {-0.004, 2, "0.00"},
        {-0.5, 1, "-0.5"}, {0.05, 2, "0.05"}, {1234567.5, 0, "1234568"}, {1e300, 0, "1000000000000000"}};
    for (const auto& [value, digits, text] : cases)
        EXPECT_EQ(NumberText(value, digits), text);
}

TEST(Scale, AnAxisHoldsItsValuesAndZeroInRoundSteps) {
    const std::tuple<double, double, double, double, double, int> cases[]
        = {{5.5, 7.5, 0, 8, 2, 0}, {0, 0.033, 0, 0.04, 0.01, 2}, {-3, 12, -5, 15, 5, 0}, {-0.2, -0.1, -0.2, 0, 0.05, 2},
            {0, 1e9, 0, 1e9, 2e8, 0}, {0, 0, 0, 1, 1, 0}};
    for (const auto& [least, most, low, high, step, digits] : cases) {
        const ValueAxis axis = ValueAxis::For(least, most);
        EXPECT_NEAR(axis.low, low, 1e-9) << most;
        EXPECT_NEAR(axis.high, high, 1e-9) << most;
        EXPECT_NEAR(axis.step, step, 1e-9) << most;
        EXPECT_EQ(axis.digits, digits) << most;
        EXPECT_NEAR(axis.Ticks().back(), axis.high, step / 1000);
    }
}

TEST(Scale, DaysAreMarkedByMonthsOrYears) {
    const auto labels = [](Day first, Day last) {
        std::string all;
        for (const DayTick& tick : DayTicks(first, last, 4))
            all += tick.label + ' ';
        return all;
    };
    EXPECT_EQ(labels(Day{2026y / 1 / 2}, Day{2026y / 4 / 1}), "Feb 2026 Mar 2026 Apr 2026 ");
    EXPECT_EQ(labels(Day{2025y / 11 / 1}, Day{2026y / 10 / 31}), "Jan 2026 Apr 2026 Jul 2026 Oct 2026 ");
    EXPECT_EQ(labels(Day{2010y / 6 / 1}, Day{2026y / 1 / 1}), "2015 2020 2025 ");
    EXPECT_EQ(labels(Day{2026y / 3 / 5}, Day{2026y / 3 / 9}), "");
}

TEST(Charts, LinesBreakWhereNothingIsKnown) {
    Lines chart{{"a", "A & B", "<none>", "L/100 km"}, {}};
    EXPECT_EQ(Count(ToSvg(chart), "Nothing to show"), 1U);
    chart.runs = {{{Day{2026y / 1 / 1}, 6}, {Day{2026y / 1 / 9}, 8}}, {{Day{2026y / 2 / 1}, 7}}};
    const std::string svg = ToSvg(chart);
    EXPECT_EQ(Count(svg, "M[0-9]"), 2U);
    EXPECT_EQ(Count(svg, "<circle"), 3U);
    EXPECT_EQ(Count(svg, "<title id=\"a-title\">A &amp; B</title>\n<desc id=\"a-text\">&lt;none&gt;"), 1U);
    EXPECT_EQ(Count(svg, "2026-01-09: 8.00 L/100 km"), 1U);
    // So many points are a line alone, but a day between two gaps would be lost without its dot.
    for (int day = 0; day < 200; ++day)
        chart.runs[0].push_back({Day{2026y / 1 / 10} + std::chrono::days(day), 7});
    EXPECT_EQ(Count(ToSvg(chart), "<circle"), 1U);
}

TEST(Charts, ColumnsStandOnEachOtherAndCountDownwardsBelowZero) {
    const Columns chart{
        {"c", "Cost", "By kind.", "EUR"}, {"2026-01", "2026-02"}, {{"Fuel", {30, 0}}, {"Other", {20, -50}}}};
    const std::string svg = ToSvg(chart);
    // -60 to 60 over 264 pixels from 56 on: 2.2 a unit.
    EXPECT_EQ(Count(svg, "y=\"122.00\" width=\"[0-9.]*\" height=\"66.00\" class=\"k0\""), 1U);
    EXPECT_EQ(Count(svg, "y=\"78.00\" width=\"[0-9.]*\" height=\"44.00\" class=\"k1\""), 1U);
    EXPECT_EQ(Count(svg, "y=\"188.00\" width=\"[0-9.]*\" height=\"110.00\" class=\"k1\""), 1U);
    EXPECT_EQ(Count(ToSvg(Columns{{"c", "Cost", "", "EUR"}, {"2026"}, {{"Fuel", {0}}}}), "Nothing to show"), 1U);
}

} // namespace
