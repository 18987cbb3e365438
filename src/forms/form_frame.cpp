#include "forms/form_frame.h"

#include "forms/dialog_helpers.h"
#include "forms/pick_keyword.h"
#include "messages/show_message.h"
#include "platform/input.h"
#include "platform/time.h"
#include "resources/ids.h"

CFormFrame::CFormFrame(const FormDescription& description)
    : description_(description) {
}

bool CFormFrame::ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_INITDIALOG:
        OnInitDialog();
        result = FALSE;
        return true;
    case WM_SIZE:
        OnSize();
        return true;
    case WM_COMMAND:
        return OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
    case WM_HOTKEY:
        return OnHotKey(wParam, lParam);
    default:
        return false;
    }
}

void CFormFrame::OnInitDialog() {
    const HWND dialog = GetHandle();
    CreateSoftKeyBar(dialog, description_.menu, true, false);
    ApplyLabelFont(dialog);
    datePicker_ = GetDlgItem(dialog, static_cast<int>(controls::Date));
    OnOpening();
    ShowDate();
    OnDateShown();
    SetNumericInputMode(dialog, description_.numeric);
    ExchangeFields(false);
    FocusControl(description_.firstFocus, false);
    if (description_.keywordField != 0)
        keyword_.Subclass(GetDlgItem(dialog, static_cast<int>(description_.keywordField)));
    // The shell may have given the dialog another bar in the meantime.
    OverrideBackKey(SHFindMenuBar(dialog));
    InitFullScreen(dialog);
}

void CFormFrame::OnSize() const {
    const HWND dialog = GetHandle();
    StretchControls(dialog, description_.stretched);
    for (const FormDescription::Buddy& each : description_.buddies) {
        SendDlgItemMessageW(dialog, static_cast<int>(each.spin), UDM_SETBUDDY,
            reinterpret_cast<WPARAM>(GetDlgItem(dialog, static_cast<int>(each.edit))), 0);
    }
}

bool CFormFrame::OnCommand(UINT id, UINT /*code*/, HWND sender) {
    switch (id) {
    case commands::Done:
        if (sender || !description_.doneNeedsSender)
            OnDone();
        return true;
    case commands::Cancel:
        EndDialog(GetHandle(), commands::Cancel);
        return true;
    case commands::SelectKeyword:
        SelectKeyword();
        return true;
    default:
        return false;
    }
}

bool CFormFrame::OnHotKey(WPARAM wParam, LPARAM lParam) const {
    const auto keys = static_cast<std::uintptr_t>(lParam);
    if (HIWORD(keys) != VK_TBACK)
        return false;
    if (IsEditFocused())
        SHSendBackToFocusWindow(WM_HOTKEY, wParam, lParam);
    else if ((LOWORD(keys) & MOD_KEYUP) != 0)
        EndDialog(GetHandle(), commands::Cancel);
    return true;
}

void CFormFrame::OnDone() {
    if (!ExchangeFields(true)) {
        OnSaveFailed();
        return;
    }
    if (!AcceptFields())
        return;
    ReadDate();
    EndDialog(GetHandle(), commands::Done);
}

void CFormFrame::ShowDate() {
    SYSTEMTIME time;
    // A date beyond the calendar leaves the picker at the date that it has of itself.
    if (VariantTimeToSystemTime(DateField(), &time))
        SendMessageW(datePicker_, DTM_SETSYSTEMTIME, static_cast<WPARAM>(GDT_VALID), reinterpret_cast<LPARAM>(&time));
}

void CFormFrame::ReadDate() {
    SYSTEMTIME time;
    if (SendMessageW(datePicker_, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)) == GDT_VALID)
        SystemTimeToVariantTime(&time, &DateField());
}

void CFormFrame::SelectKeyword() const {
    std::wstring text;
    if (description_.keywordField == 0 || !PickKeyword(KeywordType(), text))
        return;
    SetDlgItemTextW(GetHandle(), static_cast<int>(description_.keywordField), text.c_str());
    FocusControl(description_.keywordField, false);
}

bool CFormFrame::RequireText(const std::wstring& text, UINT id, UINT message, UINT caption) const {
    if (!text.empty())
        return true;
    ShowMessage(GetHandle(), message, caption, messages::NoticeStyle);
    FocusControl(id, false);
    return false;
}

void CFormFrame::FocusControl(UINT id, bool selectAll) const {
    const HWND control = GetDlgItem(GetHandle(), static_cast<int>(id));
    SetFocus(control);
    if (selectAll)
        SendMessageW(control, EM_SETSEL, 0, -1);
}

LRESULT CFormFrame::CKeywordField::ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_GETDLGCODE)
        return DefaultMessage(message, wParam, lParam);
    const auto* pending = reinterpret_cast<const MSG*>(lParam);
    const bool isAction
        = pending && pending->message == WM_KEYDOWN && pending->wParam == VK_TACTION && pending->hwnd == GetHandle();
    if (isAction)
        form_.SelectKeyword();
    // The same answer whatever is pending: with it the dialog goes on as if the field had no use for the key.
    return DLGC_WANTTAB;
}
