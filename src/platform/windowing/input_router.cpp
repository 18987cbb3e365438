#include "platform/dialog.h"
#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/soft_key_bar.h"

namespace device {

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
    case InputEvent::Kind::MouseMove:
    case InputEvent::Kind::Wheel:
    case InputEvent::Kind::Tap:
    case InputEvent::Kind::Pan:
        modifiers_ = event.modifiers;
        mouse_.Route(event);
        return;
    case InputEvent::Kind::Paste:
        if (!event.text.empty())
            Send(focus_, WM_PASTE, 0, reinterpret_cast<LPARAM>(event.text.c_str()));
        return;
    case InputEvent::Kind::FieldText:
        EnterText(event);
        return;
    case InputEvent::Kind::Back:
        LeaveFront();
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
    case InputEvent::Kind::None:
        return;
    }
}

Desktop::HeldKey* Desktop::FindHeld(WORD key) {
    for (HeldKey& held : keysDown_)
        if (held.key == key)
            return &held;
    return nullptr;
}

/// Whether it acts: pressed, or repeated where it was pressed.
bool Desktop::NoteKeyDown(WORD key, HWND listener) {
    if (const HeldKey* held = FindHeld(key))
        return held->repeats && held->listener == listener;
    keysDown_.push_back({key, listener, true});
    return true;
}

/// Whether the listener heard it go down.
bool Desktop::NoteKeyUp(WORD key, HWND listener) {
    const HeldKey* held = FindHeld(key);
    const bool isOwn = held && held->listener == listener;
    std::erase_if(keysDown_, [key](const HeldKey& each) { return each.key == key; });
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
    case InputEvent::Kind::MouseMove:
    case InputEvent::Kind::MouseUp:
        mouse_.UpdateShape();
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
        if (SoftKeyBar* bar = SoftKeyBar::Of(active_); bar && down)
            bar->Press(event.key == VK_TSOFT1);
        return;
    }
    if (event.key == VK_APPS || (event.key == VK_F10 && (modifiers_ & MOD_SHIFT) != 0)) {
        if (down)
            SoftKeyBar::OpenMenu(active_, std::nullopt);
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

void Desktop::RouteBack(Window& top, bool down) {
    const HWND target = FindWindowRecord(focus_) ? focus_ : active_;
    const SoftKeyBar* bar = SoftKeyBar::Of(top.handle);
    if (bar && bar->OverridesBack()) {
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

/// The gesture has no other meaning in a field, as the key has.
void Desktop::LeaveFront() {
    Window* top = FindWindowRecord(active_);
    if (!top)
        return;
    const HWND handle = top->handle;
    if (top->modal) {
        if (MayBeLeft(*top))
            Post({handle, WM_COMMAND, IDCANCEL, 0});
        return;
    }
    RouteBack(*top, true);
    if (top = FindWindowRecord(handle); top)
        RouteBack(*top, false);
}

void Desktop::EnterText(const InputEvent& event) {
    Control* control = event.field == focus_ ? ControlOf(focus_) : nullptr;
    if (control)
        control->EnterText(event.text, static_cast<std::size_t>(event.x), static_cast<std::size_t>(event.y));
    // The host hears what the field took of it, or that another one has the focus meanwhile.
    toldFields_.reset();
    if (const Window* shown = FindWindowRecord(control ? focus_ : active_))
        Invalidate(ScreenPlace(*shown));
}

} // namespace device

std::int16_t GetKeyState(int key) {
    const unsigned bit = key == VK_SHIFT ? MOD_SHIFT : key == VK_CONTROL ? MOD_CONTROL : 0;
    return static_cast<std::int16_t>((device::Desktop::The().Modifiers() & bit) != 0 ? -128 : 0);
}
