#pragma once

#include "platform/drawing/canvas.h"
#include "platform/windowing/host.h"
#include "platform/windowing/menu.h"

#include <vector>

namespace device {

class SoftKeyBar;

/// A popup while it is open, with the popups opened inside it. The innermost one is on the screen.
class OpenMenu {
public:
    enum class Outcome { Open, Closed, Chosen, Switched };

    OpenMenu(SoftKeyBar& bar, bool left);

    Outcome Handle(const InputEvent& event);
    /// After Chosen.
    UINT Command() const { return command_; }
    bool IsLeft() const { return left_; }
    HWND Owner() const;

    const PopupMenu& Popup() const { return *levels_.back().popup; }
    /// Index of the item that has the focus in the innermost popup; -1 when all are greyed.
    int Focused() const { return levels_.back().focused; }
    /// What is painted for an item, digit and marks included.
    std::wstring PaintedText(int index) const;
    void Paint(Canvas& canvas) const;
    /// The items that show, from the first one on.
    int FirstShown() const { return levels_.back().first; }
    int CountShown() const;

private:
    struct Level {
        PopupMenu* popup;
        int focused;
        int first = 0;
    };

    void Open(PopupMenu& popup);
    void CloseInner();
    Outcome Choose(int index);
    Outcome HandleKey(WORD key);
    Outcome HandleMouse(const InputEvent& event);
    void Move(int step);
    void ShowFocused();
    int ItemAt(int y) const;
    RECT Place() const;
    int RowHeight(const MenuItem& item) const;

    SoftKeyBar& bar_;
    bool left_;
    UINT command_ = 0;
    std::vector<Level> levels_;
};

/// Runs the popup of a soft key until it closes: the command chosen, 0 for none.
UINT RunMenu(SoftKeyBar& bar, bool left);

} // namespace device
