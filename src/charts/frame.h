#pragma once

#include "charts/chart.h"
#include "charts/svg.h"

namespace charts {

// The part of a picture that values are drawn in, in pixels.
inline constexpr double Left = 64;
inline constexpr double Right = Svg::Width - 16;
inline constexpr double Top = 56;
inline constexpr double Bottom = Svg::Height - 40;
inline constexpr double LetterWidth = 7; // of a face of 12 pixels, about

double YOf(const ValueAxis& axis, double value);
void DrawAxis(Svg& svg, const ValueAxis& axis, const std::string& unit);
/// A label below the axis of what lies beside each other.
void DrawBelow(Svg& svg, double x, const std::string& label);
/// The colour of the part of this number, from 0 to 4.
std::string ColorOf(std::size_t part);
/// The picture of no figures at all.
std::string Nothing(const Words& words);

} // namespace charts
