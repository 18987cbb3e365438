#pragma once

#include "platform/drawing.h"
#include "platform/windowing/control.h"

namespace device {

/// A text, wrapped to the width of the control, or (SS_BITMAP) a picture set with STM_SETIMAGE.
class StaticText final : public Control {
public:
    explicit StaticText(HWND window)
        : Control(window) { }

    bool TakesFocus() const override { return false; }

protected:
    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;
    void Paint(HDC context) override;

private:
    HICON picture_ = nullptr;
};

} // namespace device
