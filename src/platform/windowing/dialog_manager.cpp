#include "platform/windowing/dialog_manager.h"

#include "platform/dialog.h"
#include "platform/drawing.h"
#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/look.h"

#include <algorithm>

namespace device {

namespace {

bool TakesFocus(const Window& control) {
    return control.Has(WS_VISIBLE | WS_TABSTOP) && !control.Has(WS_DISABLED) && control.control
        && control.control->TakesFocus();
}

std::vector<HWND> FocusOrder(const Window& dialog) {
    std::vector<HWND> order;
    for (const Window* child : dialog.children) {
        if (TakesFocus(*child))
            order.push_back(child->handle);
    }
    return order;
}

int Height(const RECT& rectangle) {
    return static_cast<int>(rectangle.bottom - rectangle.top);
}

int ContentHeight(const Window& dialog) {
    LONG bottom = 0;
    for (const Window* child : dialog.children) {
        if (child->Has(WS_VISIBLE))
            bottom = std::max(bottom, child->place.bottom);
    }
    return static_cast<int>(bottom) + dialog.modal->scroll + Scaled(4);
}

void ScrollTo(Window& dialog, int position) {
    const int client = Height(ScreenClient(dialog));
    position = std::clamp(position, 0, std::max(0, ContentHeight(dialog) - client));
    const LONG move = dialog.modal->scroll - position;
    if (move == 0)
        return;
    dialog.modal->scroll = position;
    for (Window* child : dialog.children) {
        child->place.top += move;
        child->place.bottom += move;
    }
    InvalidateRect(dialog.handle, nullptr, TRUE);
}

/// Texts below the last control, or above the first one, are scrolled into view before the walk begins anew.
bool ScrollsBeyond(Window& dialog, int step) {
    const int hidden
        = step < 0 ? dialog.modal->scroll : ContentHeight(dialog) - Height(ScreenClient(dialog)) - dialog.modal->scroll;
    if (hidden <= Scaled(8))
        return false;
    ScrollTo(dialog, dialog.modal->scroll + (step * Scaled(24)));
    return true;
}

void Walk(Window& dialog, int step) {
    const std::vector<HWND> order = FocusOrder(dialog);
    const auto own = std::find(order.begin(), order.end(), GetFocus());
    const bool atEnd = order.empty() || (own != order.end() && GetFocus() == (step > 0 ? order.back() : order.front()));
    if ((atEnd && ScrollsBeyond(dialog, step)) || order.empty())
        return;
    const auto count = static_cast<std::ptrdiff_t>(order.size());
    std::ptrdiff_t index = own == order.end() ? (step > 0 ? -1 : 0) : own - order.begin();
    index = (index + step + count) % count;
    FocusDlgItem(dialog.handle, order[static_cast<std::size_t>(index)]);
}

/// True when the dialog took the message, or is gone.
bool IsDialogMessage(HWND handle, const MSG& message) {
    Window* dialog = FindWindowRecord(handle);
    const Window* target = FindWindowRecord(message.hwnd);
    const bool isKey = message.message == WM_KEYDOWN || message.message == WM_KEYUP;
    if (!isKey || !dialog || dialog->isMessageBox || !IsWithin(target, dialog))
        return false;
    MSG pending = message;
    const LRESULT wanted
        = SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&pending));
    dialog = FindWindowRecord(handle);
    if (!dialog || dialog->modal->ended)
        return true;
    if (message.message == WM_KEYUP || (wanted & DLGC_WANTMESSAGE) != 0)
        return false;
    switch (message.wParam) {
    case VK_UP:
    case VK_DOWN:
        if ((wanted & DLGC_WANTARROWS) != 0)
            return false;
        Walk(*dialog, message.wParam == VK_UP ? -1 : 1);
        return true;
    case VK_TAB:
        Walk(*dialog, (Desktop::The().Modifiers() & MOD_SHIFT) != 0 ? -1 : 1);
        return true;
    case VK_RETURN:
        SendMessageW(handle, WM_COMMAND, IDOK, 0);
        return true;
    default:
        return false;
    }
}

} // namespace

LONG_PTR RunModal(HWND handle, HWND owner, LONG_PTR otherwise) {
    LONG_PTR result = otherwise;
    for (;;) {
        const Window* window = FindWindowRecord(handle);
        if (!window)
            break;
        if (window->modal->ended) {
            result = window->modal->result;
            break;
        }
        MSG message;
        if (!GetMessageW(&message, nullptr, 0, 0)) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (!IsDialogMessage(handle, message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    if (Window* window = FindWindowRecord(handle))
        window->modal->ended = true;
    EnableWindow(owner, TRUE);
    if (Desktop::The().Active() == handle && IsWindow(owner))
        Desktop::The().Activate(owner);
    DestroyWindow(handle);
    return result;
}

void ShowDialogControl(Window& dialog, const Window& control) {
    if (!dialog.modal || control.parent != &dialog)
        return;
    LONG top = control.place.top;
    LONG labelTop = top;
    for (const Window* child : dialog.children) {
        const bool isAbove = child->control && !child->control->TakesFocus() && child->Has(WS_VISIBLE)
            && child->place.bottom <= top + Scaled(2) && child->place.top < top;
        if (isAbove)
            labelTop = labelTop == top ? child->place.top : std::max(labelTop, child->place.top);
    }
    const int client = Height(ScreenClient(dialog));
    const int scroll = dialog.modal->scroll;
    const int margin = Scaled(4);
    int position = scroll;
    if (control.place.bottom + margin > client)
        position = scroll + static_cast<int>(control.place.bottom) + margin - client;
    if (labelTop - (position - scroll) < 0)
        position = scroll + static_cast<int>(labelTop) - Scaled(2);
    ScrollTo(dialog, position);
}

void UpdateDialogScroll(Window& dialog) {
    if (!dialog.modal)
        return;
    const int height = Height(dialog.place);
    const bool needed = dialog.Has(WS_VSCROLL) && ContentHeight(dialog) > height;
    ScrollTo(dialog, needed ? dialog.modal->scroll : 0);
    SetInsets(dialog, {0, 0, needed ? GetSystemMetrics(SM_CXVSCROLL) : 0, 0});
}

void EnterControl(HWND handle) {
    Window* control = FindWindowRecord(handle);
    Window* top = TopLevelOf(control);
    if (!top || top == control || !top->dialogProcedure)
        return;
    ShowDialogControl(*top, *control);
    if ((SendMessageW(handle, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0
        || std::wstring_view(control->windowClass->name) == L"Edit")
        SendMessageW(handle, EM_SETSEL, 0, -1);
}

void PaintScrollBar(Canvas& canvas, const RECT& place, int range, int page, int position) {
    canvas.Fill(place, GetSysColor(COLOR_3DFACE));
    const int height = Height(place);
    if (range <= page || height <= 0 || range <= 0)
        return;
    const int least = std::min(Scaled(8), height); // a bar may be shorter than the least thumb
    const int thumb = std::clamp(static_cast<int>(static_cast<std::int64_t>(height) * page / range), least, height);
    const int room = height - thumb;
    const int offset = static_cast<int>(static_cast<std::int64_t>(room) * position / (range - page));
    const LONG top = place.top + std::clamp(offset, 0, room);
    canvas.Fill({place.left + 1, top, place.right - 1, top + thumb}, MenuEdgeColor);
}

void PaintDialogScrollBar(Canvas& canvas, const Window& dialog) {
    if (!dialog.modal || dialog.insets.right <= 0)
        return;
    const RECT client = ScreenClient(dialog);
    PaintScrollBar(canvas, {client.right, client.top, client.right + dialog.insets.right, client.bottom},
        ContentHeight(dialog), Height(client), dialog.modal->scroll);
}

namespace {

/// Size of a dialog unit times 4 and 8, in pixels, of a font.
SIZE DialogBase(HWND window, HFONT font) {
    const HDC context = GetDC(window);
    const HGDIOBJ former = SelectObject(context, font);
    TEXTMETRICW metrics;
    GetTextMetricsW(context, &metrics);
    SelectObject(context, former);
    ReleaseDC(window, context);
    return {std::max<LONG>(metrics.tmAveCharWidth, 1), std::max<LONG>(metrics.tmHeight, 1)};
}

HFONT TemplateFont(const DLGTEMPLATE& dialogTemplate) {
    LOGFONTW description;
    description.lfHeight = -(dialogTemplate.fontPoints * Dpi()) / 72;
    std::wstring_view(dialogTemplate.fontFace ? dialogTemplate.fontFace : L"")
        .copy(description.lfFaceName, LF_FACESIZE - 1);
    return CreateFontIndirectW(&description);
}

bool CreateItems(HWND dialog, HINSTANCE module, const DLGTEMPLATE& dialogTemplate, HFONT font) {
    const SIZE base = DialogBase(dialog, font);
    for (const DialogItemTemplate& item : dialogTemplate.items) {
        const HWND control = CreateWindowExW(0, item.windowClass, item.text, item.style | WS_CHILD,
            static_cast<int>(item.x * base.cx / 4), static_cast<int>(item.y * base.cy / 8),
            static_cast<int>(item.width * base.cx / 4), static_cast<int>(item.height * base.cy / 8), dialog,
            reinterpret_cast<HMENU>(static_cast<std::uintptr_t>(item.id)), module, nullptr); // NOLINT
        Window* window = FindWindowRecord(control);
        if (!window)
            return false;
        window->hasId = item.id != NoDialogItemId;
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
    }
    return true;
}

LRESULT DefaultDialogMessage(Window& dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CLOSE:
        SendMessageW(dialog.handle, WM_COMMAND, IDCANCEL, 0);
        return 0;
    case WM_SETFOCUS: {
        // The dialog itself has no use for the focus: its first control takes it.
        const std::vector<HWND> order = FocusOrder(dialog);
        if (!order.empty())
            FocusDlgItem(dialog.handle, order.front());
        return 0;
    }
    case WM_MOUSEWHEEL:
        ScrollTo(dialog, dialog.modal->scroll - (static_cast<std::int16_t>(HIWORD(wParam)) * Scaled(24)));
        return 0;
    default:
        return DefWindowProcW(dialog.handle, message, wParam, lParam);
    }
}

LRESULT DialogWindowProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* dialog = FindWindowRecord(handle);
    if (!dialog || !dialog->dialogProcedure || !dialog->modal)
        return DefWindowProcW(handle, message, wParam, lParam);
    if (message == WM_SIZE)
        UpdateDialogScroll(*dialog);
    const LRESULT answer = dialog->dialogProcedure(handle, message, wParam, lParam);
    dialog = FindWindowRecord(handle);
    if (answer != 0 || !dialog)
        return answer;
    return DefaultDialogMessage(*dialog, message, wParam, lParam);
}

constexpr const wchar_t* DialogClass = L"Dialog";

} // namespace

} // namespace device

using device::Desktop;
using device::FindWindowRecord;
using device::Window;

LONG_PTR DialogBoxIndirectParamW(
    HINSTANCE module, LPCDLGTEMPLATEW dialogTemplate, HWND owner, DLGPROC procedure, LPARAM parameter) {
    if (!dialogTemplate || !procedure || !Desktop::The().IsOn())
        return -1;
    device::AddWindowClass(device::DialogClass, device::DialogWindowProcedure, nullptr, true);
    const HWND handle = CreateWindowExW(0, device::DialogClass, dialogTemplate->title,
        (dialogTemplate->style | WS_POPUP) & ~WS_VISIBLE, 0, 0, 0, 0, owner, nullptr, module, nullptr);
    Window* dialog = FindWindowRecord(handle);
    if (!dialog)
        return -1;
    const HFONT font = device::TemplateFont(*dialogTemplate);
    dialog->font = font;
    dialog->modal = std::make_unique<device::ModalState>();
    if (!device::CreateItems(handle, module, *dialogTemplate, font)) {
        DestroyWindow(handle);
        DeleteObject(font);
        return -1;
    }
    EnableWindow(owner, FALSE);
    dialog->dialogProcedure = procedure;
    dialog->style |= WS_VISIBLE;
    Desktop::The().InvalidateAll();
    const auto order = device::FocusOrder(*dialog);
    const LRESULT wantsFocus = procedure(
        handle, WM_INITDIALOG, reinterpret_cast<WPARAM>(order.empty() ? nullptr : order.front()), parameter);
    dialog = FindWindowRecord(handle);
    if (dialog && !dialog->modal->ended) {
        Desktop::The().Activate(handle);
        if (wantsFocus != 0 && GetFocus() == handle && !order.empty())
            FocusDlgItem(handle, order.front());
    }
    const LONG_PTR result = device::RunModal(handle, owner, -1);
    DeleteObject(font);
    return result;
}

BOOL EndDialog(HWND handle, LONG_PTR result) {
    Window* dialog = FindWindowRecord(handle);
    if (!dialog || !dialog->modal || dialog->modal->ended)
        return FALSE;
    dialog->modal->ended = true;
    dialog->modal->result = result;
    return TRUE;
}

void FocusDlgItem(HWND dialog, HWND control) {
    Window* window = FindWindowRecord(control);
    if (!window || window->parent != FindWindowRecord(dialog))
        return;
    SetFocus(control);
}
