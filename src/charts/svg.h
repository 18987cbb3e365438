#pragma once

#include <string>

namespace charts {

/// A text within markup. Control characters, which no markup may hold, are blanks.
std::string Escaped(const std::string& text);

/// Puts an SVG picture together. Lengths are in pixels of a picture of Width by Height.
class Svg {
public:
    static constexpr double Width = 720;
    static constexpr double Height = 360;

    Svg(const std::string& id, const std::string& title, const std::string& description);

    enum class Anchor { Start, Middle, End };
    void Text(double x, double y, const std::string& text, Anchor anchor, const char* style = "");
    void Line(double x1, double y1, double x2, double y2, const char* style);
    /// `hint` shows where the pointer rests.
    void Rectangle(double x, double y, double width, double height, const std::string& style, const std::string& hint);
    void Dot(double x, double y, const std::string& style, const std::string& hint);
    /// A path that goes on where `isFirst` does not begin another one.
    void AddToPath(double x, double y, bool isFirst);
    void EndPath(const char* style);

    std::string Finish();

private:
    std::string text_;
    std::string path_;
};

} // namespace charts
