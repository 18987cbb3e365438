#include "platform/windowing/menu.h"

#include "platform/input.h"
#include "platform/system/handle_table.h"
#include "platform/windowing/desktop.h"

#include <algorithm>
#include <utility>

namespace device {

namespace {

HandleTable<HMENU, PopupMenu*>& Popups() {
    static auto& popups = *new HandleTable<HMENU, PopupMenu*>;
    return popups;
}

MenuItem* FindItem(HMENU menu, UINT command) {
    PopupMenu** popup = Popups().Find(menu);
    return popup ? (*popup)->Find(command) : nullptr;
}

} // namespace

MenuItem::MenuItem(const MenuItemResource& resource)
    : text(resource.text ? resource.text : L"")
    , command(resource.command)
    , separator(!resource.text)
    , popup(resource.popup.empty() ? nullptr : std::make_unique<PopupMenu>(resource.popup)) {
}

PopupMenu::PopupMenu(std::span<const MenuItemResource> items)
    : handle_(Popups().Add(this))
    , items_(items.begin(), items.end()) {
}

PopupMenu::~PopupMenu() {
    Popups().Remove(handle_);
}

MenuItem* PopupMenu::Find(UINT command) {
    for (MenuItem& item : items_) {
        if (item.popup) {
            if (MenuItem* inner = item.popup->Find(command))
                return inner;
        } else if (!item.separator && item.command == command) {
            return &item;
        }
    }
    return nullptr;
}

int PopupMenu::NextEnabled(int from, int step) const {
    const int count = static_cast<int>(items_.size());
    for (int tried = 0, index = from; tried < count; ++tried, index += step) {
        const int wrapped = ((index % count) + count) % count;
        if (items_[static_cast<std::size_t>(wrapped)].CanBeChosen())
            return wrapped;
    }
    return -1;
}

} // namespace device

int EnableMenuItem(HMENU menu, UINT command, UINT flags) {
    device::MenuItem* item = device::FindItem(menu, command);
    if (!item)
        return -1;
    return static_cast<int>(std::exchange(item->grayed, (flags & MF_GRAYED) != 0) ? MF_GRAYED : MF_ENABLED);
}

DWORD CheckMenuItem(HMENU menu, UINT command, UINT flags) {
    device::MenuItem* item = device::FindItem(menu, command);
    if (!item)
        return static_cast<DWORD>(-1);
    return std::exchange(item->checked, (flags & MF_CHECKED) != 0) ? MF_CHECKED : MF_UNCHECKED;
}

HACCEL LoadAcceleratorsW(HINSTANCE module, UINT id) {
    if (!module)
        return nullptr;
    const bool known = std::any_of(module->accelerators.begin(), module->accelerators.end(),
        [id](const AcceleratorResource& row) { return row.id == id; });
    return known ? reinterpret_cast<HACCEL>(static_cast<std::uintptr_t>(id)) : nullptr;
}

int TranslateAcceleratorW(HWND window, HACCEL table, MSG* message) {
    const HINSTANCE module = GetModuleHandleW(nullptr);
    if (!module || !table || !message || message->message != WM_KEYDOWN || !IsWindow(window))
        return 0;
    const auto id = static_cast<UINT>(reinterpret_cast<std::uintptr_t>(table));
    const unsigned modifiers = device::Desktop::The().Modifiers();
    for (const AcceleratorResource& row : module->accelerators) {
        if (row.id == id && row.key == message->wParam && row.modifiers == modifiers) {
            SendMessageW(window, WM_COMMAND, row.command | (1U << 16U), 0);
            return 1;
        }
    }
    return 0;
}
