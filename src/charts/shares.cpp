#include "charts/frame.h"

#include <algorithm>
#include <numeric>

namespace charts {

std::string ToSvg(const Shares& chart) {
    const double whole = std::accumulate(chart.parts.begin(), chart.parts.end(), 0.0,
        [](double sum, const Shares::Part& part) { return sum + part.value; });
    if (whole <= 0)
        return Nothing(chart.words);
    Svg svg(chart.words.id, chart.words.title, chart.words.description);
    std::size_t longest = 0;
    for (const Shares::Part& part : chart.parts)
        longest = std::max(longest, part.name.size());
    const double nameRoom = 16 + static_cast<double>(longest + 2) * LetterWidth;
    constexpr double ValueRoom = 170;
    constexpr std::size_t LeastRows = 4; // a bar alone would be a block
    const double pitch = (Bottom - Top) / static_cast<double>(std::max(chart.parts.size(), LeastRows));
    double y = Top;
    for (std::size_t index = 0; index < chart.parts.size(); ++index, y += pitch) {
        const Shares::Part& part = chart.parts[index];
        const double share = part.value / whole;
        const std::string value
            = NumberText(share * 100, 1) + " % (" + NumberText(part.value, 2) + ' ' + chart.words.unit + ')';
        // Of the whole, not of the largest: half of the room is half of the money.
        const double width = (Right - nameRoom - ValueRoom) * share;
        svg.Text(16, y + pitch / 2 + 4, part.name, Svg::Anchor::Start);
        svg.Rectangle(nameRoom, y + pitch * 0.2, width, pitch * 0.6, ColorOf(index), part.name + ": " + value);
        svg.Text(nameRoom + width + 8, y + pitch / 2 + 4, value, Svg::Anchor::Start);
    }
    return svg.Finish();
}

} // namespace charts
