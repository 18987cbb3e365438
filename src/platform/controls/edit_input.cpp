#include "platform/controls/edit.h"

#include "platform/controls/edit_frame.h"
#include "platform/input.h"
#include "platform/locale.h"
#include "platform/windowing/desktop.h"

#include <algorithm>

namespace device {

namespace {

bool IsHeld(int key) {
    return GetKeyState(key) < 0;
}

/// The one point or comma of a number as the locale writes it: a keyboard has only one of them.
std::wstring WithDecimalSign(std::wstring text) {
    wchar_t sign[8] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, sign, 8);
    const std::size_t place = text.find_first_of(L".,");
    if (place != std::wstring::npos && text.find_first_of(L".,", place + 1) == std::wstring::npos)
        text.replace(place, 1, sign);
    return text;
}

} // namespace

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

UINT ClipboardMessage(WORD key) {
    const bool shift = IsHeld(VK_SHIFT);
    const bool control = IsHeld(VK_CONTROL);
    if ((control && key == 'V') || (shift && key == VK_INSERT))
        return WM_PASTE;
    if (control && (key == 'C' || key == VK_INSERT))
        return WM_COPY;
    return (control && key == 'X') || (shift && key == VK_DELETE) ? WM_CUT : 0;
}

void Edit::KeyDown(WORD key) {
    const bool extend = IsHeld(VK_SHIFT);
    const bool control = IsHeld(VK_CONTROL);
    if (const UINT message = ClipboardMessage(key)) {
        SendMessageW(Handle(), message, 0, 0);
        return;
    }
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
        Redraw();
        StoreSelection(Clipboard::Selected);
        return;
    default:
        return;
    }
    Moved();
    if (extend)
        StoreSelection(Clipboard::Selected);
}

void Edit::Character(wchar_t character) {
    // The line end of an Action key was seen to when the key went down.
    if (IsReadOnly() || character == L'\r')
        return;
    if (character == VK_BACK ? text_.Delete(false) : text_.Type(character, Rules()))
        Changed();
}

// Clipboard

void Edit::StoreSelection(Clipboard where) const {
    if (text_.HasSelection())
        Desktop::The().StoreText(where, text_.Text().substr(text_.Start(), text_.End() - text_.Start()));
}

void Edit::Cut() {
    StoreSelection(Clipboard::Copied);
    if (text_.HasSelection() && !IsReadOnly() && text_.Delete(false))
        Changed();
}

void Edit::Paste(std::wstring_view text) {
    if (text.empty() || IsReadOnly())
        return;
    const EditText::Pasted pasted = text_.Paste(text, Rules());
    if (pasted != EditText::Pasted::Nothing)
        Changed();
    if (pasted != EditText::Pasted::Whole)
        MessageBeep(static_cast<UINT>(-1));
}

// A host's own field

bool Edit::DescribeField(ShownField& field) const {
    if (IsReadOnly())
        return false;
    using Kind = ShownField::Kind;
    field.kind = HasStyle(ES_NUMBER) ? Kind::Whole
        : numbersMode_               ? Kind::Decimal
        : HasStyle(EditWantsReturn)  ? Kind::Lines
        : IsMultiline()              ? Kind::Note
                                     : Kind::Text;
    field.isCapital = HasStyle(ES_UPPERCASE);
    field.limit = limit_;
    field.text = text_.Text();
    field.start = text_.Start();
    field.end = text_.End();
    return true;
}

void Edit::EnterText(const std::wstring& text, std::size_t start, std::size_t end) {
    const std::wstring entered = numbersMode_ ? WithDecimalSign(text) : text;
    if (IsReadOnly())
        return;
    if (entered != text_.Text()) {
        text_.Select(0, -1);
        if (!entered.empty())
            Paste(entered);
        else if (text_.Delete(false))
            Changed();
    }
    Select(static_cast<std::int32_t>(start), static_cast<std::int32_t>(end));
    Moved();
}

// The mouse

void Edit::Click(POINT point, bool extend) {
    Settle();
    text_.MoveTo(layout_.IndexAt(point), extend);
    isDragging_ = true;
    goalX_ = -1;
    Moved();
}

void Edit::LeftPress(POINT point, WPARAM keys) {
    Click(point, (keys & MK_SHIFT) != 0);
}

// Beyond the edges the caret takes the text with it.
void Edit::DragTo(POINT point) {
    if (isDragging_)
        Click(point, true);
}

void Edit::EndDrag() {
    if (isDragging_)
        StoreSelection(Clipboard::Selected);
    isDragging_ = false;
}

void Edit::DoubleClick(POINT point) {
    Settle();
    text_.SelectWord(layout_.IndexAt(point));
    isDragging_ = false;
    goalX_ = -1;
    Moved();
    StoreSelection(Clipboard::Selected);
}

void Edit::MiddleClick(POINT point) {
    Click(point, false);
    isDragging_ = false;
    Paste(Desktop::The().StoredText(Clipboard::Selected));
}

bool Edit::Pan(int pixels) {
    Settle();
    if (static_cast<int>(layout_.Lines().size()) <= layout_.LinesShown())
        return false;
    panned_ += pixels;
    const int lines = panned_ / layout_.LineHeight();
    panned_ -= lines * layout_.LineHeight();
    ScrollTo(layout_.FirstLine() - lines);
    return true;
}

bool Edit::Wheel(int lines) {
    Settle();
    // A text that shows as a whole leaves the wheel to the dialog around it.
    if (static_cast<int>(layout_.Lines().size()) <= layout_.LinesShown())
        return false;
    ScrollTo(layout_.FirstLine() - lines);
    return true;
}

} // namespace device
