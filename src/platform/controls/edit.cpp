#include "platform/controls/edit.h"

#include "platform/controls/edit_frame.h"
#include "platform/controls/edit_full_screen.h"
#include "platform/controls/up_down.h"
#include "platform/dialog.h"
#include "platform/drawing/device_context.h"
#include "platform/input.h"
#include "platform/windowing/desktop.h"

#include <algorithm>
#include <utility>

namespace device {

bool Edit::IsReadOnly() const {
    return HasStyle(ES_READONLY);
}

bool Edit::IsMultiline() const {
    return HasStyle(ES_MULTILINE);
}

bool Edit::IsNumeric() const {
    return HasStyle(ES_NUMBER) || numbersMode_;
}

const wchar_t* Edit::InputMark() const {
    if (IsReadOnly())
        return L"";
    if (IsNumeric())
        return L"123";
    return HasStyle(ES_UPPERCASE) ? L"ABC" : L"abc";
}

bool Edit::OpensFullScreen() const {
    return IsMultiline() && !HasStyle(EditWantsReturn) && UpDown::PartnerOf(Handle(), UDS_EXPANDABLE) != nullptr;
}

EditText::Rules Edit::Rules() const {
    return {HasStyle(ES_NUMBER), HasStyle(ES_UPPERCASE), IsMultiline(), limit_};
}

// Lines, and where they scroll to, are settled before they are asked for or painted, however much was typed until then.
void Edit::Moved() {
    caretMoved_ = true;
    Redraw();
}

void Edit::Settle() {
    Layout();
    if (caretMoved_)
        layout_.ShowCaret(text_.Caret());
    caretMoved_ = false;
}

void Edit::Changed() {
    goalX_ = -1;
    Moved();
}

LRESULT Edit::SetText(const wchar_t* text) {
    text_.Set(text, Rules());
    goalX_ = -1;
    layout_.ScrollToStart();
    caretMoved_ = false;
    Redraw();
    return TRUE;
}

LRESULT Edit::WantedKeys(const MSG* pending) const {
    LRESULT code = DLGC_HASSETSEL | DLGC_WANTCHARS;
    const bool isAction = pending && pending->message == WM_KEYDOWN && pending->wParam == VK_RETURN;
    if (HasStyle(EditWantsReturn))
        code |= DLGC_WANTARROWS;
    if (isAction && (HasStyle(EditWantsReturn) || OpensFullScreen()))
        code |= DLGC_WANTMESSAGE;
    return code;
}

void Edit::OpenFullScreen() {
    const HWND self = Handle();
    FullScreenText result = EditFullScreen(self, {text_.Text(), text_.Caret()}, limit_);
    if (!IsWindow(self) || !result.taken)
        return;
    text_.Set(std::move(result.text), Rules());
    text_.MoveTo(result.caret, false);
    Changed();
}

// Messages

LRESULT Edit::Select(std::int32_t start, std::int32_t end) {
    text_.Select(start, end);
    goalX_ = -1;
    Redraw();
    return 0;
}

LRESULT Edit::SetNumbersMode(bool isOn) {
    numbersMode_ = isOn;
    Desktop::The().InvalidateAll(); // the mark beside the title
    return 0;
}

LRESULT Edit::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        text_.Set(Control::Text(), Rules());
        return 0;
    case WM_SETTEXT:
        return SetText(TextAt(lParam));
    case WM_KILLFOCUS:
        Notify(EN_KILLFOCUS);
        return 0;
    case EM_SETSEL:
        return Select(static_cast<std::int32_t>(wParam), static_cast<std::int32_t>(lParam));
    case EM_SCROLLCARET:
        Moved();
        return 0;
    case EM_LIMITTEXT:
        limit_ = wParam;
        return 0;
    case EM_SETINPUTMODE:
        return SetNumbersMode(lParam == EIM_NUMBERS);
    case WM_CUT:
        Cut();
        return 0;
    case WM_COPY:
        StoreSelection(Clipboard::Copied);
        return 0;
    case WM_PASTE:
        Paste(lParam ? TextAt(lParam) : Desktop::The().StoredText(Clipboard::Copied));
        return 0;
    case WM_MOUSEMOVE:
        DragTo(PointOf(lParam));
        return 0;
    case WM_LBUTTONUP:
        EndDrag();
        return 0;
    case WM_MBUTTONDOWN:
        MiddleClick(PointOf(lParam));
        return 0;
    default:
        return Control::Message(message, wParam, lParam);
    }
}

} // namespace device
