#include "hosts/terminal/terminal_canvas.h"

#include "platform/controls/static_text.h"
#include "platform/drawing/picture.h"
#include "platform/drawing/rectangles.h"
#include "platform/metrics.h"
#include "platform/window.h"
#include "platform/windowing/control.h"
#include "platform/windowing/look.h"

#include <algorithm>
#include <string_view>

namespace device {

namespace {

constexpr wchar_t Ellipsis = 0x2026;

/// Division that rounds down below 0 too.
int Floor(int value, int by) {
    const int result = value / by;
    return value % by < 0 ? result - 1 : result;
}

} // namespace

TerminalCanvas::TerminalCanvas(int columns, int rows, bool unicode, bool grey)
    : measurer_(unicode)
    , grey_(grey) {
    Resize(columns, rows);
}

void TerminalCanvas::Resize(int columns, int rows) {
    grid_.Clear(std::max(columns, 1), std::max(rows, 1));
}

SIZE TerminalCanvas::ScreenSize() const {
    const SIZE cell = measurer_.Cell();
    const int bodyRows = std::max(0, grid_.rows - 2);
    return {grid_.columns * cell.cx, TitleHeight() + bodyRows * cell.cy + SoftKeyBarHeight()};
}

// From device pixels to cells

/// As menus lay themselves out: a line of text and a little around it.
int TerminalCanvas::MenuItemHeight() const {
    return static_cast<int>(measurer_.Cell().cy) + Scaled(6);
}

int TerminalCanvas::Column(int x) const {
    const int width = measurer_.Cell().cx;
    // A field that is scrolled to its end stands off the cells; the caret behind its text still has to show.
    return Floor(IsEdit() ? x : x + width / 2, width);
}

int TerminalCanvas::BodyRow(int top, int height) const {
    const int cell = measurer_.Cell().cy;
    // Lines stand mostly at the upper edge of their rows, fields somewhat below it.
    const int lifted = top + height / 2 - (cell * 2 / 5);
    return 1 + Floor(lifted - TitleHeight(), cell);
}

/// The lines of one text follow each other row by row, however high its font is.
int TerminalCanvas::ControlRow(int top, int height) const {
    RECT place;
    if (height <= 0 || !GetWindowRect(marks_.control, &place))
        return BodyRow(top, height);
    const int line = Floor(top - place.top, height);
    return BodyRow(top - line * height, height) + line;
}

int TerminalCanvas::Row(int top, int height) const {
    switch (marks_.role) {
    case PaintMarks::Role::Title:
    case PaintMarks::Role::InputMode:
        return 0;
    case PaintMarks::Role::LeftSoftKey:
    case PaintMarks::Role::RightSoftKey:
        return grid_.rows - 1;
    default:
        break;
    }
    const int cell = measurer_.Cell().cy;
    if (menu_)
        return menuFirstRow_ + Floor(top + height / 2 - menu_->top, MenuItemHeight());
    if (height > cell * 3 / 2)
        return BodyRow(top, height);
    return IsEdit() || dynamic_cast<const StaticText*>(ControlOf(marks_.control)) ? ControlRow(top, height)
                                                                                  : BodyRow(top, height);
}

TerminalCanvas::Span TerminalCanvas::Rows(const RECT& rectangle) const {
    const int title = TitleHeight();
    const SIZE screen = ScreenSize();
    const int cell = measurer_.Cell().cy;
    if (rectangle.top >= screen.cy - SoftKeyBarHeight())
        return {grid_.rows - 1, grid_.rows};
    if (rectangle.bottom <= title)
        return {0, 1};
    if (HeightOf(rectangle) <= cell * 3 / 2) {
        const int row = Row(rectangle.top, HeightOf(rectangle));
        return {row, row + 1};
    }
    const int first = rectangle.top < title ? 0 : 1 + Floor(rectangle.top + cell / 10 - title, cell);
    const int end = rectangle.bottom > screen.cy - SoftKeyBarHeight()
        ? grid_.rows
        : 1 + Floor(rectangle.bottom + cell / 10 - title, cell);
    return {first, end};
}

TerminalCanvas::Span TerminalCanvas::Columns(const RECT& rectangle) const {
    return {std::max(0, Column(rectangle.left)), std::min(grid_.columns, Column(rectangle.right))};
}

bool TerminalCanvas::IsEdit() const {
    return TakesText(marks_.control);
}

// From cells to device pixels

bool TerminalCanvas::IsInMenu(int column, int row) const {
    if (!menu_ || row < menuFirstRow_)
        return false;
    const Span columns = Columns(*menu_);
    return column >= columns.first && column < columns.end;
}

/// The nearest text of the row; a row without any stands a cell below the one above it.
int TerminalCanvas::MiddleOf(int column, int row) const {
    for (int distance = 0; distance < grid_.columns; ++distance)
        for (const int near : {column - distance, column + distance})
            if (grid_.Has(near, row) && grid_.At(near, row).middle != 0)
                return grid_.At(near, row).middle;
    const int cell = measurer_.Cell().cy;
    return row <= 1 ? TitleHeight() + cell / 2 : MiddleOf(column, row - 1) + cell;
}

POINT TerminalCanvas::PointOf(int column, int row) const {
    const int x = column * static_cast<int>(measurer_.Cell().cx) + measurer_.Cell().cx / 2;
    if (row == grid_.rows - 1)
        return {x, ScreenSize().cy - SoftKeyBarHeight() / 2};
    if (row == 0)
        return {x, TitleHeight() / 2};
    if (IsInMenu(column, row)) {
        const int item = MenuItemHeight();
        return {x, menu_->top + (row - menuFirstRow_) * item + item / 2};
    }
    // Beside a menu, which is higher on the screen than its cells are.
    const LONG y = MiddleOf(column, row);
    return {x, menu_ ? std::min(y, menu_->top - 1) : y};
}

// A frame

void TerminalCanvas::Begin(const RECT& /*dirty*/) {
    grid_.Clear(grid_.columns, grid_.rows);
    marks_ = {};
    menu_.reset();
}

// Grounds

void TerminalCanvas::Cover(Span rows, Span columns, Ground ground) {
    for (int row = rows.first; row < rows.end; ++row) {
        for (int column = columns.first; column < columns.end; ++column) {
            grid_.At(column, row) = {};
            grid_.At(column, row).ground = ground;
        }
    }
}

void TerminalCanvas::OpenMenu(const RECT& place) {
    const int item = MenuItemHeight();
    const int rows = std::max(1, HeightOf(place) / item);
    menu_ = place;
    menuFirstRow_ = std::max(0, grid_.rows - 1 - rows);
    Cover({menuFirstRow_, grid_.rows - 1}, Columns(place), Ground::Menu);
    grid_.caretShown = false;
}

void TerminalCanvas::PlaceCaret(const RECT& rectangle) {
    const int row = Row(rectangle.top, HeightOf(rectangle));
    const int column = std::clamp(Column(rectangle.left), 0, grid_.columns - 1);
    if (!grid_.Has(column, row))
        return;
    grid_.caretShown = true;
    grid_.caretColumn = column;
    grid_.caretRow = row;
}

void TerminalCanvas::Dim(const RECT& area) {
    const Span rows = Rows(area);
    for (int row = std::max(0, rows.first); row < std::min(grid_.rows, rows.end); ++row) {
        for (int column = 0; column < grid_.columns; ++column) {
            Cell& cell = grid_.At(column, row);
            cell.dim = true;
            cell.bold = false;
            // What a question is about stays to be seen.
            if (cell.ground != Ground::Selected)
                cell.ground = Ground::Plain;
        }
    }
    grid_.caretShown = false;
}

void TerminalCanvas::Paint(const RECT& area, Ground ground) {
    const Span rows = Rows(area);
    Cover({std::max(0, rows.first), std::min(grid_.rows, rows.end)}, Columns(area), ground);
}

void TerminalCanvas::Fill(const RECT& rectangle, COLORREF color, int alpha) {
    const RECT area = Clipped(rectangle);
    const SIZE cell = measurer_.Cell();
    if (IsRectEmpty(area))
        return;
    if (alpha < 255) {
        Dim(area);
    } else if (rectangle.right - rectangle.left < cell.cx / 4) {
        if (color == GetSysColor(COLOR_WINDOWTEXT) && HeightOf(rectangle) > cell.cy / 2)
            PlaceCaret(rectangle);
    } else if (color == BarColor) {
        Paint(area, Ground::Bar);
    } else if (color == MenuColor) {
        OpenMenu(area);
    } else if (HeightOf(rectangle) < cell.cy / 4) {
        // The edge of a message box, in the row that its margin leaves free.
        const int row = Rows({area.left, area.top, area.right, area.top + cell.cy * 2}).first;
        const Span columns = Columns(area);
        for (int column = columns.first; column < columns.end; ++column)
            Put(column, row, measurer_.IsUnicode() ? wchar_t{0x2500} : L'-', false, false);
    } else if (color == GetSysColor(COLOR_HIGHLIGHT)) {
        Paint(area, Ground::Selected);
    } else {
        // No shades: whether the terminal's own ground is dark or light is not known.
        Paint(area, Ground::Plain);
    }
}

// Edges and small shapes

void TerminalCanvas::Frame(const RECT& rectangle, COLORREF color, int width) {
    const int cell = measurer_.Cell().cy;
    const RECT area = Clipped(rectangle);
    if (menu_ || IsRectEmpty(area) || HeightOf(rectangle) > cell * 2 + cell / 2)
        return;
    const bool ofRow = width == 1 && color == GetSysColor(COLOR_HIGHLIGHT);
    const bool focused = width > 1;
    if (!ofRow && HeightOf(rectangle) > cell * 3 / 2)
        return;
    const Span rows = Rows(rectangle);
    const Span columns = Columns(rectangle);
    const Span visible = Rows(area);
    for (int row = std::max({0, rows.first, visible.first}); row < std::min(grid_.rows, rows.end); ++row) {
        for (int column = columns.first; column < columns.end; ++column) {
            grid_.At(column, row).underlined = true;
            grid_.At(column, row).bold = grid_.At(column, row).bold || focused;
        }
        if (!focused || columns.first >= columns.end)
            continue;
        Put(columns.first - 1, row, L'[', false, true);
        Put(columns.end, row, L']', false, true);
    }
}

void TerminalCanvas::Polygon(std::span<const POINT> points, COLORREF color) {
    if (points.size() < 3)
        return;
    // An arrow: its point comes first.
    const bool toLeft = points[0].x < points[1].x;
    const POINT at = points[0];
    if (!IsRectEmpty(Clipped({at.x - 1, at.y - 1, at.x + 1, at.y + 1})))
        Put(toLeft ? Column(at.x) : Column(at.x) - 1, Row(at.y - 1, 2), toLeft ? L'<' : L'>',
            color == GetSysColor(COLOR_GRAYTEXT), false);
}

void TerminalCanvas::DrawPicture(const RECT& place, const Picture& picture) {
    const int cell = measurer_.Cell().cy;
    if (picture.sizes.empty() || picture.sizes[0].letter == 0 || HeightOf(place) > cell || IsRectEmpty(Clipped(place)))
        return;
    // In the line of the text beside it, which begins with it.
    const int column = Column(place.left);
    const int row = BodyRow(place.top, cell);
    if (grid_.Has(column, row) && grid_.At(column, row).text.empty())
        Put(column, row, picture.sizes[0].letter, false, true);
}

// Texts

void TerminalCanvas::Put(int column, int row, wchar_t character, bool dim, bool bold) {
    if (!grid_.Has(column, row))
        return;
    Cell& cell = grid_.At(column, row);
    // Half of a wide character does not stay behind.
    if (cell.covered && column > 0)
        grid_.At(column - 1, row).text.clear();
    if (grid_.Has(column + 1, row))
        grid_.At(column + 1, row).covered = false;
    cell.text.assign(1, character);
    cell.covered = false;
    cell.dim = dim;
    cell.bold = bold;
}

/// On the last character that fits.
void TerminalCanvas::PutEllipsis(int column, int row, int firstColumn, bool dim, bool bold) {
    const std::wstring shown = measurer_.Shown(Ellipsis);
    column = std::max(firstColumn, column - static_cast<int>(shown.size()) + 1);
    for (const wchar_t character : shown)
        Put(column++, row, character, dim, bold);
}

/// Where a soft key's name stands with the key that presses it shown beside it, if there is room for both.
int TerminalCanvas::HintedColumn(int column, std::wstring_view label, bool left) {
    constexpr int Length = 6; // of a hint with the blank between
    const int width = measurer_.Width({}, label) / measurer_.Cell().cx;
    if (!hints_ || label.empty() || (width + Length) * 2 > grid_.columns)
        return column;
    const int row = grid_.rows - 1;
    column = left ? std::max(column, Length) : std::min(column, grid_.columns - Length - width);
    int at = left ? column - Length : column + width + 1;
    for (const wchar_t character : std::wstring_view(left ? L"Alt+1" : L"Alt+2"))
        Put(at++, row, character, false, false);
    return column;
}

void TerminalCanvas::Text(int x, int y, std::wstring_view run, const FontDescription& font, COLORREF color) {
    const int height = measurer_.Metrics(font).Height();
    const int row = Row(y, height);
    const bool isBody = marks_.role == PaintMarks::Role::Content;
    const RECT clip = Clipped({0, 0, ScreenSize().cx, ScreenSize().cy});
    const int middle = y + height / 2;
    if (row < 0 || row >= grid_.rows || (isBody && (middle < clip.top || middle >= clip.bottom || row == 0)))
        return;
    const Span columns = Columns(clip);
    std::wstring text(run);
    // Told in letters where it cannot be shown: the item's digit chooses nothing.
    if (marks_.greyed && menu_ && !grey_ && !text.empty() && text[0] >= L'1' && text[0] <= L'9')
        text[0] = L'-';
    const bool dim = marks_.greyed || color == GetSysColor(COLOR_GRAYTEXT);
    const bool bold = font.weight > 400 || marks_.role == PaintMarks::Role::Title;
    int column = Column(x);
    if (marks_.role == PaintMarks::Role::LeftSoftKey || marks_.role == PaintMarks::Role::RightSoftKey)
        column = HintedColumn(column, text, marks_.role == PaintMarks::Role::LeftSoftKey);
    int last = -1;
    for (const wchar_t character : text) {
        const int width = measurer_.Columns(character);
        if (width == 0) {
            if (measurer_.IsUnicode() && last >= 0)
                grid_.At(last, row).text += measurer_.Shown(character);
            continue;
        }
        if (column + width > columns.end) {
            if (last >= 0 && !IsEdit())
                PutEllipsis(last, row, columns.first, dim, bold);
            return;
        }
        if (column >= columns.first) {
            std::wstring shown = measurer_.Shown(character);
            for (int part = 0; part < width; ++part) {
                const bool isHalf = static_cast<std::size_t>(part) >= shown.size();
                Put(column + part, row, isHalf ? L' ' : shown[static_cast<std::size_t>(part)], dim, bold);
                grid_.At(column + part, row).middle = middle;
                if (isHalf) {
                    grid_.At(column + part, row).text.clear();
                    grid_.At(column + part, row).covered = true;
                }
            }
            last = column;
        }
        column += width;
    }
}

} // namespace device
