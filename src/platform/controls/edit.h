#pragma once

#include "platform/controls/edit_layout.h"
#include "platform/controls/edit_text.h"
#include "platform/drawing.h"
#include "platform/window.h"
#include "platform/windowing/control.h"
#include "platform/windowing/host.h"

#include <string>

namespace device {

/// Style of a multi-line edit that has the screen to itself: Action begins a new line, up and down move the caret.
inline constexpr DWORD EditWantsReturn = 0x1000;

/// A text field of one line or several, with caret and selection.
class Edit final : public Control {
public:
    explicit Edit(HWND window)
        : Control(window) { }

    bool IsReadOnly() const;
    bool IsMultiline() const;
    /// A digit field, or one in numbers mode.
    bool IsNumeric() const;
    /// The selection, start and end; equal for a bare caret.
    std::size_t SelectionStart() const { return text_.Start(); }
    std::size_t SelectionEnd() const { return text_.End(); }
    /// The most characters that typing may make; 0: no limit.
    std::size_t Limit() const { return limit_; }
    /// The place of the caret, one of the two ends of the selection.
    std::size_t Caret() const { return text_.Caret(); }

    std::wstring Text() const override { return text_.Text(); }
    ScrollBar Bar() const override;
    void ScrollTo(int position) override;
    void PaintFrame(Canvas& canvas, const RECT& place) override;
    bool Pan(int pixels) override;
    bool TakesText() const override { return true; }
    bool DescribeField(ShownField& field) const override;
    void EnterText(const std::wstring& text, std::size_t start, std::size_t end) override;
    std::wstring Value() const override { return IsReadOnly() ? std::wstring() : text_.Text(); }
    const wchar_t* InputMark() const override;

protected:
    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT WantedKeys(const MSG* pending) const override;
    void KeyDown(WORD key) override;
    void Character(wchar_t character) override;
    void LeftPress(POINT point, WPARAM keys) override;
    void DoubleClick(POINT point) override;
    bool Wheel(int lines) override;
    void Sized() override { Moved(); }
    void PaintGround(HDC /*context*/) override { Settle(); }
    void Paint(HDC context) override;

private:
    bool OpensFullScreen() const;
    EditText::Rules Rules() const;
    void Layout();
    /// The caret moved or the text changed: brings the caret into view.
    void Moved();
    void Changed();
    void Settle();
    LRESULT SetText(const wchar_t* text);
    LRESULT Select(std::int32_t start, std::int32_t end);
    LRESULT SetNumbersMode(bool isOn);
    void MoveLines(int step, bool extend);
    void StoreSelection(Clipboard where) const;
    void Cut();
    void Paste(std::wstring_view text);
    void Click(POINT point, bool extend);
    void DragTo(POINT point);
    void EndDrag();
    void MiddleClick(POINT point);
    void OpenFullScreen();
    void PaintLine(HDC context, std::size_t line, bool focused) const;

    EditText text_;
    EditLayout layout_;
    std::size_t limit_ = 0;
    bool numbersMode_ = false;
    bool isDragging_ = false; ///< the left button went down in the text and is held
    bool caretMoved_ = false; ///< the caret is to be brought into view before the next painting
    int panned_ = 0; ///< by a finger, in pixels that are no whole line yet
    int goalX_ = -1; ///< where up and down aim at; below 0: at the caret
};

} // namespace device
