#include "platform/dialog.h"
#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/soft_key_bar.h"

#include <algorithm>

namespace device {

namespace {

/// The deepest shown child under a point of the screen.
Window* ChildAt(Window& window, POINT point) {
    for (auto child = window.children.rbegin(); child != window.children.rend(); ++child) {
        if (!(*child)->Has(WS_VISIBLE) || (*child)->Has(WS_DISABLED))
            continue;
        const RECT place = Intersect(ScreenPlace(**child), ScreenClient(window));
        if (point.x >= place.left && point.x < place.right && point.y >= place.top && point.y < place.bottom)
            return ChildAt(**child, point);
    }
    return &window;
}

LPARAM ClientPoint(const Window& window, const InputEvent& event) {
    const RECT client = ScreenClient(window);
    return MAKELPARAM(static_cast<unsigned>(event.x - client.left), static_cast<unsigned>(event.y - client.top));
}

} // namespace

void Desktop::Route(const InputEvent& event) {
    switch (event.kind) {
    case InputEvent::Kind::KeyDown:
    case InputEvent::Kind::KeyUp:
        RouteKey(event);
        return;
    case InputEvent::Kind::Text:
        if (NoteText(event) && FindWindowRecord(focus_))
            Post({focus_, WM_CHAR, static_cast<WPARAM>(event.character), 0});
        return;
    case InputEvent::Kind::Resize:
        Resize({event.x, event.y});
        return;
    case InputEvent::Kind::MouseDown:
    case InputEvent::Kind::MouseUp:
    case InputEvent::Kind::DoubleClick:
    case InputEvent::Kind::Wheel:
        RouteMouse(event);
        return;
    case InputEvent::Kind::Close:
        closing_.Ask();
        return;
    case InputEvent::Kind::End:
        closing_.Order();
        return;
    case InputEvent::Kind::Repaint:
        InvalidateAll();
        return;
    case InputEvent::Kind::Paste:
        // Elsewhere its characters would be read as commands.
        if (TakesText(focus_))
            for (const wchar_t character : event.text)
                Post({focus_, WM_CHAR, static_cast<WPARAM>(character), 0});
        return;
    case InputEvent::Kind::MouseMove:
    case InputEvent::Kind::None:
        return;
    }
}

/// Whether it acts: pressed, or repeated where it was pressed.
bool Desktop::NoteKeyDown(WORD key, HWND listener) {
    const auto held
        = std::find_if(keysDown_.begin(), keysDown_.end(), [&](const HeldKey& each) { return each.key == key; });
    if (held != keysDown_.end())
        return held->repeats && held->listener == listener;
    keysDown_.push_back({key, listener, true});
    return true;
}

/// Whether the listener heard it go down.
bool Desktop::NoteKeyUp(WORD key, HWND listener) {
    const auto held
        = std::find_if(keysDown_.begin(), keysDown_.end(), [&](const HeldKey& each) { return each.key == key; });
    if (held == keysDown_.end())
        return false;
    const bool isOwn = held->listener == listener;
    keysDown_.erase(held);
    return isOwn;
}

bool Desktop::NoteText(const InputEvent& event) {
    if (!event.isRepeat)
        textRepeats_ = true;
    return textRepeats_;
}

void Desktop::StopRepeats() {
    textRepeats_ = false;
    for (HeldKey& held : keysDown_)
        held.repeats = false;
}

bool Desktop::NoteForMenu(const InputEvent& event) {
    switch (event.kind) {
    case InputEvent::Kind::KeyDown:
        return NoteKeyDown(event.key, nullptr);
    case InputEvent::Kind::Text:
        return NoteText(event);
    case InputEvent::Kind::KeyUp:
        return NoteKeyUp(event.key, nullptr);
    case InputEvent::Kind::Resize:
    case InputEvent::Kind::Close:
    case InputEvent::Kind::End:
    case InputEvent::Kind::Repaint:
        Route(event);
        return true;
    default:
        return true;
    }
}

void Desktop::RouteKey(const InputEvent& event) {
    modifiers_ = event.modifiers;
    const bool down = event.kind == InputEvent::Kind::KeyDown;
    Window* top = FindWindowRecord(active_);
    // A key belongs to the window that heard it go down: one half of a press never reaches another window.
    if (!(down ? NoteKeyDown(event.key, active_) : NoteKeyUp(event.key, active_)) || !top)
        return;
    if (event.key == VK_TSOFT1 || event.key == VK_TSOFT2) {
        RouteSoftKey(event.key == VK_TSOFT1, down);
        return;
    }
    if (event.key == VK_TBACK) {
        RouteBack(*top, down);
        return;
    }
    const HWND target = FindWindowRecord(focus_) ? focus_ : active_;
    Post({target, down ? WM_KEYDOWN : WM_KEYUP, event.key, 0});
    // Hosts give the key that deletes backwards as a key alone.
    pendingCharacter_ = !down ? L'\0' : event.key == VK_BACK ? L'\b' : event.character;
}

void Desktop::RouteSoftKey(bool left, bool down) {
    if (!down)
        return;
    if (SoftKeyBar* bar = SoftKeyBar::Of(active_))
        bar->Press(left);
}

void Desktop::RouteBack(Window& top, bool down) {
    const HWND target = FindWindowRecord(focus_) ? focus_ : active_;
    const SoftKeyBar* bar = SoftKeyBar::Of(top.handle);
    if (bar && bar->Overrides(VK_TBACK)) {
        Post({top.handle, WM_HOTKEY, 0, MAKELPARAM(down ? 0 : MOD_KEYUP, VK_TBACK)});
        // The key goes its way as well, with its default action taken away.
        Post({target, down ? WM_KEYDOWN : WM_KEYUP, VK_TBACK, 0});
        return;
    }
    if (!down) {
        Post({target, WM_KEYUP, VK_TBACK, 0});
        return;
    }
    if (TakesText(focus_))
        Post({focus_, WM_CHAR, VK_BACK, 0});
    else if (top.modal)
        Post({top.handle, WM_COMMAND, IDCANCEL, 0});
    else
        SHNavigateBack();
}

void Desktop::RouteMouse(const InputEvent& event) {
    const bool press = event.kind == InputEvent::Kind::MouseDown || event.kind == InputEvent::Kind::DoubleClick;
    if (press && event.y >= ScreenSize().cy - SoftKeyBarHeight()) {
        RouteSoftKey(event.x < ScreenSize().cx / 2, true);
        return;
    }
    Window* front = Front();
    if (!front)
        return;
    Window* target = ChildAt(*front, {event.x, event.y});
    modifiers_ = event.modifiers;
    const WPARAM keys
        = ((event.modifiers & MOD_SHIFT) != 0 ? MK_SHIFT : 0) | ((event.modifiers & MOD_CONTROL) != 0 ? MK_CONTROL : 0);
    if (event.kind == InputEvent::Kind::Wheel) {
        const auto lines = static_cast<std::uintptr_t>(static_cast<WORD>(event.delta));
        Post({target->handle, WM_MOUSEWHEEL, (lines << 16U) | keys, 0});
        return;
    }
    if (event.kind == InputEvent::Kind::MouseUp) {
        if (Window* pressed = FindWindowRecord(mouseTarget_))
            Post({pressed->handle, WM_LBUTTONUP, keys, ClientPoint(*pressed, event)});
        mouseTarget_ = nullptr;
        return;
    }
    mouseTarget_ = target->handle;
    const bool takes
        = target->parent && target->Has(WS_TABSTOP | WS_VISIBLE) && target->control && target->control->TakesFocus();
    if (takes && focus_ != target->handle)
        SetFocus(target->handle);
    if (FindWindowRecord(mouseTarget_) != target)
        return;
    const UINT message = event.kind == InputEvent::Kind::DoubleClick ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN;
    Post({target->handle, message, keys, ClientPoint(*target, event)});
}

} // namespace device

std::int16_t GetKeyState(int key) {
    const unsigned modifiers = device::Desktop::The().Modifiers();
    const bool down
        = (key == VK_SHIFT && (modifiers & MOD_SHIFT) != 0) || (key == VK_CONTROL && (modifiers & MOD_CONTROL) != 0);
    return down ? static_cast<std::int16_t>(-128) : static_cast<std::int16_t>(0);
}
