// The library's wide-character half is asked for by name where it is not the default.
#define NCURSES_WIDECHAR 1

#include "hosts/terminal/terminal_screen.h"

#include "hosts/terminal/terminal_rescue.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <curses.h>
#include <langinfo.h>
#include <poll.h>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace device {

namespace {

constexpr short SelectedPair = 1;
constexpr short MenuPair = 2;
constexpr short FirstShadePair = 3;
constexpr int ShadeColors = 256;

/// One of the 6 steps of the colour cube.
int CubeStep(unsigned part) {
    return part < 48 ? 0 : part < 115 ? 1 : static_cast<int>((part - 35) / 40);
}

short CubeColor(COLORREF color) {
    const int red = CubeStep(color & 0xFFU);
    const int green = CubeStep((color >> 8U) & 0xFFU);
    const int blue = CubeStep((color >> 16U) & 0xFFU);
    return static_cast<short>(16 + 36 * red + 6 * green + blue);
}

} // namespace

TerminalScreen::TerminalScreen()
    : input_([](const std::string& sequence) { return key_defined(sequence.c_str()); }) {
}

bool TerminalScreen::Open(std::string& error) {
    if (isatty(STDIN_FILENO) == 0 || isatty(STDOUT_FILENO) == 0) {
        error = "no terminal: standard input and output must both be one";
        return false;
    }
    // The library complains of an unknown terminal by ending the process: it must be asked in the other way.
    std::setlocale(LC_CTYPE, "");
    unicode_ = std::string_view(nl_langinfo(CODESET)) == "UTF-8";
    TerminalRescue::Prepare();
    if (newterm(nullptr, stdout, stdin) == nullptr) {
        error = "the terminal's type is not known; see TERM";
        return false;
    }
    isOpen_ = true;
    raw();
    noecho();
    nonl();
    keypad(stdscr, TRUE);
    typeahead(-1); // keys are not read through the library
    colors_ = has_colors() && start_color() == OK && COLOR_PAIRS > FirstShadePair;
    if (colors_) {
        use_default_colors();
        init_pair(SelectedPair, COLOR_WHITE, COLOR_BLUE);
        init_pair(MenuPair, COLOR_BLACK, COLOR_WHITE);
    }
    TerminalRescue::Arm();
    return true;
}

TerminalScreen::~TerminalScreen() {
    if (isOpen_)
        TerminalRescue::Restore();
}

int TerminalScreen::Columns() const {
    return COLS;
}

int TerminalScreen::Rows() const {
    return LINES;
}

void TerminalScreen::Measure() {
    winsize size{};
    if (isGone_ || ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_row == 0 || size.ws_col == 0)
        return;
    resizeterm(size.ws_row, size.ws_col);
    clearok(curscr, TRUE);
}

short TerminalScreen::ShadePair(COLORREF shade) {
    if (!colors_ || COLORS < ShadeColors || COLOR_PAIRS < ShadeColors)
        return 0;
    const short color = CubeColor(shade);
    const short pair = static_cast<short>(FirstShadePair + color - 16);
    if (pair >= ShadeColors)
        return 0;
    constexpr short Black = 16;
    init_pair(pair, Black, color);
    return pair;
}

unsigned TerminalScreen::Attributes(const Cell& cell, short& pair) {
    attr_t attributes = A_NORMAL;
    pair = 0;
    switch (cell.ground) {
    case Ground::Plain:
        break;
    case Ground::Bar:
        attributes |= A_REVERSE;
        break;
    case Ground::Menu:
        if (colors_)
            pair = MenuPair;
        break;
    case Ground::Selected:
        if (colors_)
            pair = SelectedPair;
        else
            attributes |= A_REVERSE;
        break;
    case Ground::Shade:
        pair = ShadePair(cell.shade);
        break;
    }
    if (cell.dim)
        attributes |= A_DIM;
    if (cell.bold)
        attributes |= A_BOLD;
    if (cell.underlined)
        attributes |= A_UNDERLINE;
    return attributes;
}

void TerminalScreen::ShowCell(const Cell& cell, int column, int row) {
    short pair = 0;
    const attr_t attributes = Attributes(cell, pair);
    cchar_t shown{};
    const std::wstring text = cell.text.empty() ? L" " : cell.text.substr(0, CCHARW_MAX - 1);
    if (setcchar(&shown, text.c_str(), attributes, pair, nullptr) != ERR)
        mvadd_wch(row, column, &shown);
}

void TerminalScreen::Show(const CellGrid& grid) {
    if (isGone_)
        return;
    erase();
    const int rows = std::min(grid.rows, LINES);
    const int columns = std::min(grid.columns, COLS);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            if (!grid.At(column, row).covered)
                ShowCell(grid.At(column, row), column, row);
    }
    curs_set(grid.caretShown ? 1 : 0);
    if (grid.caretShown)
        move(grid.caretRow, grid.caretColumn);
    refresh();
}

void TerminalScreen::Beep() {
    if (!isGone_)
        beep();
}

std::optional<TerminalKey> TerminalScreen::NextKey() {
    auto key = input_.Take();
    pollfd source{STDIN_FILENO, POLLIN, 0};
    while (!key && !isGone_ && poll(&source, 1, 0) > 0) {
        std::array<char, 4096> bytes;
        const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0)
            break;
        for (const char byte : std::string_view(bytes.data(), static_cast<std::size_t>(count)))
            input_.Feed(byte);
        key = input_.Take();
    }
    return key;
}

} // namespace device
