#include "platform/windowing/mouse.h"

#include "platform/drawing/rectangles.h"
#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/dialog_scroll.h"
#include "platform/windowing/open_menu.h"
#include "platform/windowing/soft_key_bar.h"

#include <utility>

namespace device {

namespace {

struct Hit {
    Window* window;
    bool onScrollBar;
};

/// The deepest shown window under a point of the screen.
Hit HitAt(Window& window, POINT point) {
    if (Contains(ScrollBarOf(window).place, point))
        return {&window, true};
    for (auto child = window.children.rbegin(); child != window.children.rend(); ++child) {
        const bool answers = (*child)->Has(WS_VISIBLE) && !(*child)->Has(WS_DISABLED);
        if (answers && Contains(Intersection(ScreenPlace(**child), ScreenClient(window)), point))
            return HitAt(**child, point);
    }
    return {&window, false};
}

LPARAM ClientPoint(const Window& window, const InputEvent& event) {
    const RECT client = ScreenClient(window);
    return MAKELPARAM(static_cast<unsigned>(event.x - client.left), static_cast<unsigned>(event.y - client.top));
}

WPARAM KeysOf(const InputEvent& event) {
    return ((event.modifiers & MOD_SHIFT) != 0 ? MK_SHIFT : 0)
        | ((event.modifiers & MOD_CONTROL) != 0 ? MK_CONTROL : 0);
}

UINT PressMessage(const InputEvent& event) {
    if (event.button == InputEvent::Button::Right)
        return WM_RBUTTONDOWN;
    if (event.button == InputEvent::Button::Middle)
        return WM_MBUTTONDOWN;
    return event.kind == InputEvent::Kind::DoubleClick ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN;
}

PointerShape ShapeAt(POINT point) {
    const Desktop& desktop = Desktop::The();
    if (const OpenMenu* menu = desktop.Menu(); menu && !IsOnSoftKeys(point))
        return menu->CanChoose(point) ? PointerShape::Hand : PointerShape::Arrow;
    Window* front = desktop.Front();
    if (!front)
        return PointerShape::Arrow;
    if (IsOnSoftKeys(point)) {
        const SoftKeyBar* bar = SoftKeyBar::Of(front->handle);
        return bar && !bar->At(IsLeftSoftKey(point)).text.empty() ? PointerShape::Hand : PointerShape::Arrow;
    }
    const Hit hit = HitAt(*front, point);
    const Control* control = hit.window->control.get();
    const bool types = !hit.onScrollBar && control && control->TakesText() && *control->InputMark() != 0;
    return types ? PointerShape::Text : PointerShape::Arrow;
}

} // namespace

bool IsNear(POINT a, POINT b) {
    const LONG reach = Scaled(4);
    return a.x - b.x <= reach && b.x - a.x <= reach && a.y - b.y <= reach && b.y - a.y <= reach;
}

void Mouse::Note(InputEvent& event) {
    using Kind = InputEvent::Kind;
    const POINT point{event.x, event.y};
    switch (event.kind) {
    case Kind::MouseDown:
    case Kind::DoubleClick: {
        const HWND front = Desktop::The().Menu() ? nullptr : Desktop::The().Active();
        if (event.kind == Kind::DoubleClick && !IsNear(point, clickedAt_))
            event.kind = Kind::MouseDown;
        if (event.kind == Kind::DoubleClick && front != clicked_) {
            event.kind = Kind::None;
            return;
        }
        heldAt_ = clickedAt_ = point;
        clicked_ = front;
        break;
    }
    case Kind::MouseUp:
        heldAt_.reset();
        break;
    case Kind::MouseMove:
        break;
    default:
        return;
    }
    pointer_ = point;
}

void Mouse::Route(const InputEvent& event) {
    switch (event.kind) {
    case InputEvent::Kind::MouseDown:
    case InputEvent::Kind::DoubleClick:
        Press(event);
        break;
    case InputEvent::Kind::MouseMove:
        Drag(event);
        UpdateShape();
        break;
    case InputEvent::Kind::MouseUp:
        Release(event);
        UpdateShape();
        break;
    case InputEvent::Kind::Wheel:
        if (Window* front = Desktop::The().Front()) {
            const auto lines = static_cast<std::uintptr_t>(static_cast<WORD>(event.delta));
            const HWND target = HitAt(*front, {event.x, event.y}).window->handle;
            PostMessageW(target, WM_MOUSEWHEEL, (lines << 16U) | KeysOf(event), 0);
        }
        break;
    case InputEvent::Kind::Tap:
        Tap(event);
        break;
    case InputEvent::Kind::Pan:
        Pan(event);
        break;
    default:
        break;
    }
}

/// A finger has no second button and hardly a double click: what is chosen acts when it is tapped again.
void Mouse::Tap(InputEvent event) {
    event.kind = InputEvent::Kind::MouseDown;
    Window* front = Desktop::The().Front();
    if (front && !IsOnSoftKeys({event.x, event.y}) && event.modifiers == 0) {
        const Hit hit = HitAt(*front, {event.x, event.y});
        const Control* control = hit.window->control.get();
        if (control && !hit.onScrollBar && control->IsChosen(PointOf(ClientPoint(*hit.window, event))))
            event.kind = InputEvent::Kind::DoubleClick;
    }
    Press(event);
    Release(event);
}

/// The innermost that can be moved where the finger went down.
void Mouse::Pan(const InputEvent& event) {
    Window* window = FindWindowRecord(panned_);
    if (!event.isRepeat) {
        Window* front = Desktop::The().Front();
        window = front ? HitAt(*front, {event.x, event.y}).window : nullptr;
        while (window && !(window->control ? window->control->Pan(0) : window->modal != nullptr))
            window = window->parent;
        panned_ = window ? window->handle : nullptr;
    }
    if (window && window->control)
        window->control->Pan(event.delta);
    else if (window && window->modal)
        ScrollDialog(*window, window->modal->scroll - event.delta);
}

void Mouse::Press(const InputEvent& event) {
    const POINT point{event.x, event.y};
    const bool isLeft = event.button == InputEvent::Button::Left;
    Window* front = Desktop::The().Front();
    pressed_ = nullptr;
    if (!front)
        return;
    if (IsOnSoftKeys(point)) {
        if (SoftKeyBar* bar = SoftKeyBar::Of(front->handle); bar && isLeft)
            bar->Press(IsLeftSoftKey(point));
        return;
    }
    const Hit hit = HitAt(*front, point);
    if (hit.onScrollBar && isLeft)
        PressScrollBar(*hit.window, event);
    else if (!hit.onScrollBar)
        PressWindow(*hit.window, event);
}

void Mouse::PressScrollBar(Window& window, const InputEvent& event) {
    const ScrollBar bar = ScrollBarOf(window);
    const RECT thumb = bar.Thumb();
    if (event.y < thumb.top) {
        ScrollWindow(window, bar.position - bar.page);
    } else if (event.y >= thumb.bottom) {
        ScrollWindow(window, bar.position + bar.page);
    } else {
        pressed_ = window.handle;
        grip_ = event.y - static_cast<int>(thumb.top);
    }
}

void Mouse::PressWindow(Window& window, const InputEvent& event) {
    const HWND target = window.handle;
    const bool takesFocus
        = window.parent && window.Has(WS_TABSTOP | WS_VISIBLE) && window.control && window.control->TakesFocus();
    if (takesFocus)
        Desktop::The().SetFocus(target);
    if (!FindWindowRecord(target))
        return;
    if (event.button == InputEvent::Button::Left) {
        pressed_ = target;
        grip_.reset();
    }
    const LPARAM point = ClientPoint(window, event);
    if (event.button != InputEvent::Button::Right) {
        PostMessageW(target, PressMessage(event), KeysOf(event), point);
        return;
    }
    // What is under the pointer is selected before the menu opens.
    SendMessageW(target, PressMessage(event), KeysOf(event), point);
    SoftKeyBar::OpenMenu(Desktop::The().Active(), POINT{event.x, event.y});
}

void Mouse::Drag(const InputEvent& event) {
    Window* window = heldAt_ ? FindWindowRecord(pressed_) : nullptr;
    if (!window)
        return;
    // Whatever came up in front meanwhile has the mouse now.
    if (TopLevelOf(window) != Desktop::The().Front() || !IsShown(*window))
        pressed_ = nullptr;
    else if (grip_)
        ScrollWindow(*window, ScrollBarOf(*window).PositionAt(event.y - *grip_));
    else
        PostMessageW(pressed_, WM_MOUSEMOVE, KeysOf(event), ClientPoint(*window, event));
}

void Mouse::Release(const InputEvent& event) {
    if (event.button != InputEvent::Button::Left)
        return;
    if (const Window* window = FindWindowRecord(pressed_); window && !grip_)
        PostMessageW(pressed_, WM_LBUTTONUP, KeysOf(event), ClientPoint(*window, event));
    pressed_ = nullptr;
    grip_.reset();
}

void Mouse::UpdateShape() {
    Host* host = Desktop::The().TheHost();
    // Until the button comes up the shape says what is being done.
    if (!host || !pointer_ || (heldAt_ && FindWindowRecord(pressed_)))
        return;
    const PointerShape shape = ShapeAt(*pointer_);
    if (shape != std::exchange(shape_, shape))
        host->ShowPointer(shape);
}

} // namespace device
