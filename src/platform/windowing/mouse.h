#pragma once

#include "platform/windowing/host.h"
#include "platform/windowing/window_record.h"

#include <optional>

namespace device {

/// So close that a hand meant one place.
bool IsNear(POINT a, POINT b);

/// The mouse of a desktop: the window that its buttons act in, what a drag moves, and the shape of its pointer.
class Mouse {
public:
    /// Each event of the host's, before it goes its way. Of a double click the second half is a click of its own
    /// where it hit another place, and nothing where the first half has opened or closed a window.
    void Note(InputEvent& event);
    /// Turns an event into messages; called when no menu is open.
    void Route(const InputEvent& event);
    /// Tells the host what a click would do where the pointer is.
    void UpdateShape();
    /// Where a button went down that is held; nothing while none is.
    std::optional<POINT> HeldAt() const { return heldAt_; }

private:
    void Press(const InputEvent& event);
    void PressScrollBar(Window& window, const InputEvent& event);
    void PressWindow(Window& window, const InputEvent& event);
    void Drag(const InputEvent& event);
    void Release(const InputEvent& event);
    void Tap(InputEvent event);
    void Pan(const InputEvent& event);

    std::optional<POINT> heldAt_;
    POINT clickedAt_{};
    HWND clicked_ = nullptr; ///< the top-level window in front when the last click began; null: a menu was
    HWND panned_ = nullptr; ///< follows the finger that is down
    HWND pressed_ = nullptr; ///< heard the left button go down, and hears of the mouse until it comes up
    std::optional<int> grip_; ///< the pressed window's thumb is dragged, so far below its upper edge
    std::optional<POINT> pointer_; ///< nothing before it was heard of
    PointerShape shape_ = PointerShape::Arrow;
};

} // namespace device
