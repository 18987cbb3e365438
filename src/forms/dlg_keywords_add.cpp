#include "forms/dlg_keywords_add.h"

#include "forms/dialog_helpers.h"
#include "platform/input.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"

namespace {

constexpr WPARAM NameLimit = 30;

constexpr UINT Stretched[] = {controls::FirstText};

} // namespace

LPCDLGTEMPLATEW CDlgKeywordsAdd::GetTemplate() const {
    return &templates::KeywordName;
}

bool CDlgKeywordsAdd::ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/, LRESULT& result) {
    const UINT command = LOWORD(wParam);
    switch (message) {
    case WM_INITDIALOG:
        OnInitDialog();
        result = FALSE;
        return true;
    case WM_SIZE:
        StretchControls(GetHandle(), Stretched);
        return true;
    case WM_COMMAND:
        if (command != commands::Done && command != commands::Cancel)
            return false;
        OnDone(command);
        return true;
    default:
        return false;
    }
}

void CDlgKeywordsAdd::OnInitDialog() {
    CreateSoftKeyBar(GetHandle(), menus::DoneCancel, true, false);
    InitFullScreen(GetHandle());
    ExchangeText(controls::FirstText, Text, false);
    const HWND name = GetDlgItem(GetHandle(), controls::FirstText);
    SetFocus(name);
    SendMessageW(name, EM_LIMITTEXT, NameLimit, 0);
    name_.Subclass(name);
}

void CDlgKeywordsAdd::OnDone(UINT command) {
    const bool hasText = command == commands::Done && ExchangeText(controls::FirstText, Text, true) && !Text.empty();
    EndDialog(GetHandle(), hasText ? commands::Done : commands::Cancel);
}

LRESULT CDlgKeywordsAdd::CNameField::ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETDLGCODE) {
        const auto* pending = reinterpret_cast<const MSG*>(lParam); // NOLINT(performance-no-int-to-ptr)
        if (pending && pending->message == WM_KEYUP && pending->wParam == VK_TBACK && pending->hwnd == GetHandle()) {
            keybd_event(VK_BACK, 0, 0, 0);
            keybd_event(VK_BACK, 0, KEYEVENTF_KEYUP, 0);
        }
    }
    return DefaultMessage(message, wParam, lParam);
}
