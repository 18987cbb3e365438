#include "platform/dialog.h"
#include "platform/drawing/device_context.h"
#include "platform/metrics.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/dialog_loop.h"
#include "platform/windowing/dialog_scroll.h"
#include "platform/windowing/look.h"

#include <algorithm>

namespace device {

namespace {

/// Size of a dialog unit times 4 and 8, in pixels, of a font.
SIZE DialogBase(HFONT font) {
    const FontMetrics metrics = Desktop::The().Screen().Measurer().Metrics(FontOf(font));
    return {std::max(metrics.averageWidth, 1), std::max(metrics.Height(), 1)};
}

HFONT TemplateFont(const DLGTEMPLATE& dialogTemplate, int points) {
    LOGFONTW description;
    description.lfHeight = -(points * Dpi()) / 72;
    std::wstring_view(dialogTemplate.fontFace ? dialogTemplate.fontFace : L"")
        .copy(description.lfFaceName, LF_FACESIZE - 1);
    return CreateFontIndirectW(&description);
}

/// What a dialog is measured with, and what it is read in: larger letters where a thumb is beside them.
struct DialogFonts {
    explicit DialogFonts(const DLGTEMPLATE& dialogTemplate)
        : own(TemplateFont(dialogTemplate, dialogTemplate.fontPoints))
        , shown(TemplateFont(dialogTemplate, std::max<int>(dialogTemplate.fontPoints, TouchTarget() > 0 ? 10 : 0))) { }
    ~DialogFonts() {
        DeleteObject(own);
        DeleteObject(shown);
    }
    DialogFonts(const DialogFonts&) = delete;
    DialogFonts& operator=(const DialogFonts&) = delete;

    HFONT own;
    HFONT shown;
};

bool IsPicture(const DialogItemTemplate& item) {
    return std::wstring_view(item.windowClass) == L"STATIC" && (item.style & SS_TYPEMASK) == SS_BITMAP;
}

/// Where an item stands: fields are as high as a finger needs, which moves down what stands below them, and what has
/// letters is as much wider as those are. Rows have the height for them.
RECT ItemPlace(const DialogItemTemplate& item, const DLGTEMPLATE& dialogTemplate, SIZE base, LONG letterWidth) {
    const auto heightOf = [&](const DialogItemTemplate& each) { return each.height * base.cy / 8; };
    const auto growthOf = [&](const DialogItemTemplate& each) {
        return (each.style & WS_TABSTOP) != 0 ? std::max<LONG>(0, TouchTarget() - heightOf(each)) : 0;
    };
    LONG above = 0;
    int row = -1; // where fields stand side by side they grow together
    for (const DialogItemTemplate& each : dialogTemplate.items) {
        if (each.y < item.y && each.y != row && growthOf(each) > 0) {
            above += growthOf(each);
            row = each.y;
        }
    }
    const LONG left = item.x * base.cx / 4;
    const LONG top = item.y * base.cy / 8 + above;
    const LONG width = item.width * (IsPicture(item) ? base.cx : letterWidth) / 4;
    return {left, top, left + width, top + heightOf(item) + growthOf(item)};
}

bool CreateItems(HWND dialog, HINSTANCE module, const DLGTEMPLATE& dialogTemplate, const DialogFonts& fonts) {
    const SIZE base = DialogBase(fonts.own);
    const LONG letterWidth = DialogBase(fonts.shown).cx;
    for (const DialogItemTemplate& item : dialogTemplate.items) {
        const RECT place = ItemPlace(item, dialogTemplate, base, letterWidth);
        const HWND control = CreateWindowExW(0, item.windowClass, item.text, item.style | WS_CHILD,
            static_cast<int>(place.left), static_cast<int>(place.top), static_cast<int>(place.right - place.left),
            static_cast<int>(place.bottom - place.top), dialog,
            reinterpret_cast<HMENU>(static_cast<std::uintptr_t>(item.id)), module, nullptr);
        if (!control)
            return false;
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.shown), 0);
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
        ScrollDialog(dialog, dialog.modal->scroll - (static_cast<std::int16_t>(HIWORD(wParam)) * Scaled(24)));
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
    const device::DialogFonts fonts(*dialogTemplate);
    dialog->font = fonts.shown;
    dialog->modal = std::make_unique<device::ModalState>();
    if (!device::CreateItems(handle, module, *dialogTemplate, fonts)) {
        DestroyWindow(handle);
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
    return device::RunModal(handle, owner, -1);
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
