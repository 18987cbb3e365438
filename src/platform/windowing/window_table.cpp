#include "platform/windowing/desktop.h"

#include "platform/locale.h"
#include "platform/windowing/process_windows.h"

#include <algorithm>
#include <map>

namespace device {

namespace {

struct Slot {
    std::unique_ptr<Window> window;
    std::uint32_t generation = 1;
};

// Leaked on purpose: destructors of static objects may still look windows up.
std::vector<Slot>& Slots() {
    static auto& slots = *new std::vector<Slot>;
    return slots;
}

std::map<std::wstring, std::unique_ptr<WindowClass>>& Classes() {
    static auto& classes = *new std::map<std::wstring, std::unique_ptr<WindowClass>>;
    return classes;
}

constexpr std::uint32_t IndexBits = 14;
constexpr std::uint32_t MaxWindows = 1U << IndexBits;

// Handles are multiples of 4: callers may use the lowest bit as a flag.
HWND HandleOf(std::size_t index, std::uint32_t generation) {
    const std::uintptr_t value
        = ((static_cast<std::uintptr_t>(generation) << IndexBits) | (static_cast<std::uintptr_t>(index) + 1)) << 2U;
    return reinterpret_cast<HWND>(value); // NOLINT(performance-no-int-to-ptr): an opaque number
}

std::wstring ClassKey(const wchar_t* name) {
    std::wstring key = name;
    CharLowerW(key.data());
    return key;
}

} // namespace

Window* FindWindowRecord(HWND handle) {
    const auto value = reinterpret_cast<std::uintptr_t>(handle);
    if (value == 0 || (value & 3U) != 0)
        return nullptr;
    const std::uintptr_t index = ((value >> 2U) & (MaxWindows - 1)) - 1;
    auto& slots = Slots();
    if (index >= slots.size() || !slots[index].window || HandleOf(index, slots[index].generation) != handle)
        return nullptr;
    return slots[index].window.get();
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

bool IsWithin(const Window* window, const Window* ancestor) {
    for (; window; window = window->parent)
        if (window == ancestor)
            return true;
    return false;
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

void SetInsets(Window& window, const RECT& insets) {
    const RECT& old = window.insets;
    if (old.left == insets.left && old.top == insets.top && old.right == insets.right && old.bottom == insets.bottom)
        return;
    window.insets = insets;
    InvalidateRect(window.handle, nullptr, TRUE);
    RECT client;
    GetClientRect(window.handle, &client);
    SendMessageW(window.handle, WM_SIZE, SIZE_RESTORED,
        MAKELPARAM(static_cast<unsigned>(client.right), static_cast<unsigned>(client.bottom)));
}

Control* ControlOf(HWND window) {
    Window* record = FindWindowRecord(window);
    return record ? record->control.get() : nullptr;
}

bool TakesText(HWND window) {
    const Control* control = ControlOf(window);
    return control && control->TakesText();
}

const WindowClass* FindWindowClass(const wchar_t* name) {
    if (!name)
        return nullptr;
    const auto found = Classes().find(ClassKey(name));
    return found == Classes().end() ? nullptr : found->second.get();
}

ATOM AddWindowClass(const wchar_t* name, WNDPROC procedure, ControlFactory factory, bool isDialog) {
    if (!name || !procedure || FindWindowClass(name))
        return 0;
    auto added = std::make_unique<WindowClass>();
    added->name = name;
    added->procedure = procedure;
    added->factory = factory;
    added->isDialog = isDialog;
    Classes()[ClassKey(name)] = std::move(added);
    return static_cast<ATOM>(Classes().size());
}

namespace {

LRESULT ControlProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Control* control = ControlOf(handle);
    return control ? control->Message(message, wParam, lParam) : DefWindowProcW(handle, message, wParam, lParam);
}

} // namespace

void RegisterControlClass(const wchar_t* className, ControlFactory factory) {
    AddWindowClass(className, ControlProcedure, factory);
}

Window* Desktop::Create(const WindowClass& windowClass, Window* parent, HWND owner) {
    auto& slots = Slots();
    std::size_t index = 0;
    while (index < slots.size() && slots[index].window)
        ++index;
    if (index >= MaxWindows - 1)
        return nullptr;
    if (index == slots.size())
        slots.emplace_back();
    Slot& slot = slots[index];
    slot.window = std::make_unique<Window>();
    Window& window = *slot.window;
    window.handle = HandleOf(index, slot.generation);
    window.windowClass = &windowClass;
    window.procedure = windowClass.procedure;
    window.parent = parent;
    window.owner = owner;
    if (parent)
        parent->children.push_back(&window);
    return &window;
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

    auto& slots = Slots();
    for (Slot& slot : slots) {
        if (slot.window.get() == &window) {
            graveyard_.push_back(std::move(slot.window));
            ++slot.generation;
        }
    }
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
    for (Slot& slot : Slots()) {
        if (slot.window) {
            graveyard_.push_back(std::move(slot.window));
            ++slot.generation;
        }
    }
    ClearGraveyard();
}

} // namespace device
