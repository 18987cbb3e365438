#include "platform/windowing/desktop.h"

#include "platform/drawing/device_context.h"
#include "platform/drawing/rectangles.h"
#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/windowing/dialog_scroll.h"

#include <algorithm>

namespace device {

namespace {

bool WindowTarget(HWND handle, ContextTarget& target) {
    Desktop& desktop = Desktop::The();
    if (!desktop.IsOn())
        return false;
    target.canvas = &desktop.Screen();
    if (!handle)
        return true;
    Window* window = FindWindowRecord(handle);
    if (!window)
        return false;
    const RECT client = ScreenClient(*window);
    target.origin = {client.left, client.top};
    target.font = window->font;
    return true;
}

} // namespace

Desktop& Desktop::The() {
    static auto& desktop = *new Desktop;
    return desktop;
}

void Desktop::SwitchOn(Host& host) {
    SwitchOff();
    host_ = &host;
    closing_ = {};
    beeps = goBacks = fronts = waitCursors = 0;
    toldTitle_.clear();
    toldFields_.reset();
    RegisterControls();
    SetWindowTarget(WindowTarget);
    InvalidateAll();
}

Canvas& Desktop::Screen() {
    return host_->Screen();
}

Window* Desktop::Front() const {
    for (auto window = topLevels_.rbegin(); window != topLevels_.rend(); ++window)
        if ((*window)->Has(WS_VISIBLE) && !(*window)->destroying)
            return *window;
    return nullptr;
}

Window* Desktop::FrontFull() const {
    for (auto window = topLevels_.rbegin(); window != topLevels_.rend(); ++window)
        if ((*window)->Has(WS_VISIBLE) && !(*window)->isMessageBox && !(*window)->destroying)
            return *window;
    return nullptr;
}

RECT Desktop::BeepPlace() const {
    Window* field = FindWindowRecord(focus_);
    const Window* top = TopLevelOf(field);
    if (field == top || !top->dialogProcedure)
        return {0, 0, ScreenSize().cx, TitleHeight()};
    return Intersection(ScreenPlace(*field), ScreenClient(*top));
}

void Desktop::Resize(SIZE screen) {
    SetScreenSize(screen);
    const RECT area = WorkArea();
    const auto windows = topLevels_;
    for (Window* window : windows) {
        if (!FindWindowRecord(window->handle))
            continue;
        if (window->isMessageBox)
            Send(window->handle, WM_SETTINGCHANGE, 0, 0);
        else
            MoveWindow(window->handle, area.left, area.top, area.right - area.left, area.bottom - area.top, TRUE);
    }
    Window* field = FindWindowRecord(focus_);
    if (Window* top = TopLevelOf(field); top && field != top)
        ShowDialogControl(*top, *field);
    InvalidateAll();
}

// Focus

bool Desktop::SetFocus(HWND handle) {
    if (handle == focus_)
        return true;
    Window* window = FindWindowRecord(handle);
    if (handle && (!window || window->destroying))
        return false;
    if (window) {
        Window* top = TopLevelOf(window);
        // The focus inside a window that is not in front waits for it to come to the front.
        if (top->handle != active_ && active_ && !top->Has(WS_DISABLED)) {
            top->savedFocus = handle;
            Activate(top->handle);
            return focus_ == handle;
        }
        if (top->Has(WS_DISABLED)) {
            top->savedFocus = handle;
            return false;
        }
    }
    const unsigned change = ++focusChange_;
    const HWND old = focus_;
    focus_ = nullptr;
    StopRepeats();
    if (Window* former = FindWindowRecord(old)) {
        InvalidateRect(old, nullptr, FALSE);
        const Window* top = TopLevelOf(former);
        // After EndDialog a dialog's controls hear no more of focus.
        if (!top->modal || !top->modal->ended)
            Send(old, WM_KILLFOCUS, reinterpret_cast<WPARAM>(handle), 0);
    }
    if (change != focusChange_)
        return focus_ == handle; // whoever heard of the loss put the focus elsewhere, and wins
    if (!handle || !FindWindowRecord(handle))
        return handle == nullptr;
    focus_ = handle;
    InvalidateRect(handle, nullptr, FALSE);
    Invalidate({0, 0, ScreenSize().cx, TitleHeight()}); // the input mode stands there
    Send(handle, WM_SETFOCUS, reinterpret_cast<WPARAM>(old), 0);
    return focus_ == handle;
}

void Desktop::Activate(HWND handle) {
    if (handle == active_)
        return;
    Window* window = FindWindowRecord(handle);
    if (!window)
        return;
    if (Window* former = FindWindowRecord(active_)) {
        if (focus_)
            former->savedFocus = focus_;
        SetFocus(nullptr);
        Send(active_, WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(handle));
    }
    active_ = handle;
    if (std::erase(topLevels_, window) > 0)
        topLevels_.push_back(window);
    InvalidateAll();
    Send(handle, WM_ACTIVATE, WA_ACTIVE, 0);
    window = FindWindowRecord(handle);
    if (!window || active_ != handle)
        return;
    const Window* saved = FindWindowRecord(window->savedFocus);
    const bool usable = saved && IsShown(*saved) && !saved->Has(WS_DISABLED);
    SetFocus(usable ? window->savedFocus : handle);
}

// Messages

void Desktop::Post(const MSG& message) {
    queue_.push_back(message);
}

void Desktop::PostQuit(int exitCode) {
    quit_ = true;
    exitCode_ = exitCode;
}

LRESULT Desktop::Send(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = FindWindowRecord(handle);
    if (!window || !window->procedure)
        return 0;
    struct Depth {
        int& count;
        explicit Depth(int& depth)
            : count(depth) {
            ++count;
        }
        ~Depth() { --count; }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;
    } depth(depth_);
    return window->procedure(handle, message, wParam, lParam);
}

void Desktop::Next(MSG& message) {
    for (;;) {
        ClearGraveyard();
        CollectInbox();
        if (!queue_.empty()) {
            message = queue_.front();
            queue_.pop_front();
            return;
        }
        if (quit_) {
            quit_ = false;
            message = {nullptr, WM_QUIT, static_cast<WPARAM>(exitCode_), 0};
            return;
        }
        if (PullInput(false))
            continue;
        PaintInvalid();
        if (queue_.empty() && !quit_ && !closing_.Step())
            PullInput(true);
    }
}

bool Desktop::Pull(InputEvent& event, bool wait) {
    if (!host_->NextEvent(event, wait))
        return false;
    mouse_.Note(event);
    return true;
}

bool Desktop::PullInput(bool wait) {
    InputEvent event;
    if (!Pull(event, wait))
        return false;
    Route(event);
    return true;
}

bool Desktop::NextInput(InputEvent& event) {
    for (;;) {
        CollectInbox();
        if (!queue_.empty() || quit_)
            return false;
        if (Pull(event, false))
            return true;
        PaintInvalid();
        if (!closing_.Step() && Pull(event, true))
            return true;
    }
}

wchar_t Desktop::TakePendingCharacter() {
    const wchar_t character = pendingCharacter_;
    pendingCharacter_ = 0;
    return character;
}

// Texts that were copied or selected

void Desktop::StoreText(Clipboard where, const std::wstring& text) {
    texts_[static_cast<std::size_t>(where)] = text;
    if (host_)
        host_->StoreText(where, text);
}

std::wstring Desktop::StoredText(Clipboard where) const {
    std::wstring text = host_ ? host_->StoredText(where) : std::wstring();
    return text.empty() ? texts_[static_cast<std::size_t>(where)] : text;
}

// Painting

void Desktop::Invalidate(const RECT& rectangle) {
    const SIZE screen = ScreenSize();
    const RECT part = Intersection(rectangle, {0, 0, screen.cx, screen.cy});
    if (IsRectEmpty(part))
        return;
    if (IsRectEmpty(dirty_)) {
        dirty_ = part;
        return;
    }
    dirty_ = {std::min(dirty_.left, part.left), std::min(dirty_.top, part.top), std::max(dirty_.right, part.right),
        std::max(dirty_.bottom, part.bottom)};
}

void Desktop::InvalidateAll() {
    Invalidate({0, 0, ScreenSize().cx, ScreenSize().cy});
}

void Desktop::SetMenu(OpenMenu* menu) {
    menu_ = menu;
    StopRepeats();
    InvalidateAll();
}

void Desktop::Wake() {
    if (host_)
        host_->Wake();
}

} // namespace device
