#include "forms/dlg_keywords_add.h"

#include "forms/dialog_helpers.h"
#include "platform/input.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"

namespace {

constexpr WPARAM NameLimit = 30;

constexpr UINT Stretched[] = {controls::FirstText};

} // namespace

CDlgKeywordsAdd::CDlgKeywordsAdd()
    : CFullScreenDialog(templates::KeywordName, menus::DoneCancel, BackKey::IsReported) {
}

bool CDlgKeywordsAdd::OnInitDialog() {
    CFullScreenDialog::OnInitDialog();
    ExchangeText(controls::FirstText, Text, false);
    const HWND name = Item(controls::FirstText);
    SetFocus(name);
    SendMessageW(name, EM_LIMITTEXT, NameLimit, 0);
    name_.Subclass(name);
    return false;
}

void CDlgKeywordsAdd::OnSize() const {
    StretchControls(GetHandle(), Stretched);
}

void CDlgKeywordsAdd::OnDone() {
    const bool hasText = ExchangeText(controls::FirstText, Text, true) && !Text.empty();
    EndDialog(GetHandle(), hasText ? commands::Done : commands::Cancel);
}

LRESULT CDlgKeywordsAdd::CNameField::ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETDLGCODE) {
        const auto* pending = reinterpret_cast<const MSG*>(lParam);
        if (pending && pending->message == WM_KEYUP && pending->wParam == VK_TBACK && pending->hwnd == GetHandle()) {
            keybd_event(VK_BACK, 0, 0, 0);
            keybd_event(VK_BACK, 0, KEYEVENTF_KEYUP, 0);
        }
    }
    return DefaultMessage(message, wParam, lParam);
}
