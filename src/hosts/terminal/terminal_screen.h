#pragma once

#include "hosts/terminal/cell_grid.h"
#include "hosts/terminal/terminal_input.h"

#include <optional>
#include <string>

namespace device {

/// The terminal that the process was started from, while the program has it. Whatever way the process ends, the
/// terminal is given back as it was. One a process.
class TerminalScreen {
public:
    /// False, with one line on why, when there is no terminal that can be used.
    bool Open(std::string& error);
    TerminalScreen();
    ~TerminalScreen();
    TerminalScreen(const TerminalScreen&) = delete;
    TerminalScreen& operator=(const TerminalScreen&) = delete;

    /// It shows more than ASCII.
    bool IsUnicode() const { return unicode_; }
    /// What is greyed looks so.
    bool HasGrey() const { return hasGrey_; }
    int Columns() const;
    int Rows() const;
    /// Takes over the terminal's size as it is now.
    void Measure();
    void Show(const CellGrid& grid);
    /// The terminal is as it was before, until TakeBack.
    void GiveBack();
    void TakeBack();
    void Beep();
    /// The next key that came in, without waiting.
    std::optional<TerminalKey> NextKey();
    /// How many milliseconds to wait for the rest of a key; -1: none has begun.
    int KeyPatience() const { return input_.Patience(); }
    /// They are over.
    void EndKey() { input_.PauseIsOver(); }
    /// Nothing of it is written any more.
    void GiveUp() { isGone_ = true; }

private:
    void ShowCell(const Cell& cell, int column, int row);
    void PrepareColors();
    unsigned Attributes(const Cell& cell, short& pair) const;

    TerminalInput input_;
    bool isOpen_ = false;
    bool isGone_ = false;
    bool unicode_ = false;
    bool colors_ = false;
    bool hasGrey_ = false;
    bool canTellKeys_ = false;
};

} // namespace device
