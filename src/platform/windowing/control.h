#pragma once

#include "platform/drawing/canvas.h"
#include "platform/window.h"

#include <memory>
#include <string>

namespace device {

/// The inside of a window of one of the device's own classes. It lives as long as its window.
class Control {
public:
    explicit Control(HWND window)
        : window_(window) { }
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    HWND Handle() const { return window_; }
    /// Every message of the window that no subclass took; what is not the control's own goes on to DefWindowProcW.
    virtual LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    /// Border and scroll bar, painted after the content; `place` is the whole window in screen coordinates.
    virtual void PaintFrame(Canvas& /*canvas*/, const RECT& /*place*/) { }
    /// False for a control that the focus passes by.
    virtual bool TakesFocus() const { return true; }
    /// Whether typed characters go into a text of its own.
    virtual bool TakesText() const { return false; }
    /// What a person entered, or chose, in this field; empty where that is not for them.
    virtual std::wstring Value() const { return {}; }
    /// What typing means while the control has the focus, told beside the title; empty: nothing is typed.
    virtual const wchar_t* InputMark() const { return L""; }

private:
    HWND window_;
};

using ControlFactory = std::unique_ptr<Control> (*)(HWND window);

/// Makes a class of the device's own known; done once, when the device is switched on.
void RegisterControlClass(const wchar_t* className, ControlFactory factory);
/// All classes of controls/.
void RegisterControls();
/// The inside of a window, null if it has none.
Control* ControlOf(HWND window);
/// Whether the window is a control that takes text.
bool TakesText(HWND window);

} // namespace device
