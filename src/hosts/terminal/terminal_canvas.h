#pragma once

#include "hosts/terminal/cell_grid.h"
#include "hosts/terminal/cell_measurer.h"

#include <optional>
#include <vector>

namespace device {

/// Draws into the cells of a terminal. The title line and the soft-key bar are its first and its last row; the rows
/// between them hold what lies between those two on the screen.
class TerminalCanvas final : public Canvas {
public:
    /// `grey`: the terminal shows what is greyed; without it that is told in letters.
    TerminalCanvas(int columns, int rows, bool unicode, bool grey);

    /// A screen of so many cells; everything has to be painted anew.
    void Resize(int columns, int rows);
    /// The screen's size in device pixels.
    SIZE ScreenSize() const;
    const CellGrid& Grid() const { return grid_; }
    /// In device pixels, where a click into a cell goes: into the text that stands there.
    POINT PointOf(int column, int row) const;
    /// Whether the soft keys' names show the keys that press them.
    void ShowHints(bool shown) { hints_ = shown; }
    bool HasHints() const { return hints_; }

    TextMeasurer& Measurer() override { return measurer_; }
    void SetMarks(const PaintMarks& marks) override { marks_ = marks; }
    void Fill(const RECT& rectangle, COLORREF color, int alpha) override;
    void Line(POINT /*from*/, POINT /*to*/, COLORREF /*color*/, int /*width*/) override { }
    void Frame(const RECT& rectangle, COLORREF color, int width) override;
    void Polygon(std::span<const POINT> points, COLORREF color) override;
    void Text(int x, int y, std::wstring_view text, const FontDescription& font, COLORREF color) override;
    void DrawPicture(const RECT& place, const Picture& picture) override;

private:
    /// Of cells; the ends do not belong to it.
    struct Span {
        int first;
        int end;
    };

    /// Always a whole frame: what is not in it is not on the screen.
    void Begin(const RECT& dirty) override;
    int Column(int x) const;
    /// The row of something of one line, from its upper edge and its height.
    int Row(int top, int height) const;
    int BodyRow(int top, int height) const;
    int ControlRow(int top, int height) const;
    int MenuItemHeight() const;
    Span Rows(const RECT& rectangle) const;
    Span Columns(const RECT& rectangle) const;
    void Cover(Span rows, Span columns, Ground ground);
    void OpenMenu(const RECT& place);
    void PlaceCaret(const RECT& rectangle);
    void Dim(const RECT& area);
    void Paint(const RECT& area, Ground ground);
    bool IsInMenu(int column, int row) const;
    int MiddleOf(int column, int row) const;
    int HintedColumn(int column, std::wstring_view label, bool left);
    void Put(int column, int row, wchar_t character, bool dim, bool bold);
    void PutEllipsis(int column, int row, int firstColumn, bool dim, bool bold);
    bool IsEdit() const;

    CellMeasurer measurer_;
    bool grey_;
    bool hints_ = false;
    CellGrid grid_;
    PaintMarks marks_;
    /// Where a menu stands, which is painted last.
    std::optional<RECT> menu_;
    int menuFirstRow_ = 0;
};

} // namespace device
