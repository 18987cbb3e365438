#include "charts/frame.h"

#include <cmath>

namespace charts {

double YOf(const ValueAxis& axis, double value) {
    return Bottom - (value - axis.low) / (axis.high - axis.low) * (Bottom - Top);
}

void DrawAxis(Svg& svg, const ValueAxis& axis, const std::string& unit) {
    svg.Text(16, Top - 12, unit, Svg::Anchor::Start);
    for (const double value : axis.Ticks()) {
        const double y = YOf(axis, value);
        svg.Line(Left, y, Right, y, std::abs(value) < axis.step / 2 ? "axis" : "grid");
        svg.Text(Left - 8, y + 4, NumberText(value, axis.digits), Svg::Anchor::End);
    }
}

void DrawBelow(Svg& svg, double x, const std::string& label) {
    svg.Text(x, Bottom + 20, label, Svg::Anchor::Middle);
}

std::string ColorOf(std::size_t part) {
    return "k" + std::to_string(part);
}

std::string Nothing(const Words& words) {
    Svg svg(words.id, words.title, words.description);
    svg.Text(Svg::Width / 2, Svg::Height / 2, "Nothing to show yet.", Svg::Anchor::Middle);
    return svg.Finish();
}

} // namespace charts
