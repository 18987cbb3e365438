#pragma once

#include "platform/windowing/control.h"
#include "platform/windowing/menu.h"

#include <array>
#include <optional>
#include <set>

namespace device {

/// Where a click presses a soft key, and which one.
bool IsOnSoftKeys(POINT point);
bool IsLeftSoftKey(POINT point);

/// The bar of two soft keys of one top-level window, with its popups.
class SoftKeyBar final : public Control {
public:
    struct Key {
        std::wstring text;
        UINT command = 0;
        std::unique_ptr<PopupMenu> popup;
    };

    explicit SoftKeyBar(HWND window)
        : Control(window) { }

    /// A bar for `owner`, destroyed with it; a former bar of the owner goes. Null when the owner is no window.
    static SoftKeyBar* Make(HWND owner, std::span<const MenuItemResource> keys);
    /// The bar of a top-level window, or null.
    static SoftKeyBar* Of(HWND topLevel);

    HWND Owner() const { return owner_; }
    const Key& At(bool left) const { return keys_[left ? 0 : 1]; }
    /// The default action of `key` is taken over and reported to the owner as WM_HOTKEY.
    bool Overrides(WORD key) const { return overridden_.count(key) > 0; }
    /// The soft key went down: sends its command or opens its popup, at a point of the screen where one is given.
    void Press(bool left, std::optional<POINT> at = std::nullopt);
    /// Opens the right soft key's popup; nothing happens where that key has none.
    static void OpenMenu(HWND topLevel, std::optional<POINT> at);

    bool TakesFocus() const override { return false; }

protected:
    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    HWND owner_ = nullptr;
    std::array<Key, 2> keys_;
    std::set<WORD> overridden_;
};

} // namespace device
