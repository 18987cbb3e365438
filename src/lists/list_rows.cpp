// The row operations of CCustomListView, each a message to the control. Those that run over whole lists go straight to
// it and not first through this object, which handles none of them itself.

#include "lists/custom_list_view.h"

namespace {

LPARAM Address(const void* record) {
    return reinterpret_cast<LPARAM>(record);
}

/// The interface takes texts that it only reads as writable ones.
wchar_t* ReadOnly(const wchar_t* text) {
    return const_cast<wchar_t*>(text);
}

} // namespace

int CCustomListView::GetRowText(int row, int column, wchar_t* buffer, int size) const {
    LVITEMW item;
    item.iSubItem = column;
    item.pszText = buffer;
    item.cchTextMax = size;
    return static_cast<int>(SendMessageW(GetHandle(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), Address(&item)));
}

LPARAM CCustomListView::GetRowData(int row) const {
    LVITEMW item;
    item.mask = LVIF_PARAM;
    item.iItem = row;
    return DefaultMessage(LVM_GETITEMW, 0, Address(&item)) ? item.lParam : 0;
}

bool CCustomListView::SetRowData(int row, LPARAM data) {
    LVITEMW item;
    item.mask = LVIF_PARAM;
    item.iItem = row;
    item.lParam = data;
    return SendMessageW(GetHandle(), LVM_SETITEMW, 0, Address(&item)) != 0;
}

bool CCustomListView::SetCellText(int row, int column, const wchar_t* text) {
    LVITEMW item;
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.iSubItem = column;
    item.pszText = ReadOnly(text);
    return SendMessageW(GetHandle(), LVM_SETITEMW, 0, Address(&item)) != 0;
}

int CCustomListView::InsertRow(int row, const wchar_t* text, int image, LPARAM data) {
    LVITEMW item;
    item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
    item.iItem = row;
    item.pszText = ReadOnly(text);
    item.iImage = image;
    item.lParam = data;
    return static_cast<int>(DefaultMessage(LVM_INSERTITEMW, 0, Address(&item)));
}

bool CCustomListView::DeleteRow(int row) {
    return SendMessageW(GetHandle(), LVM_DELETEITEM, static_cast<WPARAM>(row), 0) != 0;
}

bool CCustomListView::RemoveRow(const CBaseObject* record) {
    return DeleteRow(FindRowByData(Address(record)));
}

int CCustomListView::FindRowByData(LPARAM data) const {
    LVFINDINFOW wanted;
    wanted.flags = LVFI_PARAM;
    wanted.lParam = data;
    return static_cast<int>(SendMessageW(GetHandle(), LVM_FINDITEMW, static_cast<WPARAM>(-1), Address(&wanted)));
}

int CCustomListView::GetRowCount() const {
    return static_cast<int>(SendMessageW(GetHandle(), LVM_GETITEMCOUNT, 0, 0));
}

bool CCustomListView::SetRowState(int row, UINT state, UINT mask) {
    // To the control -1 is every row; to a caller it is the row that was not found.
    if (row < 0)
        return false;
    LVITEMW item;
    item.state = state;
    item.stateMask = mask;
    return SendMessageW(GetHandle(), LVM_SETITEMSTATE, static_cast<WPARAM>(row), Address(&item)) != 0;
}

void CCustomListView::SelectRow(int row) {
    if (SetRowState(row, SelectedAndFocused, SelectedAndFocused))
        SendMessageW(GetHandle(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

int CCustomListView::GetNextSelected(int after) const {
    return static_cast<int>(
        SendMessageW(GetHandle(), LVM_GETNEXTITEM, static_cast<WPARAM>(after), MAKELPARAM(LVNI_SELECTED, 0)));
}

void CCustomListView::ClearSelection() {
    for (int row = GetNextSelected(-1); row != -1; row = GetNextSelected(row))
        SetRowState(row, 0, LVIS_SELECTED);
}
