#pragma once

#include <string>
#include <vector>

namespace device {

/// What lies behind the text of a cell.
enum class Ground { Plain, Bar, Menu, Selected };

struct Cell {
    std::wstring text; ///< one character with what combines with it; empty: blank, or the right half of a wide one
    Ground ground = Ground::Plain;
    int middle = 0; ///< how far down, in device pixels, the middle of its text is; 0: it has none
    bool covered = false; ///< the right half of a wide character
    bool dim = false; ///< greyed, or below a message box
    bool bold = false;
    bool underlined = false;

    bool operator==(const Cell&) const = default;
};

/// What a terminal shows.
struct CellGrid {
    int columns = 0;
    int rows = 0;
    std::vector<Cell> cells; ///< row by row
    bool caretShown = false;
    int caretColumn = 0;
    int caretRow = 0;

    void Clear(int width, int height) {
        columns = width;
        rows = height;
        cells.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), Cell{});
        caretShown = false;
    }
    bool Has(int column, int row) const { return column >= 0 && column < columns && row >= 0 && row < rows; }
    Cell& At(int column, int row) { return cells[Index(column, row)]; }
    const Cell& At(int column, int row) const { return cells[Index(column, row)]; }

private:
    std::size_t Index(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(column);
    }
};

} // namespace device
