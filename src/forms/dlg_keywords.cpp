#include "forms/dlg_keywords.h"

#include "forms/dialog_helpers.h"
#include "forms/dlg_keywords_add.h"
#include "messages/store_record.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"
#include "resources/load_text.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::pair<CKeyword::Type, UINT> Titles[] = {
    {CKeyword::KeywordTripCategory, strings::TripCategories},
    {CKeyword::KeywordRepair, strings::RepairKeywords},
    {CKeyword::KeywordExpense, strings::ExpenseKeywords},
    {CKeyword::KeywordFuelVendor, strings::FuelVendors},
};

bool HasName(const CObjectListT<CKeyword>& keywords, const std::wstring& name) {
    for (int index = 0; index < keywords.GetCount(); ++index)
        if (name == keywords.Get(index)->GetName())
            return true;
    return false;
}

LPARAM AsParameter(const std::wstring& text) {
    return reinterpret_cast<LPARAM>(text.c_str());
}

} // namespace

CDlgKeywords::CDlgKeywords()
    : CFullScreenDialog(templates::Keywords, menus::Keywords, BackKey::IsReported) {
}

bool CDlgKeywords::OnInitDialog() {
    CFullScreenDialog::OnInitDialog();
    list_ = Item(controls::List);
    ShowTitle();
    LoadList();
    SelectItem(0);
    InputPanelRecord record;
    FitToInputPanel(GetHandle(), &record);
    return true;
}

void CDlgKeywords::OnSize() const {
    FitControlToClient(GetHandle(), controls::List, 0);
}

bool CDlgKeywords::OnCommand(UINT id, UINT code, HWND sender) {
    switch (id) {
    case commands::AddKeyword:
        AddKeyword();
        return true;
    case commands::EditKeyword:
        EditKeyword();
        return true;
    case commands::DeleteKeyword:
        DeleteKeyword();
        return true;
    default:
        return CFullScreenDialog::OnCommand(id, code, sender);
    }
}

void CDlgKeywords::ShowTitle() const {
    for (const auto& [type, title] : Titles)
        if (type == KeywordType)
            SetWindowTextW(GetHandle(), LoadText(title).c_str());
}

void CDlgKeywords::LoadList() const {
    const CWaitCursor wait;
    SendList(LB_RESETCONTENT);
    CObjectListT<CKeyword> keywords;
    if (!theDataLayer.Load(&keywords, KeywordType)) {
        if (theDataLayer.LastFailure() == StoreFailure::NoMemory)
            PostOutOfMemory(GetHandle());
        return;
    }
    for (int index = 0; index < keywords.GetCount(); ++index)
        AddItem(*keywords.Get(index));
}

bool CDlgKeywords::Store(CKeyword& keyword, const std::wstring& name) const {
    keyword.SetType(KeywordType);
    keyword.SetName(name.c_str());
    CObjectListT<CKeyword> keywords;
    // Without a list to compare with nothing may be stored.
    if (!theDataLayer.Load(&keywords, KeywordType)) {
        ShowStoreFailure();
        return false;
    }
    return !HasName(keywords, name) && SaveIfDirty(&keyword);
}

void CDlgKeywords::AddKeyword() const {
    CDlgKeywordsAdd dialog;
    if (dialog.DoModal() != commands::Done)
        return;
    CKeyword keyword;
    if (Store(keyword, dialog.Text))
        SelectItem(AddItem(keyword));
}

void CDlgKeywords::EditKeyword() const {
    const int index = SelectedIndex();
    if (index < 0)
        return;
    CDlgKeywordsAdd dialog;
    dialog.Text = TextAt(index);
    if (dialog.DoModal() != commands::Done)
        return;
    CKeyword keyword;
    keyword.SetID(IdAt(index));
    if (!Store(keyword, dialog.Text))
        return;
    // It keeps its place; the list is sorted when it is next filled.
    SendList(LB_DELETESTRING, index);
    SendList(LB_INSERTSTRING, index, AsParameter(dialog.Text));
    SendList(LB_SETITEMDATA, index, keyword.GetID());
    SelectItem(index);
    SetFocus(list_);
}

void CDlgKeywords::DeleteKeyword() const {
    const int index = SelectedIndex();
    if (index < 0)
        return;
    CKeyword keyword;
    keyword.SetID(IdAt(index));
    if (!DeleteStored(&keyword))
        return;
    SendList(LB_DELETESTRING, index);
    SelectItem(std::max(index - 1, 0));
    SetFocus(list_);
}

void CDlgKeywords::OnDone() {
    const int index = SelectedIndex();
    if (index < 0)
        return;
    Selection = TextAt(index);
    EndDialog(GetHandle(), commands::Done);
}

LRESULT CDlgKeywords::SendList(UINT message, int index, LPARAM lParam) const {
    return SendMessageW(list_, message, static_cast<WPARAM>(index), lParam);
}

int CDlgKeywords::SelectedIndex() const {
    return static_cast<int>(SendList(LB_GETCURSEL));
}

std::wstring CDlgKeywords::TextAt(int index) const {
    const LRESULT length = std::max<LRESULT>(0, SendList(LB_GETTEXTLEN, index));
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    SendList(LB_GETTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    return text;
}

LONG CDlgKeywords::IdAt(int index) const {
    return static_cast<LONG>(SendList(LB_GETITEMDATA, index));
}

int CDlgKeywords::AddItem(const CKeyword& keyword) const {
    const auto index = static_cast<int>(SendList(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(keyword.GetName())));
    SendList(LB_SETITEMDATA, index, keyword.GetID());
    return index;
}

void CDlgKeywords::SelectItem(int index) const {
    SendList(LB_SETCURSEL, index);
}
