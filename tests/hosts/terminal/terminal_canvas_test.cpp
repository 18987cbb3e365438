#include "hosts/terminal/terminal_canvas.h"
#include "platform/drawing/picture.h"
#include "platform/metrics.h"
#include "platform/windowing/look.h"

#include <gtest/gtest.h>

using namespace device;

namespace {

const FontDescription ListFont{-13, 400, false, {}};
const FontDescription DialogFont{-10, 400, false, {}};

class TerminalCanvasTest : public testing::Test {
protected:
    TerminalCanvasTest() {
        SetScreenSize(canvas.ScreenSize());
        canvas.BeginFrame({});
    }
    void Draw(int x, int y, const std::wstring& text, const FontDescription& font = ListFont) {
        canvas.Text(x, TitleHeight() + y, text, font, RGB(0, 0, 0));
    }
    std::wstring Line(int row) const { return Line(canvas, row); }
    static std::wstring Line(const TerminalCanvas& canvas, int row) {
        std::wstring line;
        for (int column = 0; column < canvas.Grid().columns; ++column) {
            const Cell& cell = canvas.Grid().At(column, row);
            if (!cell.covered)
                line += cell.text.empty() ? L" " : cell.text;
        }
        return line.substr(0, line.find_last_not_of(L' ') + 1);
    }
    TerminalCanvas canvas{10, 24, true, true};
};

TEST(CellMeasurerTest, CountsCells) {
    CellMeasurer unicode(true);
    CellMeasurer ascii(false);
    const int cell = unicode.Cell().cx;
    const std::tuple<std::wstring, int, int> cases[] = {{L"", 0, 0}, {L"abc", 3, 3}, {L"\u6C7D\u8ECA", 4, 2},
        {L"e\u0301", 1, 1}, {L"\u0301", 0, 0}, {L"a\u2026", 2, 3}, {L"\t\x01", 2, 2},
        {std::wstring(1, static_cast<wchar_t>(0xD800)), 1, 1}, {L"\u20AC5", 2, 2}};
    for (const auto& [text, unicodeCells, asciiCells] : cases) {
        EXPECT_EQ(unicode.Width(ListFont, text), unicodeCells * cell) << testing::PrintToString(text);
        EXPECT_EQ(ascii.Width(ListFont, text), asciiCells * cell) << testing::PrintToString(text);
    }
    EXPECT_EQ(unicode.CaretX(ListFont, L"\u6C7D\u8ECA", 1), 2 * cell);
    EXPECT_EQ(unicode.CaretX(ListFont, L"ab", 9), 2 * cell);
    EXPECT_EQ(EllipsisText(unicode, ListFont, L"\u6C7D\u8ECA\u6C7D", 5 * cell), L"\u6C7D\u8ECA\u2026");
}

TEST_F(TerminalCanvasTest, FieldsStandBelowTheirLabels) {
    const int unit = canvas.Measurer().Metrics(DialogFont).Height() / 8;
    for (int field = 0; field < 7; ++field) {
        const int top = (2 + 25 * field) * unit;
        Draw(0, top, L"label");
        Draw(0, top + 11 * unit + 2 * unit, L"field", DialogFont);
        EXPECT_EQ(Line(1 + 3 * field), L"label") << field;
        EXPECT_EQ(Line(2 + 3 * field), L"field") << field;
        EXPECT_EQ(Line(3 + 3 * field), L"") << field;
    }
}

TEST_F(TerminalCanvasTest, NothingThatSteersTheTerminalReachesIt) {
    Draw(0, 0, L"a\u202Eb\u2066\u061C\u200Fc\u009B\u2028e\u0301");
    EXPECT_EQ(Line(1), L"abc\uFFFD e\u0301");
    EXPECT_EQ(canvas.Measurer().Width(ListFont, L"\u202E\u2066\u061C\u200F"), 0);
}

TEST_F(TerminalCanvasTest, WhatAsciiDoesNotHaveLeavesItsNeighbours) {
    TerminalCanvas ascii{10, 24, false, true};
    ascii.BeginFrame({});
    ascii.Text(0, TitleHeight(), L"a\u6C7Db\u00E9c", ListFont, 0);
    EXPECT_EQ(Line(ascii, 1), L"a?b?c");
}

TEST_F(TerminalCanvasTest, CutsAtTheClipWithAnEllipsis) {
    const int cell = canvas.Measurer().Width(ListFont, L"x");
    canvas.PushClip({0, 0, 4 * cell, 2000});
    for (const auto& [x, y, text, row, expected] : {std::tuple{0, 0, L"abcdef", 1, L"abc\u2026"},
             {0, 200, L"abcd", 3, L"abcd"}, {0, 400, L"\u6C7D\u8ECA\u6C7D", 5, L"\u6C7D\u2026"},
             {-cell, 600, L"abc", 7, L"bc"}, {0, 2100, L"below", 22, L""}}) {
        Draw(x, y, text);
        EXPECT_EQ(Line(row), expected);
    }
}

TEST_F(TerminalCanvasTest, BarsSelectionCaretAndDimmedGroundShow) {
    const SIZE screen = canvas.ScreenSize();
    const int title = TitleHeight();
    canvas.Fill({0, 0, screen.cx, title}, BarColor, 255);
    canvas.Fill({0, screen.cy - SoftKeyBarHeight(), screen.cx, screen.cy}, BarColor, 255);
    canvas.Fill({0, title + 203, 500, title + 406}, GetSysColor(COLOR_HIGHLIGHT), 255);
    Draw(0, 203, L"chosen");
    for (const auto& [row, ground] : {std::pair{0, Ground::Bar}, {1, Ground::Plain}, {2, Ground::Plain},
             {3, Ground::Selected}, {4, Ground::Selected}, {5, Ground::Plain}, {22, Ground::Plain}, {23, Ground::Bar}})
        EXPECT_EQ(canvas.Grid().At(9, row).ground, ground) << row;
    canvas.Fill({152, title + 900, 153, title + 996}, GetSysColor(COLOR_WINDOWTEXT), 255);
    EXPECT_TRUE(canvas.Grid().caretShown && canvas.Grid().caretColumn == 3 && canvas.Grid().caretRow == 10);
    canvas.Fill({0, title, 500, title + 2200}, RGB(0, 0, 0), 110);
    EXPECT_FALSE(canvas.Grid().caretShown);
    EXPECT_TRUE(canvas.Grid().At(0, 3).dim);
    EXPECT_EQ(Line(3), L"chosen");
    EXPECT_EQ(canvas.Grid().At(0, 3).ground, Ground::Selected) << "a question's subject stays marked";
}

TEST_F(TerminalCanvasTest, LettersStandForPicturesWhereThereIsRoom) {
    const Picture fuel{213, {{213, 16, {}, L'F'}}};
    Draw(100, 0, L"1/20");
    canvas.DrawPicture({0, TitleHeight() + 2, 16, TitleHeight() + 18}, fuel);
    Draw(0, 300, L"name");
    canvas.DrawPicture({0, TitleHeight() + 345, 16, TitleHeight() + 361}, fuel);
    canvas.DrawPicture({0, TitleHeight() + 600, 160, TitleHeight() + 760}, fuel);
    EXPECT_EQ(Line(1), L"F 1/20");
    EXPECT_EQ(Line(4), L"name");
    EXPECT_EQ(Line(7), L"") << "too large for a letter";
}

TEST_F(TerminalCanvasTest, WhatIsGreyedIsToldInLettersWhereThereIsNoGrey) {
    for (const bool grey : {true, false}) {
        TerminalCanvas other{20, 10, true, grey};
        SetScreenSize(other.ScreenSize());
        other.BeginFrame({});
        other.Fill({0, TitleHeight(), 600, TitleHeight() + 212}, MenuColor, 255);
        PaintMarks marks;
        marks.role = PaintMarks::Role::Menu;
        marks.greyed = true;
        other.SetMarks(marks);
        other.Text(8, TitleHeight() + 3, L"1 Edit", ListFont, GetSysColor(COLOR_GRAYTEXT));
        EXPECT_EQ(other.Grid().At(0, 7).text, grey ? L"1" : L"-");
        EXPECT_TRUE(other.Grid().At(0, 7).dim);
    }
}

TEST_F(TerminalCanvasTest, HintsStandBesideTheNamesWhereThereIsRoom) {
    for (const auto& [columns, label, expected] : {std::tuple{40, L"New", L"   Alt+1 New                 New Alt+2"},
             {40, L"Remind Later", L"Alt+1 Remind Later    Remind Later Alt+2"},
             {20, L"Cancel", L"  Cancel    Cancel"}}) {
        TerminalCanvas other{columns, 10, true, true};
        SetScreenSize(other.ScreenSize());
        other.ShowHints(true);
        other.BeginFrame({});
        const int half = columns * 25;
        const int width = other.Measurer().Width(ListFont, label);
        for (const bool left : {true, false}) {
            PaintMarks marks;
            marks.role = left ? PaintMarks::Role::LeftSoftKey : PaintMarks::Role::RightSoftKey;
            other.SetMarks(marks);
            other.Text((left ? 0 : half) + (half - width) / 2, other.ScreenSize().cy - 20, label, ListFont, 0);
        }
        EXPECT_EQ(Line(other, 9), expected);
    }
}

TEST_F(TerminalCanvasTest, AClickGoesWhereTheTextOfItsCellStands) {
    const SIZE screen = canvas.ScreenSize();
    const int title = TitleHeight();
    for (int row = 0; row < 10; ++row)
        Draw(0, 203 * row, L"date");
    for (int row = 0; row < 10; ++row) {
        const POINT beside = canvas.PointOf(9, 1 + 2 * row);
        EXPECT_EQ(beside.x, 475);
        EXPECT_TRUE(beside.y >= title + 203 * row && beside.y < title + 203 * (row + 1)) << row;
    }
    EXPECT_EQ(canvas.PointOf(0, 20).y, canvas.PointOf(0, 19).y + 100) << "below a text, where none stands";
    EXPECT_LT(canvas.PointOf(0, 0).y, title);
    EXPECT_GE(canvas.PointOf(0, 23).y, screen.cy - SoftKeyBarHeight());
    // Ten items are higher on the screen than ten cells.
    const LONG top = screen.cy - SoftKeyBarHeight() - 1064;
    canvas.Fill({200, top, screen.cx, top + 1064}, MenuColor, 255);
    for (int item = 0; item < 10; ++item)
        EXPECT_EQ((canvas.PointOf(5, 13 + item).y - top) / 106, item);
    EXPECT_LT(canvas.PointOf(5, 12).y, top);
    EXPECT_LT(canvas.PointOf(0, 15).x, 200);
}

TEST_F(TerminalCanvasTest, TinyScreensKeepTheirBounds) {
    for (const auto& [columns, rows] : {std::pair{1, 1}, {10, 4}, {0, 0}, {3, 2}}) {
        canvas.Resize(columns, rows);
        canvas.BeginFrame({});
        const SIZE screen = canvas.ScreenSize();
        canvas.Fill({0, 0, screen.cx, screen.cy}, GetSysColor(COLOR_HIGHLIGHT), 255);
        canvas.Fill({0, 0, screen.cx, screen.cy}, MenuColor, 255);
        Draw(-5000, -5000, L"far away");
        Draw(0, 5000, L"\u6C7D");
        canvas.Frame({-50, 0, 5000, 96}, GetSysColor(COLOR_HIGHLIGHT), 2);
        EXPECT_EQ(canvas.Grid().cells.size(),
            static_cast<std::size_t>(std::max(columns, 1)) * static_cast<std::size_t>(std::max(rows, 1)));
    }
}

} // namespace
