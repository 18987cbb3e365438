#pragma once

#include "platform/dialog.h"

#include <memory>
#include <string>
#include <vector>

namespace device {

class PopupMenu;

/// A line of a popup, or a soft key.
struct MenuItem {
    std::wstring text;
    UINT command = 0;
    bool separator = false;
    bool grayed = false;
    bool checked = false;
    std::unique_ptr<PopupMenu> popup;

    explicit MenuItem(const MenuItemResource& resource);
    bool CanBeChosen() const { return !separator && !grayed; }
};

/// A popup of the soft-key bar. Its handle is good as long as it lives.
class PopupMenu {
public:
    explicit PopupMenu(std::span<const MenuItemResource> items);
    ~PopupMenu();
    PopupMenu(const PopupMenu&) = delete;
    PopupMenu& operator=(const PopupMenu&) = delete;

    HMENU Handle() const { return handle_; }
    std::vector<MenuItem>& Items() { return items_; }
    const std::vector<MenuItem>& Items() const { return items_; }
    /// The item of a command, here or in an inner popup; null when it is not there.
    MenuItem* Find(UINT command);
    /// The first item that can be chosen from `from` on in the direction `step`, wrapping; -1 when there is none.
    int NextEnabled(int from, int step) const;

private:
    HMENU handle_;
    std::vector<MenuItem> items_;
};

} // namespace device
