#include "platform/windowing/soft_key_bar.h"

#include "platform/metrics.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/open_menu.h"

namespace device {

namespace {

constexpr const wchar_t* BarClass = L"menu_worker";

const WindowClass* TheBarClass() {
    RegisterControlClass(BarClass, MakeControl<SoftKeyBar>);
    return FindWindowClass(BarClass);
}

} // namespace

bool IsOnSoftKeys(POINT point) {
    return point.y >= ScreenSize().cy - SoftKeyBarHeight();
}

bool IsLeftSoftKey(POINT point) {
    return point.x < ScreenSize().cx / 2;
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
    auto bar = std::make_unique<SoftKeyBar>(window->handle);
    bar->owner_ = owner;
    for (std::size_t index = 0; index < bar->keys_.size() && index < keys.size(); ++index) {
        Key& key = bar->keys_[index];
        key.text = keys[index].text ? keys[index].text : L"";
        key.command = keys[index].command;
        if (!keys[index].popup.empty())
            key.popup = std::make_unique<PopupMenu>(keys[index].popup);
    }
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
    if (message != SHCMBM_OVERRIDEKEY)
        return Control::Message(message, wParam, lParam);
    const auto key = static_cast<WORD>(wParam);
    const auto mask = static_cast<DWORD>(lParam) >> 16U;
    const auto flags = static_cast<DWORD>(lParam) & 0xFFFFU;
    if ((mask & flags) != 0)
        overridden_.insert(key);
    else if (mask != 0)
        overridden_.erase(key);
    return TRUE;
}

void SoftKeyBar::OpenMenu(HWND topLevel, std::optional<POINT> at) {
    SoftKeyBar* bar = Of(topLevel);
    if (bar && bar->At(false).popup)
        bar->Press(false, at);
}

void SoftKeyBar::Press(bool left, std::optional<POINT> at) {
    const Key& key = At(left);
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
