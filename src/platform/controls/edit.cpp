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

bool IsHeld(int key) {
    return GetKeyState(key) < 0;
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

// Keys

void Edit::MoveLines(int step, bool extend) {
    Layout();
    const int line = static_cast<int>(layout_.LineOf(text_.Caret()));
    const int target = std::clamp(line + step, 0, static_cast<int>(layout_.Lines().size()) - 1);
    if (target == line)
        return;
    if (goalX_ < 0)
        goalX_ = std::max(0, layout_.CaretX(static_cast<std::size_t>(line), text_.Caret()));
    text_.MoveTo(layout_.IndexInLine(static_cast<std::size_t>(target), goalX_), extend);
}

void Edit::Key(WORD key) {
    const bool extend = IsHeld(VK_SHIFT);
    const bool control = IsHeld(VK_CONTROL);
    const bool isVertical = key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT;
    if (!isVertical)
        goalX_ = -1;
    Layout();
    const std::size_t line = layout_.LineOf(text_.Caret());
    switch (key) {
    case VK_LEFT:
    case VK_RIGHT:
        text_.Step(key == VK_RIGHT, extend);
        break;
    case VK_HOME:
        text_.MoveTo(control ? 0 : layout_.Lines()[line].start, extend);
        break;
    case VK_END:
        text_.MoveTo(control ? text_.Text().size() : layout_.LineEnd(line), extend);
        break;
    case VK_UP:
    case VK_DOWN:
        MoveLines(key == VK_DOWN ? 1 : -1, extend);
        break;
    case VK_PRIOR:
    case VK_NEXT:
        MoveLines(key == VK_NEXT ? layout_.LinesShown() : -layout_.LinesShown(), extend);
        break;
    case VK_DELETE:
        if (!IsReadOnly() && text_.Delete(true))
            Changed();
        return;
    case VK_RETURN:
        if (OpensFullScreen())
            OpenFullScreen();
        else if (HasStyle(EditWantsReturn) && !IsReadOnly() && text_.Type(L'\n', Rules()))
            Changed();
        return;
    case 'A':
        if (!control)
            return;
        text_.Select(0, -1);
        InvalidateRect(Handle(), nullptr, TRUE);
        return;
    default:
        return;
    }
    Moved();
}

void Edit::Character(wchar_t character) {
    // The line end of an Action key was seen to when the key went down.
    if (IsReadOnly() || character == L'\r')
        return;
    // That of a text which the host puts in; a field of one line has no place for it.
    if (character == L'\n' && !IsMultiline())
        character = L' ';
    if (character == VK_BACK ? text_.Delete(false) : text_.Type(character, Rules()))
        Changed();
}

void Edit::Click(LPARAM point, bool extend, bool word) {
    Settle();
    const auto packed = static_cast<std::uintptr_t>(point);
    const std::size_t index
        = layout_.IndexAt({static_cast<std::int16_t>(LOWORD(packed)), static_cast<std::int16_t>(HIWORD(packed))});
    if (word)
        text_.SelectWord(index);
    else
        text_.MoveTo(index, extend);
    goalX_ = -1;
    Moved();
}

LRESULT Edit::Wheel(WPARAM wParam, LPARAM lParam) {
    Settle();
    // A text that shows as a whole leaves the wheel to the dialog around it.
    if (static_cast<int>(layout_.Lines().size()) <= layout_.LinesShown())
        return SendMessageW(GetParent(Handle()), WM_MOUSEWHEEL, wParam, lParam);
    layout_.ScrollBy(-static_cast<std::int16_t>(HIWORD(wParam)));
    InvalidateRect(Handle(), nullptr, TRUE);
    return 0;
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
    case WM_LBUTTONDBLCLK:
        Click(lParam, (wParam & MK_SHIFT) != 0, message == WM_LBUTTONDBLCLK);
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
