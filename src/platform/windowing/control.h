#pragma once

#include "platform/drawing/canvas.h"
#include "platform/window.h"
#include "platform/windowing/host.h"
#include "platform/windowing/scroll_bar.h"

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
    /// A message of the window that no subclass took: what every control may hear goes to the operations below.
    LRESULT Hear(UINT message, WPARAM wParam, LPARAM lParam);
    /// What the field says; of most controls the window's own text.
    virtual std::wstring Text() const;
    /// The scroll bar as it shows now, if there is one.
    virtual ScrollBar Bar() const { return {}; }
    /// As far as there is content.
    virtual void ScrollTo(int /*position*/) { }
    /// The border, painted after content and scroll bar; `place` is the whole window in screen coordinates.
    virtual void PaintFrame(Canvas& /*canvas*/, const RECT& /*place*/) { }
    /// False for a control that the focus passes by.
    virtual bool TakesFocus() const { return true; }
    /// Whether typed characters go into a text of its own.
    virtual bool TakesText() const { return false; }
    /// What a person entered, or chose, in this field; empty where that is not for them.
    virtual std::wstring Value() const { return {}; }
    /// Describes itself, but for window, place, focus and label; false for what no text is typed into.
    virtual bool DescribeField(ShownField& /*field*/) const { return false; }
    /// A host's own field over this one says something else now.
    virtual void EnterText(const std::wstring& /*text*/, std::size_t /*start*/, std::size_t /*end*/) { }
    /// The part of it that has the focus, in words for who does not see it: "row 3 of 61", "month 3". Empty: all of it.
    virtual std::wstring FocusedPart() const { return {}; }
    /// Whether what stands at a point of the client area is chosen, so that a further tap acts.
    virtual bool IsChosen(POINT /*point*/) const { return false; }
    /// The content follows a finger, down above 0. False where there is nothing to be moved.
    virtual bool Pan(int /*pixels*/) { return false; }
    /// What typing means while the control has the focus, told beside the title; empty: nothing is typed.
    virtual const wchar_t* InputMark() const { return L""; }

protected:
    /// What is the control's own alone; all else goes on to DefWindowProcW.
    virtual LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam);
    /// DLGC_ bits; `pending` may be null.
    virtual LRESULT WantedKeys(const MSG* /*pending*/) const { return 0; }
    virtual void KeyDown(WORD /*key*/) { }
    virtual void Character(wchar_t /*character*/) { }
    /// The left button, with the MK_ keys that are held.
    virtual void LeftPress(POINT /*point*/, WPARAM /*keys*/) { }
    virtual void DoubleClick(POINT /*point*/) { }
    virtual void RightPress(POINT /*point*/) { }
    /// Up above 0. False leaves the wheel to the parent.
    virtual bool Wheel(int /*lines*/) { return false; }
    virtual void Sized() { }
    /// Before Paint, which covers the whole ground of most controls.
    virtual void PaintGround(HDC /*context*/) { }
    virtual void Paint(HDC /*context*/) { }

    /// Any of the bits.
    bool HasStyle(DWORD styleBits) const;
    RECT Client() const;
    const FontDescription& Font() const;
    /// Of the control's font.
    int TextHeight() const;
    void Redraw() const;
    /// Tells the parent by WM_COMMAND.
    void Notify(UINT code) const;

private:
    HWND window_;
};

/// What stands behind a parameter of a message.
template <typename Kind> Kind* Pointer(std::intptr_t value) {
    return reinterpret_cast<Kind*>(value);
}

/// A text that a message passes; null is an empty one.
inline const wchar_t* TextAt(LPARAM pointer) {
    return pointer ? Pointer<const wchar_t>(pointer) : L"";
}

/// The point that a message of the mouse carries, in client coordinates.
inline POINT PointOf(LPARAM packed) {
    const auto words = static_cast<std::uintptr_t>(packed);
    return {static_cast<std::int16_t>(LOWORD(words)), static_cast<std::int16_t>(HIWORD(words))};
}

using ControlFactory = std::unique_ptr<Control> (*)(HWND window);

template <typename Kind> std::unique_ptr<Control> MakeControl(HWND window) {
    return std::make_unique<Kind>(window);
}

/// Makes a class of the device's own known; done once, when the device is switched on.
void RegisterControlClass(const wchar_t* className, ControlFactory factory);
/// All classes of controls/.
void RegisterControls();
/// The inside of a window, null if it has none.
Control* ControlOf(HWND window);
/// Whether the window is a control that takes text.
bool TakesText(HWND window);
/// Moves rows of one height under a finger: `first` is the topmost, `hidden` are the pixels of it above the edge.
void PanRows(int pixels, int rowHeight, int lastFirst, int& first, int& hidden);
/// What GetWindowTextW gives.
std::wstring TextOf(HWND window);

} // namespace device
