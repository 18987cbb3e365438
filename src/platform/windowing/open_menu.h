#pragma once

#include "platform/drawing/canvas.h"
#include "platform/windowing/host.h"
#include "platform/windowing/menu.h"

#include <optional>
#include <vector>

namespace device {

class SoftKeyBar;

/// A popup while it is open, with the popups opened inside it. The innermost one is on the screen.
class OpenMenu {
public:
    enum class Outcome { Open, Closed, Chosen, Switched };

    /// At a point of the screen, or at its soft key.
    OpenMenu(SoftKeyBar& bar, bool left, std::optional<POINT> at);

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
    /// Of the innermost popup's items, on the screen; empty for one that does not show.
    std::vector<RECT> ItemPlaces() const;
    /// Whether a click on a point of the screen chooses an item.
    bool CanChoose(POINT point) const;

private:
    struct Level {
        PopupMenu* popup;
        int focused;
        int first = 0;
        int panned = 0; ///< by a finger, in pixels that are no whole row yet
    };

    void Open(PopupMenu& popup);
    void CloseInner();
    Outcome Choose(int index);
    Outcome HandleKey(WORD key);
    Outcome HandleSoftKey(bool left) const;
    Outcome HandleCharacter(wchar_t character);
    Outcome PressMouse(POINT point);
    const MenuItem& Item(int index) const { return Popup().Items()[static_cast<std::size_t>(index)]; }
    int CountItems() const { return static_cast<int>(Popup().Items().size()); }
    int DigitOf(int index) const;
    void PaintItem(Canvas& canvas, int index, const RECT& row) const;
    void Focus(int index);
    void Hover(POINT point);
    Outcome ReleaseMouse(POINT point);
    bool CanChoose(int index) const;
    void Move(int step);
    void Pan(int pixels);
    void ShowFocused();
    int ItemAt(POINT point) const;
    RECT Place() const;
    int RowHeight(const MenuItem& item) const;

    SoftKeyBar& bar_;
    bool left_;
    std::optional<POINT> at_;
    bool releaseChooses_ = false; ///< the button that is held was pressed on the menu, or dragged to it
    UINT command_ = 0;
    std::vector<Level> levels_;
};

/// Runs the popup of a soft key until it closes: the command chosen, 0 for none.
UINT RunMenu(SoftKeyBar& bar, bool left, std::optional<POINT> at);

} // namespace device
