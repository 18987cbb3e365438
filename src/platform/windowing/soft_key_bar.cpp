#include "platform/windowing/soft_key_bar.h"

#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/open_menu.h"

namespace device {

namespace {

constexpr const wchar_t* BarClass = L"menu_worker";

const WindowClass* TheBarClass() {
    RegisterControlClass(BarClass, nullptr);
    return FindWindowClass(BarClass);
}

} // namespace

bool IsOnSoftKeys(POINT point) {
    return point.y >= ScreenSize().cy - SoftKeyBarHeight();
}

bool IsLeftSoftKey(POINT point) {
    return point.x < ScreenSize().cx / 2;
}

SoftKeyBar::SoftKeyBar(HWND window, HWND owner, std::span<const MenuItemResource> keys)
    : Control(window)
    , owner_(owner)
    , keys_(keys.begin(), keys.end()) {
    while (keys_.size() < 2)
        keys_.emplace_back(MenuItemResource{});
}

SoftKeyBar* SoftKeyBar::Make(HWND owner, std::span<const MenuItemResource> keys) {
    Window* top = FindWindowRecord(owner);
    if (!top || !top->IsTopLevel())
        return nullptr;
    Desktop& desktop = Desktop::The();
    if (Window* former = FindWindowRecord(top->bar))
        desktop.Destroy(*former);
    Window* window = desktop.Create(*TheBarClass(), nullptr, owner);
    if (!window)
        return nullptr;
    auto bar = std::make_unique<SoftKeyBar>(window->handle, owner, keys);
    SoftKeyBar* made = bar.get();
    window->control = std::move(bar);
    top->bar = window->handle;
    desktop.InvalidateAll();
    return made;
}

SoftKeyBar* SoftKeyBar::Of(HWND topLevel) {
    const Window* top = FindWindowRecord(topLevel);
    return top ? dynamic_cast<SoftKeyBar*>(ControlOf(top->bar)) : nullptr;
}

LRESULT SoftKeyBar::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != SHCMBM_OVERRIDEKEY || wParam != VK_TBACK)
        return Control::Message(message, wParam, lParam);
    const auto mask = static_cast<DWORD>(lParam) >> 16U;
    const auto flags = static_cast<DWORD>(lParam) & 0xFFFFU;
    if (mask != 0)
        overridesBack_ = (mask & flags) != 0;
    return TRUE;
}

void SoftKeyBar::OpenMenu(HWND topLevel, std::optional<POINT> at) {
    SoftKeyBar* bar = Of(topLevel);
    if (bar && bar->At(false).popup)
        bar->Press(false, at);
}

void SoftKeyBar::Press(bool left, std::optional<POINT> at) {
    const MenuItem& key = At(left);
    const HWND bar = Handle();
    const HWND owner = owner_;
    if (key.popup) {
        const UINT command = RunMenu(*this, left, at);
        if (command != 0 && IsWindow(owner))
            PostMessageW(owner, WM_COMMAND, command, reinterpret_cast<LPARAM>(bar));
    } else if (key.command != 0) {
        PostMessageW(owner, WM_COMMAND, key.command, reinterpret_cast<LPARAM>(bar));
    }
}

} // namespace device
