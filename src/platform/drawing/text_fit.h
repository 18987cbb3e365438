#pragma once

#include "platform/drawing/canvas.h"

#include <string_view>
#include <vector>

namespace device {

/// True where `text` may be cut before character `index`: never inside a base character and what combines with it.
bool IsTextBoundary(std::wstring_view text, std::size_t index);
/// The boundary after (before) `index`; stays within the text.
std::size_t NextTextBoundary(std::wstring_view text, std::size_t index);
std::size_t PreviousTextBoundary(std::wstring_view text, std::size_t index);

/// How many characters from the start of `text` fit `width`, cut at a boundary.
std::size_t FittingLength(TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, int width);

/// A line of a longer text: characters [start, end); the next line starts at `next`. Between the two stand the blanks
/// at which the line was broken, or a line end.
struct TextLine {
    std::size_t start = 0;
    std::size_t end = 0;
    std::size_t next = 0;
};

/// The lines of `text`: broken at line ends ("\n", "\r\n", "\r") and, with a `width` above 0, at blanks so that each
/// line fits it. A word that is longer than a line is broken by characters, at least one a line. An empty text, and a
/// line end at the end of the text, give one empty line.
std::vector<TextLine> BreakLines(
    TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, int width);

} // namespace device
