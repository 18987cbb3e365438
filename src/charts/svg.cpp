#include "charts/svg.h"

#include "charts/scale.h"

namespace charts {

namespace {

/// Colours that people who see few colours tell apart by their lightness, after Okabe and Ito ("Color Universal
/// Design", 2008); lighter on a dark ground.
constexpr const char* Style = R"(<style>
text { font: 12px sans-serif; fill: #333 }
.title { font-size: 16px; font-weight: bold; fill: #111 }
.grid { stroke: #ddd } .axis { stroke: #777 } .line { fill: none; stroke: #0072b2; stroke-width: 2 }
.k0 { fill: #0072b2 } .k1 { fill: #d55e00 } .k2 { fill: #009e73 } .k3 { fill: #cc79a7 } .k4 { fill: #e69f00 }
@media (prefers-color-scheme: dark) {
text { fill: #ccc } .title { fill: #eee } .grid { stroke: #444 } .axis { stroke: #999 } .line { stroke: #56b4e9 }
.k0 { fill: #56b4e9 } .k1 { fill: #f28e4c } .k2 { fill: #3fc79a } .k3 { fill: #e0a3c4 } .k4 { fill: #f0c05a }
}
</style>
)";

std::string Length(double value) {
    return NumberText(value, 2);
}

std::string Attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + value + '"';
}

} // namespace

std::string Escaped(const std::string& text) {
    std::string result;
    for (const char character : text) {
        switch (character) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result += static_cast<unsigned char>(character) < ' ' ? ' ' : character;
        }
    }
    return result;
}

Svg::Svg(const std::string& id, const std::string& title, const std::string& description)
    : text_("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + NumberText(Width, 0) + ' '
        + NumberText(Height, 0) + "\" role=\"img\" aria-labelledby=\"" + id + "-title " + id + "-text\">\n<title id=\""
        + id + "-title\">" + Escaped(title) + "</title>\n<desc id=\"" + id + "-text\">" + Escaped(description)
        + "</desc>\n" + Style) {
    Text(16, 24, title, Anchor::Start, "title");
}

void Svg::Text(double x, double y, const std::string& text, Anchor anchor, const char* style) {
    constexpr const char* Anchors[] = {"start", "middle", "end"};
    text_ += "<text" + Attribute("x", Length(x)) + Attribute("y", Length(y));
    if (anchor != Anchor::Start)
        text_ += Attribute("text-anchor", Anchors[static_cast<int>(anchor)]);
    if (*style != '\0')
        text_ += Attribute("class", style);
    text_ += '>' + Escaped(text) + "</text>\n";
}

void Svg::Line(double x1, double y1, double x2, double y2, const char* style) {
    text_ += "<line" + Attribute("x1", Length(x1)) + Attribute("y1", Length(y1)) + Attribute("x2", Length(x2))
        + Attribute("y2", Length(y2)) + Attribute("class", style) + "/>\n";
}

void Svg::Rectangle(
    double x, double y, double width, double height, const std::string& style, const std::string& hint) {
    text_ += "<rect" + Attribute("x", Length(x)) + Attribute("y", Length(y)) + Attribute("width", Length(width))
        + Attribute("height", Length(height)) + Attribute("class", style) + "><title>" + Escaped(hint)
        + "</title></rect>\n";
}

void Svg::Dot(double x, double y, const std::string& style, const std::string& hint) {
    text_ += "<circle" + Attribute("cx", Length(x)) + Attribute("cy", Length(y)) + Attribute("r", "3")
        + Attribute("class", style) + "><title>" + Escaped(hint) + "</title></circle>\n";
}

void Svg::AddToPath(double x, double y, bool isFirst) {
    path_ += (isFirst ? "M" : "L") + Length(x) + ' ' + Length(y);
}

void Svg::EndPath(const char* style) {
    if (!path_.empty())
        text_ += "<path" + Attribute("d", path_) + Attribute("class", style) + "/>\n";
    path_.clear();
}

std::string Svg::Finish() {
    return text_ + "</svg>\n";
}

} // namespace charts
