#include "charts/frame.h"

#include <algorithm>
#include <cmath>

namespace charts {

namespace {

/// What the columns of a period reach, upwards and downwards.
struct Reach {
    double up = 0;
    double down = 0;

    /// Puts a value on top, and gives where it begins.
    double Add(double value) {
        double& level = value < 0 ? down : up;
        const double from = level;
        level += value;
        return from;
    }
};

ValueAxis AxisOf(const Columns& chart) {
    double least = 0;
    double most = 0;
    for (std::size_t period = 0; period < chart.periods.size(); ++period) {
        Reach reach;
        for (const Columns::Kind& kind : chart.kinds)
            reach.Add(kind.values[period]);
        least = std::min(least, reach.down);
        most = std::max(most, reach.up);
    }
    return ValueAxis::For(least, most);
}

bool IsEmpty(const Columns& chart) {
    return std::all_of(chart.kinds.begin(), chart.kinds.end(), [](const Columns::Kind& kind) {
        return std::all_of(kind.values.begin(), kind.values.end(), [](double value) { return value == 0; });
    });
}

/// Names beside squares of their colours, from the right.
void DrawLegend(Svg& svg, const std::vector<Columns::Kind>& kinds) {
    double x = Right;
    for (std::size_t index = kinds.size(); index-- > 0;) {
        x -= static_cast<double>(kinds[index].name.size()) * LetterWidth;
        svg.Text(x, Top - 12, kinds[index].name, Svg::Anchor::Start);
        x -= 16;
        svg.Rectangle(x, Top - 22, 10, 10, ColorOf(index), kinds[index].name);
        x -= 12;
    }
}

void DrawColumn(Svg& svg, const Columns& chart, const ValueAxis& axis, std::size_t period, double left, double width) {
    Reach reach;
    for (std::size_t index = 0; index < chart.kinds.size(); ++index) {
        const Columns::Kind& kind = chart.kinds[index];
        const double value = kind.values[period];
        const double from = YOf(axis, reach.Add(value));
        const double to = YOf(axis, value < 0 ? reach.down : reach.up);
        if (value != 0)
            svg.Rectangle(left, std::min(from, to), width, std::abs(to - from), ColorOf(index),
                chart.periods[period] + ' ' + kind.name + ": " + NumberText(value, 2) + ' ' + chart.words.unit);
    }
}

} // namespace

std::string ToSvg(const Columns& chart) {
    if (IsEmpty(chart))
        return Nothing(chart.words);
    Svg svg(chart.words.id, chart.words.title, chart.words.description);
    const ValueAxis axis = AxisOf(chart);
    DrawAxis(svg, axis, chart.words.unit);
    if (chart.kinds.size() > 1)
        DrawLegend(svg, chart.kinds);
    const double pitch = (Right - Left) / static_cast<double>(chart.periods.size());
    const double width = std::max(pitch * 0.8, std::min(pitch, 1.0));
    std::size_t longest = 0;
    for (const std::string& name : chart.periods)
        longest = std::max(longest, name.size());
    // As many names as find room.
    const double room = static_cast<double>(longest + 2) * LetterWidth;
    const auto every = static_cast<std::size_t>(std::max(1.0, std::ceil(room / pitch)));
    for (std::size_t period = 0; period < chart.periods.size(); ++period) {
        const double middle = Left + pitch * (static_cast<double>(period) + 0.5);
        DrawColumn(svg, chart, axis, period, middle - width / 2, width);
        if (period % every == 0)
            DrawBelow(svg, middle, chart.periods[period]);
    }
    return svg.Finish();
}

} // namespace charts
