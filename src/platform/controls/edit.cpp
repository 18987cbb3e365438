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

namespace {

template <typename Kind> Kind* Pointer(LPARAM value) {
    return reinterpret_cast<Kind*>(value); // NOLINT(performance-no-int-to-ptr): what the interface passes
}

const wchar_t* TextAt(LPARAM pointer) {
    const auto* text = Pointer<const wchar_t>(pointer);
    return text ? text : L"";
}

/// The low word first, as two numbers of 16 bits; a number beyond them gives -1.
LRESULT PackedSelection(std::size_t start, std::size_t end) {
    constexpr std::size_t Most = 0xFFFF;
    if (start > Most || end > Most)
        return -1;
    return MAKELPARAM(static_cast<unsigned>(start), static_cast<unsigned>(end));
}

} // namespace

bool Edit::HasStyle(DWORD style) const {
    return (static_cast<DWORD>(GetWindowLongW(Handle(), GWL_STYLE)) & style) != 0;
}

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

void Edit::Notify(UINT code) const {
    const HWND self = Handle();
    SendMessageW(GetParent(self), WM_COMMAND,
        static_cast<WPARAM>(LOWORD(static_cast<std::uintptr_t>(GetDlgCtrlID(self))))
            | (static_cast<WPARAM>(code) << 16U),
        reinterpret_cast<LPARAM>(self));
}

// Lines, and where they scroll to, are settled before they are asked for or painted, however much was typed until then.
void Edit::Moved() {
    caretMoved_ = true;
    InvalidateRect(Handle(), nullptr, TRUE);
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
    Notify(EN_CHANGE);
}

LRESULT Edit::SetText(const wchar_t* text) {
    text_.Set(text, Rules());
    goalX_ = -1;
    layout_.ScrollToStart();
    caretMoved_ = false;
    InvalidateRect(Handle(), nullptr, TRUE);
    if (!IsMultiline())
        Notify(EN_CHANGE);
    return TRUE;
}

LRESULT Edit::CopyText(wchar_t* buffer, std::size_t size) const {
    if (!buffer || size == 0)
        return 0;
    const std::size_t length = text_.Text().copy(buffer, size - 1);
    buffer[length] = 0;
    return static_cast<LRESULT>(length);
}

LRESULT Edit::DialogCode(const MSG* pending) const {
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
    const bool changed = result.text != text_.Text();
    text_.Set(std::move(result.text), Rules());
    text_.MoveTo(result.caret, false);
    goalX_ = -1;
    Moved();
    if (changed)
        Notify(EN_CHANGE);
}

// Messages

bool Edit::FieldMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = 0;
    switch (message) {
    case EM_SETSEL:
        text_.Select(static_cast<std::int32_t>(wParam), static_cast<std::int32_t>(lParam));
        goalX_ = -1;
        InvalidateRect(Handle(), nullptr, TRUE);
        return true;
    case EM_GETSEL:
        if (wParam != 0)
            *Pointer<DWORD>(static_cast<LPARAM>(wParam)) = static_cast<DWORD>(text_.Start());
        if (lParam != 0)
            *Pointer<DWORD>(lParam) = static_cast<DWORD>(text_.End());
        result = PackedSelection(text_.Start(), text_.End());
        return true;
    case EM_SCROLLCARET:
        Moved();
        return true;
    case EM_REPLACESEL:
        text_.Replace(TextAt(lParam), Rules());
        Changed();
        return true;
    case WM_CUT:
        Cut();
        return true;
    case WM_COPY:
        StoreSelection(Clipboard::Copied);
        return true;
    case WM_PASTE:
        Paste(lParam ? TextAt(lParam) : Desktop::The().StoredText(Clipboard::Copied));
        return true;
    case EM_LIMITTEXT:
        limit_ = wParam;
        return true;
    case EM_SETINPUTMODE:
        numbersMode_ = lParam == EIM_NUMBERS;
        Desktop::The().InvalidateAll(); // the mark beside the title
        return true;
    case EM_SETREADONLY: {
        const auto style = static_cast<DWORD>(GetWindowLongW(Handle(), GWL_STYLE));
        SetWindowLongW(
            Handle(), GWL_STYLE, static_cast<LONG_PTR>(wParam != 0 ? style | ES_READONLY : style & ~ES_READONLY));
        InvalidateRect(Handle(), nullptr, TRUE);
        result = TRUE;
        return true;
    }
    default:
        return false;
    }
}

LRESULT Edit::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (FieldMessage(message, wParam, lParam, result))
        return result;
    switch (message) {
    case WM_CREATE:
        if (const Window* window = FindWindowRecord(Handle()))
            text_.Set(window->text, Rules());
        return 0;
    case WM_SETTEXT:
        return SetText(TextAt(lParam));
    case WM_GETTEXT:
        return CopyText(Pointer<wchar_t>(lParam), wParam);
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(text_.Text().size());
    case WM_GETDLGCODE:
        return DialogCode(Pointer<const MSG>(lParam));
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        InvalidateRect(Handle(), nullptr, TRUE);
        Notify(message == WM_SETFOCUS ? EN_SETFOCUS : EN_KILLFOCUS);
        return 0;
    case WM_KEYDOWN:
        Key(static_cast<WORD>(wParam));
        return 0;
    case WM_CHAR:
        Character(static_cast<wchar_t>(wParam));
        return 0;
    case WM_LBUTTONDOWN:
        Click(PointOf(lParam), (wParam & MK_SHIFT) != 0);
        return 0;
    case WM_MOUSEMOVE:
        DragTo(PointOf(lParam));
        return 0;
    case WM_LBUTTONUP:
        EndDrag();
        return 0;
    case WM_LBUTTONDBLCLK:
        DoubleClick(PointOf(lParam));
        return 0;
    case WM_MBUTTONDOWN:
        MiddleClick(PointOf(lParam));
        return 0;
    case WM_MOUSEWHEEL:
        return Wheel(wParam, lParam);
    case WM_SIZE:
        Moved();
        return 0;
    case WM_ERASEBKGND:
        Settle();
        return 1;
    case WM_PAINT:
        Paint(reinterpret_cast<HDC>(wParam)); // NOLINT(performance-no-int-to-ptr)
        return 0;
    default:
        return DefWindowProcW(Handle(), message, wParam, lParam);
    }
}

} // namespace device
