// The library's wide-character half is asked for by name where it is not the default.
#define NCURSES_WIDECHAR 1

#include "hosts/terminal/terminal_screen.h"

#include "hosts/terminal/terminal_keys.h"
#include "hosts/terminal/terminal_rescue.h"
#include "hosts/terminal/terminal_sequences.h"
#include "platform/system/environment.h"

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
constexpr short GreyPair = 3;
constexpr short MenuGreyPair = 4;

// One that can be read on black and on white; of 16 colours it is the only grey.
constexpr short GreyOfMany = 244;
constexpr short GreyOfFew = 8;
constexpr int ManyColors = 256;
constexpr int FewColors = 16;

bool IsUnicodeLocale() {
    return std::string_view(nl_langinfo(CODESET)) == "UTF-8";
}

bool Has(const char* capability) {
    const char* text = tigetstr(capability);
    return text != nullptr && text != reinterpret_cast<const char*>(-1);
}

std::optional<TerminalKey> KeyOf(const std::string& sequence) {
    if (auto key = TerminalKeys::OfCode(key_defined(sequence.c_str())))
        return key;
    return KeyOfSequence(sequence);
}

} // namespace

TerminalScreen::TerminalScreen()
    : input_(KeyOf) {
}

bool TerminalScreen::Open(std::string& error) {
    if (isatty(STDIN_FILENO) == 0 || isatty(STDOUT_FILENO) == 0) {
        error = "no terminal: standard input and output must both be one";
        return false;
    }
    std::setlocale(LC_CTYPE, "");
    if (!IsUnicodeLocale())
        std::setlocale(LC_CTYPE, "C.UTF-8");
    unicode_ = IsUnicodeLocale();
    // The library complains of an unknown terminal by ending the process: it must be asked in the other way.
    TerminalRescue::Prepare();
    if (newterm(nullptr, stdout, stdin) == nullptr) {
        error = "the terminal's type is not known; see TERM";
        return false;
    }
    if (!Has("cup")) {
        endwin();
        error = "a terminal of this type cannot place its cursor; see TERM";
        return false;
    }
    isOpen_ = true;
    raw();
    noecho();
    nonl();
    keypad(stdscr, TRUE);
    typeahead(-1); // keys are not read through the library
    PrepareColors();
    TerminalRescue::Arm(TheEnvironment().mouse);
    return true;
}

void TerminalScreen::PrepareColors() {
    colors_ = has_colors() && start_color() == OK && COLOR_PAIRS > MenuGreyPair;
    if (!colors_)
        return;
    const bool hasOwnGround = use_default_colors() == OK;
    init_pair(SelectedPair, COLOR_WHITE, COLOR_BLUE);
    init_pair(MenuPair, COLOR_BLACK, COLOR_WHITE);
    if (!hasOwnGround || COLORS < FewColors)
        return;
    const short grey = COLORS < ManyColors ? GreyOfFew : GreyOfMany;
    hasGrey_ = init_pair(GreyPair, grey, -1) == OK && init_pair(MenuGreyPair, grey, COLOR_WHITE) == OK;
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

unsigned TerminalScreen::Attributes(const Cell& cell, short& pair) const {
    attr_t attributes = A_NORMAL;
    pair = 0;
    bool isGrey = cell.dim && hasGrey_;
    switch (cell.ground) {
    case Ground::Plain:
        pair = isGrey ? GreyPair : short{0};
        break;
    case Ground::Bar:
        attributes |= A_REVERSE;
        isGrey = false;
        break;
    case Ground::Menu:
        if (colors_)
            pair = isGrey ? MenuGreyPair : MenuPair;
        break;
    case Ground::Selected:
        if (colors_)
            pair = SelectedPair;
        else
            attributes |= A_REVERSE;
        isGrey = false;
        break;
    }
    if (cell.dim && !isGrey)
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
    if (canTellKeys_)
        TerminalRescue::AskForKeys();
}

void TerminalScreen::GiveBack() {
    canTellKeys_ = false; // it may be another terminal that goes on
    TerminalRescue::Restore();
}

void TerminalScreen::TakeBack() {
    if (isGone_)
        return;
    TerminalRescue::Prepare();
    reset_prog_mode();
    TerminalRescue::Arm(TheEnvironment().mouse);
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
    if (key && key->kind == TerminalKey::Kind::CanTellKeys)
        canTellKeys_ = true;
    return key;
}

} // namespace device
