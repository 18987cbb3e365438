#pragma once

#include "platform/windowing/control.h"
#include "platform/windowing/menu.h"

#include <optional>
#include <vector>

namespace device {

/// Where a click presses a soft key, and which one.
bool IsOnSoftKeys(POINT point);
bool IsLeftSoftKey(POINT point);

/// The bar of two soft keys of one top-level window, with its popups.
class SoftKeyBar final : public Control {
public:
    SoftKeyBar(HWND window, HWND owner, std::span<const MenuItemResource> keys);

    /// A bar for `owner`, destroyed with it; a former bar of the owner goes. Null when the owner is no window.
    static SoftKeyBar* Make(HWND owner, std::span<const MenuItemResource> keys);
    /// The bar of a top-level window, or null.
    static SoftKeyBar* Of(HWND topLevel);

    HWND Owner() const { return owner_; }
    const MenuItem& At(bool left) const { return keys_[left ? 0 : 1]; }
    /// The default action of the Back key is taken over and reported to the owner as WM_HOTKEY.
    bool OverridesBack() const { return overridesBack_; }
    /// The soft key went down: sends its command or opens its popup, at a point of the screen where one is given.
    void Press(bool left, std::optional<POINT> at = std::nullopt);
    /// Opens the right soft key's popup; nothing happens where that key has none.
    static void OpenMenu(HWND topLevel, std::optional<POINT> at);

    bool TakesFocus() const override { return false; }

protected:
    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    HWND owner_;
    std::vector<MenuItem> keys_; ///< two
    bool overridesBack_ = false;
};

} // namespace device
