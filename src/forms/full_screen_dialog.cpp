#include "forms/full_screen_dialog.h"

#include "forms/dialog_helpers.h"
#include "platform/input.h"
#include "resources/command_ids.h"
#include "units/field_text.h"

#include <algorithm>
#include <new>
#include <utility>

namespace {

constexpr int SignificantDigits = 6;
constexpr UINT GeneralBeep = 0xFFFFFFFF;

} // namespace

CFullScreenDialog::CFullScreenDialog(const DLGTEMPLATE& dialogTemplate, UINT menu, BackKey backKey)
    : template_(dialogTemplate)
    , menu_(menu)
    , backKey_(backKey) {
}

bool CFullScreenDialog::ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_INITDIALOG:
        result = OnInitDialog();
        return true;
    case WM_SIZE:
        OnSize();
        return true;
    case WM_COMMAND:
        return OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
    case WM_HOTKEY:
        return HIWORD(static_cast<std::uintptr_t>(lParam)) == VK_TBACK && OnBackKey(wParam, lParam);
    default:
        return false;
    }
}

bool CFullScreenDialog::OnInitDialog() {
    CreateSoftKeys();
    ApplyLabelFont(GetHandle());
    InitFullScreen(GetHandle());
    return true;
}

bool CFullScreenDialog::OnCommand(UINT id, UINT /*code*/, HWND /*sender*/) {
    switch (id) {
    case commands::Done:
        OnDone();
        return true;
    case commands::Cancel:
        EndDialog(GetHandle(), commands::Cancel);
        return true;
    default:
        return false;
    }
}

void CFullScreenDialog::OnDone() {
    EndDialog(GetHandle(), commands::Done);
}

bool CFullScreenDialog::OnBackKey(WPARAM wParam, LPARAM lParam) {
    if (backKey_ != BackKey::IsHandedOn)
        return false;
    SHSendBackToFocusWindow(WM_HOTKEY, wParam, lParam);
    return true;
}

void CFullScreenDialog::CreateSoftKeys() const {
    CreateSoftKeyBar(GetHandle(), menu_, backKey_ != BackKey::IsCancel, false);
}

HWND CFullScreenDialog::Item(UINT id) const {
    return GetDlgItem(GetHandle(), static_cast<int>(id));
}

bool CFullScreenDialog::IsKeyUp(LPARAM lParam) {
    return (LOWORD(static_cast<std::uintptr_t>(lParam)) & MOD_KEYUP) != 0;
}

bool CFullScreenDialog::ExchangeInt(UINT id, LONG& field, bool save) const {
    const auto value = static_cast<UINT>(field);
    return ReportUnless(
        save ? ReadInt(id, field) : SetDlgItemInt(GetHandle(), static_cast<int>(id), value, TRUE) != FALSE, id);
}

bool CFullScreenDialog::ExchangeText(UINT id, std::wstring& field, bool save) const {
    return ReportUnless(save ? ReadText(id, field) : ShowText(id, field), id);
}

bool CFullScreenDialog::ExchangeFloat(UINT id, float& field, bool save) const {
    return ExchangeFloatAs({PrintFieldFloat, ParseFieldFloat}, id, field, save);
}

bool CFullScreenDialog::ExchangePlainFloat(UINT id, float& field, bool save) const {
    return ExchangeFloatAs({PrintPlainFloat, ParsePlainFloat}, id, field, save);
}

bool CFullScreenDialog::ExchangeFloatAs(const FloatForm& form, UINT id, float& field, bool save) const {
    return ReportUnless(save ? ReadFloat(form, id, field) : ShowText(id, form.print(field, SignificantDigits)), id);
}

bool CFullScreenDialog::ReadInt(UINT id, LONG& field) const {
    BOOL translated = FALSE;
    const UINT value = GetDlgItemInt(GetHandle(), static_cast<int>(id), &translated, TRUE);
    if (!translated)
        return false;
    field = static_cast<LONG>(value);
    return true;
}

bool CFullScreenDialog::ReadText(UINT id, std::wstring& field) const {
    const HWND control = Item(id);
    if (!control)
        return false;
    try {
        std::wstring text(static_cast<std::size_t>(std::max(0, GetWindowTextLengthW(control))) + 1, L'\0');
        text.resize(static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
        field = std::move(text);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

bool CFullScreenDialog::ReadFloat(const FloatForm& form, UINT id, float& field) const {
    wchar_t text[FieldTextSize] = {};
    GetDlgItemTextW(GetHandle(), static_cast<int>(id), text, static_cast<int>(FieldTextSize));
    double value = 0.0;
    if (!form.parse(text, &value))
        return false;
    field = static_cast<float>(value);
    return true;
}

bool CFullScreenDialog::ShowText(UINT id, const std::wstring& text) const {
    return SetDlgItemTextW(GetHandle(), static_cast<int>(id), text.c_str()) != FALSE;
}

bool CFullScreenDialog::ReportUnless(bool success, UINT id) const {
    if (success)
        return true;
    MessageBeep(GeneralBeep);
    if (const HWND control = Item(id))
        SetFocus(control);
    return false;
}
