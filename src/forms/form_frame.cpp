#include "forms/form_frame.h"

#include "forms/dialog_helpers.h"
#include "forms/pick_keyword.h"
#include "messages/show_message.h"
#include "platform/input.h"
#include "resources/ids.h"

CFormFrame::CFormFrame(const FormDescription& description)
    : CFullScreenDialog(description.dialogTemplate, description.menu, BackKey::IsReported)
    , description_(description) {
}

bool CFormFrame::OnInitDialog() {
    const HWND dialog = GetHandle();
    CreateSoftKeys();
    ApplyLabelFont(dialog);
    OnOpening();
    ShowDate(Item(controls::Date), DateField());
    OnDateShown();
    SetNumericInputMode(dialog, description_.numeric);
    ExchangeFields(false);
    FocusControl(description_.firstFocus, false);
    if (description_.keywordField != 0)
        keyword_.Subclass(Item(description_.keywordField));
    // The shell may have given the dialog another bar in the meantime.
    OverrideBackKey(SHFindMenuBar(dialog));
    InitFullScreen(dialog);
    return false;
}

void CFormFrame::OnSize() const {
    StretchControls(GetHandle(), description_.stretched);
    for (const FormDescription::Buddy& each : description_.buddies)
        SetBuddy(GetHandle(), each.spin, each.edit);
}

bool CFormFrame::OnCommand(UINT id, UINT code, HWND sender) {
    if (id == commands::Done && !sender && description_.doneNeedsSender)
        return true;
    if (id != commands::SelectKeyword)
        return CFullScreenDialog::OnCommand(id, code, sender);
    SelectKeyword();
    return true;
}

bool CFormFrame::OnBackKey(WPARAM wParam, LPARAM lParam) {
    if (IsEditFocused())
        SHSendBackToFocusWindow(WM_HOTKEY, wParam, lParam);
    else if (IsKeyUp(lParam))
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
    ReadDate(Item(controls::Date), &DateField());
    EndDialog(GetHandle(), commands::Done);
}

void CFormFrame::SelectKeyword() const {
    std::wstring text;
    if (description_.keywordField == 0 || !PickKeyword(KeywordType(), text))
        return;
    ShowText(description_.keywordField, text);
    FocusControl(description_.keywordField, true);
}

bool CFormFrame::RequireText(const std::wstring& text, UINT id, UINT message, UINT caption) const {
    if (!text.empty())
        return true;
    ShowMessage(GetHandle(), message, caption, messages::NoticeStyle);
    FocusControl(id, false);
    return false;
}

void CFormFrame::FocusControl(UINT id, bool selectAll) const {
    const HWND control = Item(id);
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
