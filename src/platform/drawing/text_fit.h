#pragma once

#include "platform/drawing/canvas.h"

#include <string>
#include <string_view>
#include <vector>

namespace device {

/// True where `text` may be cut before character `index`: never inside a base character and what combines with it.
bool IsTextBoundary(std::wstring_view text, std::size_t index);
/// The boundary after (before) `index`; stays within the text.
std::size_t NextTextBoundary(std::wstring_view text, std::size_t index);
std::size_t PreviousTextBoundary(std::wstring_view text, std::size_t index);

/// Neither drawn nor typed.
bool IsControlCharacter(wchar_t character);
/// `text` without characters that no face draws: blanks of every kind are spaces, control characters U+FFFD. One
/// character stays one character, so that an index into the text is an index into what is laid out.
std::wstring DrawableText(std::wstring_view text);
std::string DrawableUtf8(std::wstring_view text);

/// Of runs that were measured a measurer keeps so many, and no more characters, since the same ones are asked for
/// again.
inline constexpr std::size_t MaximumRuns = 600;
inline constexpr std::size_t MaximumCharacters = 60000;
/// The largest font that is laid out.
inline constexpr int MaximumFontHeight = 1000;
/// Whose mean is the average width of a font.
inline constexpr std::wstring_view Alphabet = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

/// A line of a longer text: characters [start, end); the next line starts at `next`. Between the two stand the blanks
/// at which the line was broken, or a line end.
struct TextLine {
    std::size_t start = 0;
    std::size_t end = 0;
    std::size_t next = 0;
};

/// Breaks a text into lines, one after the other. Where a line ends depends on nothing before its start, and on nothing
/// much behind its end.
class LineBreaker {
public:
    /// What is laid out at a time; most lines are far shorter.
    static constexpr std::size_t UsualPiece = 1024;

    /// `text` has to stay as long as the breaker. A width of 0 breaks at line ends alone.
    LineBreaker(TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, int width);

    /// The line that starts at `start`, where the text or a line begins.
    TextLine Next(std::size_t start);
    /// Whether no line follows the one that Next gave last.
    bool IsLast(const TextLine& line) const;

private:
    static constexpr std::size_t UsualLine = 64;

    bool IsParted(std::size_t start) const;
    std::size_t Fit(std::size_t start);
    TextLine Wrap(std::size_t start);

    TextMeasurer& measurer_;
    const FontDescription& font_;
    std::wstring_view text_;
    int width_;
    std::size_t paragraph_ = 1; ///< behind the stop: none is known
    std::size_t stop_ = 0; ///< where the paragraph ends
    std::size_t pieceStart_ = 0; ///< of what was laid out last
    std::vector<double> widths_{0}; ///< of the beginnings of that
};

/// The lines of `text`: broken at line ends ("\n", "\r\n", "\r") and, with a `width` above 0, at blanks so that each
/// line fits it. A word that is longer than a line is broken by characters, at least one a line. An empty text, and a
/// line end at the end of the text, give one empty line.
std::vector<TextLine> BreakLines(
    TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, int width);

} // namespace device
