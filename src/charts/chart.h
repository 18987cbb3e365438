#pragma once

#include "charts/scale.h"

#include <string>
#include <vector>

/// Pictures of figures as SVG: the same bytes for the same figures, texts that stay texts, colours that can be told
/// apart on light and dark grounds, a title and a description for who cannot see them. All texts are UTF-8.
namespace charts {

struct Words {
    std::string id; ///< of letters; on a page with several pictures each has its own
    std::string title;
    std::string description; ///< what the picture shows, in a sentence or two
    std::string unit; ///< of the values, such as "L/100 km"
};

struct Point {
    Day day;
    double value;
};

/// Values over time. Between two runs is a gap, where nothing is known.
struct Lines {
    Words words;
    std::vector<std::vector<Point>> runs; ///< each in order of its days, none of them empty
};
std::string ToSvg(const Lines& chart);

/// Sums of months, quarters or years, one upon the other by kind.
struct Columns {
    struct Kind {
        std::string name;
        std::vector<double> values; ///< as many as there are periods
    };

    Words words;
    std::vector<std::string> periods; ///< their names, oldest first
    std::vector<Kind> kinds; ///< five at the most; below 0 counts downwards
};
std::string ToSvg(const Columns& chart);

/// Parts of a whole, the largest first.
struct Shares {
    struct Part {
        std::string name;
        double value; ///< 0 or more
    };

    Words words;
    std::vector<Part> parts; ///< five at the most
};
std::string ToSvg(const Shares& chart);

} // namespace charts
