#pragma once

#include "platform/drawing/text_fit.h"
#include "platform/types.h"

#include <string>
#include <vector>

namespace device {

/// Where the text of an edit stands in its client area: its lines, and how far they are scrolled.
class EditLayout {
public:
    /// What the lines are made for.
    struct Frame {
        TextMeasurer* measurer = nullptr;
        FontDescription font;
        SIZE client;
        int padding = 0;
        bool lines = false; ///< broken into lines; otherwise one line that scrolls sideways
    };

    /// Makes the lines anew where something has changed.
    void Update(const Frame& frame, const std::wstring& text);
    const std::vector<TextLine>& Lines() const { return lines_; }
    int LineHeight() const;
    /// Whole lines that show at a time, at least one.
    int LinesShown() const;
    int FirstLine() const { return firstLine_; }
    /// Whether all lines of a text would show at a time.
    static bool FitsIn(const Frame& frame, std::wstring_view text);

    std::size_t LineOf(std::size_t index) const;
    /// Upper left corner of a line, client coordinates.
    POINT LinePlace(std::size_t line) const;
    std::wstring_view LineText(std::size_t line) const;
    /// From the client area's left edge.
    int CaretX(std::size_t line, std::size_t index) const;
    /// The part of a line between two characters, in x from the client area's left edge; empty outside the line.
    RECT SelectionPlace(std::size_t line, std::size_t start, std::size_t end) const;
    /// The character before which a caret comes closest to a point of the client area.
    std::size_t IndexAt(POINT point) const;
    /// The same within one line.
    std::size_t IndexInLine(std::size_t line, int x) const;
    /// The last place of a line where the caret still stands on it.
    std::size_t LineEnd(std::size_t line) const;

    void ScrollToStart();
    /// Scrolls as little as brings the caret into view.
    void ShowCaret(std::size_t caret);
    void ScrollBy(int lines);

private:
    Frame frame_;
    std::wstring text_;
    std::vector<TextLine> lines_;
    int scrollX_ = 0;
    int firstLine_ = 0;
};

} // namespace device
