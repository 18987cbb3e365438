#pragma once

#include "platform/windowing/control.h"

namespace device {

/// The partner of another control, its buddy: it turns a list box into a spinner, and with the expand bits it lets a
/// multi-line edit open full screen. It shows nothing of its own and takes no focus.
class UpDown final : public Control {
public:
    explicit UpDown(HWND window)
        : Control(window) { }

    bool TakesFocus() const override { return false; }

    /// The up-down whose buddy a control is, with these style bits; null when it has none.
    static HWND PartnerOf(HWND control, DWORD styleBits);

protected:
    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    HWND buddy_ = nullptr;
};

} // namespace device
