#include "platform/windowing/desktop.h"

#include "platform/locale.h"
#include "platform/system/handle_table.h"
#include "platform/windowing/process_windows.h"

#include <algorithm>
#include <map>

namespace device {

namespace {

// Leaked on purpose: destructors of static objects may still look windows up.
HandleTable<HWND, std::unique_ptr<Window>>& Windows() {
    static auto& windows = *new HandleTable<HWND, std::unique_ptr<Window>>;
    return windows;
}

std::map<std::wstring, WindowClass>& Classes() {
    static auto& classes = *new std::map<std::wstring, WindowClass>;
    return classes;
}

std::wstring ClassKey(const wchar_t* name) {
    std::wstring key = name;
    CharLowerW(key.data());
    return key;
}

} // namespace

Window* FindWindowRecord(HWND handle) {
    const std::unique_ptr<Window>* found = Windows().Find(handle);
    return found ? found->get() : nullptr;
}

Window* TopLevelOf(Window* window) {
    while (window && window->parent)
        window = window->parent;
    return window;
}

bool IsShown(const Window& window) {
    for (const Window* each = &window; each; each = each->parent)
        if (!each->Has(WS_VISIBLE))
            return false;
    return true;
}

RECT ScreenPlace(const Window& window) {
    RECT place = window.place;
    for (const Window* above = window.parent; above; above = above->parent) {
        const LONG x = above->place.left + above->insets.left;
        const LONG y = above->place.top + above->insets.top;
        place = {place.left + x, place.top + y, place.right + x, place.bottom + y};
    }
    return place;
}

RECT ScreenClient(const Window& window) {
    const RECT place = ScreenPlace(window);
    const RECT& insets = window.insets;
    RECT client{
        place.left + insets.left, place.top + insets.top, place.right - insets.right, place.bottom - insets.bottom};
    client.right = std::max(client.left, client.right);
    client.bottom = std::max(client.top, client.bottom);
    return client;
}

std::size_t CopyText(const std::wstring& text, wchar_t* buffer, std::size_t size) {
    if (!buffer || size == 0)
        return 0;
    const std::size_t length = text.copy(buffer, size - 1);
    buffer[length] = 0;
    return length;
}

void SendSize(HWND window) {
    RECT client;
    if (GetClientRect(window, &client))
        SendMessageW(window, WM_SIZE, SIZE_RESTORED,
            MAKELPARAM(static_cast<unsigned>(client.right), static_cast<unsigned>(client.bottom)));
}

void SetInsets(Window& window, const RECT& insets) {
    const RECT& old = window.insets;
    if (old.left == insets.left && old.top == insets.top && old.right == insets.right && old.bottom == insets.bottom)
        return;
    window.insets = insets;
    InvalidateRect(window.handle, nullptr, TRUE);
    SendSize(window.handle);
}

const WindowClass* FindWindowClass(const wchar_t* name) {
    const auto found = Classes().find(ClassKey(name ? name : L""));
    return found == Classes().end() ? nullptr : &found->second;
}

ATOM AddWindowClass(const wchar_t* name, WNDPROC procedure, ControlFactory factory, bool isDialog) {
    if (!name || !procedure || FindWindowClass(name))
        return 0;
    Classes()[ClassKey(name)] = {name, procedure, factory, isDialog};
    return static_cast<ATOM>(Classes().size());
}

Window* Desktop::Create(const WindowClass& windowClass, Window* parent, HWND owner) {
    const HWND handle = Windows().Add(std::make_unique<Window>());
    Window* window = FindWindowRecord(handle);
    if (!window)
        return nullptr;
    window->handle = handle;
    window->windowClass = &windowClass;
    window->procedure = windowClass.procedure;
    window->parent = parent;
    window->owner = owner;
    if (parent)
        parent->children.push_back(window);
    return window;
}

/// No handle finds it any more, but it lives on as long as a message procedure may be at work in it.
void Desktop::Bury(HWND handle) {
    graveyard_.push_back(std::move(*Windows().Find(handle)));
    Windows().Remove(handle);
}

void Desktop::Destroy(Window& window) {
    if (window.destroying)
        return;
    window.destroying = true;
    const HWND handle = window.handle;
    const auto owned = topLevels_;
    for (Window* other : owned)
        if (other->owner == handle && FindWindowRecord(other->handle))
            Destroy(*other);
    if (IsShown(window))
        Invalidate(window.IsTopLevel() ? RECT{0, 0, 0x7FFF, 0x7FFF} : ScreenPlace(window));
    Send(handle, WM_DESTROY, 0, 0);
    const auto children = window.children;
    for (Window* child : children)
        Destroy(*child);
    if (Window* bar = FindWindowRecord(window.bar))
        Destroy(*bar);
    Send(handle, WM_NCDESTROY, 0, 0);

    if (focus_ == handle)
        focus_ = nullptr;
    std::erase(topLevels_, &window);
    if (window.parent)
        std::erase(window.parent->children, &window);
    DropMessagesOf(handle);
    if (window.IsTopLevel())
        WithdrawWindow(handle);

    Bury(handle);
    if (active_ == handle) {
        active_ = nullptr;
        if (Window* front = Front())
            Activate(front->handle);
    }
}

void Desktop::DropMessagesOf(HWND window) {
    std::erase_if(queue_, [window](const MSG& message) { return message.hwnd == window; });
}

void Desktop::ClearGraveyard() {
    if (depth_ == 0)
        graveyard_.clear();
}

void Desktop::SwitchOff() {
    WithdrawAllWindows();
    host_ = nullptr;
    menu_ = nullptr;
    queue_.clear();
    topLevels_.clear();
    focus_ = active_ = nullptr;
    mouse_ = {};
    texts_ = {};
    keysDown_.clear();
    quit_ = false;
    for (const HWND handle : Windows().Handles())
        Bury(handle);
    ClearGraveyard();
}

} // namespace device
