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
    TerminalCanvas(int columns, int rows, bool unicode);

    /// A screen of so many cells; everything has to be painted anew.
    void Resize(int columns, int rows);
    /// The screen's size in device pixels.
    SIZE ScreenSize() const;
    const CellGrid& Grid() const { return grid_; }

    TextMeasurer& Measurer() override { return measurer_; }
    /// Always a whole frame: what is not in it is not on the screen.
    void BeginFrame(const RECT& dirty) override;
    void EndFrame() override;
    void PushClip(const RECT& clip) override;
    void PopClip() override;
    void SetMarks(const PaintMarks& marks) override;
    void Fill(const RECT& rectangle, COLORREF color, int alpha) override;
    void Line(POINT from, POINT to, COLORREF color, int width) override;
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

    int Column(int x) const;
    /// The row of something of one line, from its upper edge and its height.
    int Row(int top, int height) const;
    int BodyRow(int top, int height) const;
    int ControlRow(int top, int height) const;
    int MenuItemHeight() const;
    Span Rows(const RECT& rectangle) const;
    Span Columns(const RECT& rectangle) const;
    RECT Clipped(const RECT& rectangle) const;
    void OpenMenu(const RECT& place);
    void PlaceCaret(const RECT& rectangle);
    void Dim(const RECT& area);
    void Paint(const RECT& area, Ground ground, COLORREF color);
    void Put(int column, int row, wchar_t character, bool dim, bool bold);
    void PutEllipsis(int column, int row, int firstColumn, bool dim, bool bold);
    bool IsEdit() const;

    CellMeasurer measurer_;
    CellGrid grid_;
    std::vector<RECT> clips_;
    PaintMarks marks_;
    /// While a menu is painted, the last thing of a frame: where it stands.
    std::optional<RECT> menu_;
    int menuFirstRow_ = 0;
};

} // namespace device
