#include "platform/controls/list_view.h"

#include "platform/dialog.h"
#include "platform/input.h"
#include "platform/windowing/desktop.h"

#include <algorithm>

namespace device {

// Keys and the mouse

void ListView::SendNotification(INT code, WORD key) const {
    NMLVKEYDOWN note{{Handle(), static_cast<UINT>(GetDlgCtrlID(Handle())), code}, key};
    SendMessageW(GetParent(Handle()), WM_NOTIFY, note.hdr.idFrom, reinterpret_cast<LPARAM>(&note));
}

void ListView::KeyDown(WORD key) {
    const unsigned modifiers = Desktop::The().Modifiers();
    if (key == VK_RETURN && (modifiers & MOD_SHIFT) != 0) {
        rows_.ToggleFocused();
        Redraw();
        return;
    }
    const HWND self = Handle();
    SendNotification(LVN_KEYDOWN, key);
    if (!IsWindow(self))
        return;
    if (key == L'A' && (modifiers & MOD_CONTROL) != 0)
        rows_.SelectAll();
    else
        MoveKey(key);
    Redraw();
}

void ListView::MoveKey(WORD key) {
    const unsigned modifiers = Desktop::The().Modifiers();
    const auto move = (modifiers & MOD_SHIFT) != 0 ? ListViewRows::Move::Extend
        : (modifiers & MOD_CONTROL) != 0           ? ListViewRows::Move::Alone
                                                   : ListViewRows::Move::Select;
    const int page = std::max(1, RowsShown() - 1);
    switch (key) {
    case VK_UP:
        rows_.MoveBy(-1, move);
        break;
    case VK_DOWN:
        rows_.MoveBy(1, move);
        break;
    case VK_PRIOR:
        rows_.MoveBy(-page, move);
        break;
    case VK_NEXT:
        rows_.MoveBy(page, move);
        break;
    case VK_HOME:
        rows_.MoveTo(0, move);
        break;
    case VK_END:
        rows_.MoveTo(rows_.Count() - 1, move);
        break;
    default:
        return;
    }
    ShowRow(rows_.Focused());
}

void ListView::Character(wchar_t character) {
    rows_.MoveTo(rows_.TypeAhead(character), ListViewRows::Move::Select);
    ShowRow(rows_.Focused());
    Redraw();
}

void ListView::LeftPress(POINT point, WPARAM keys) {
    const int row = RowAt(point.y);
    if (!rows_.Has(row))
        return;
    if ((keys & MK_CONTROL) != 0) {
        rows_.MoveTo(row, ListViewRows::Move::Alone);
        if (!HasStyle(LVS_SINGLESEL))
            rows_.ToggleFocused();
    } else {
        rows_.MoveTo(row, (keys & MK_SHIFT) != 0 ? ListViewRows::Move::Extend : ListViewRows::Move::Select);
    }
    ShowRow(row);
    Redraw();
    SendNotification(NM_CLICK);
}

void ListView::DoubleClick(POINT point) {
    if (rows_.Has(RowAt(point.y)))
        SendNotification(LVN_KEYDOWN, VK_RETURN);
}

bool ListView::IsChosen(POINT point) const {
    return GetFocus() == Handle() && rows_.SelectedCount() == 1 && rows_.IsSelected(RowAt(point.y));
}

void ListView::RightPress(POINT point) {
    const int row = RowAt(point.y);
    if (!rows_.Has(row) || rows_.IsSelected(row))
        return;
    rows_.MoveTo(row, ListViewRows::Move::Select);
    Redraw();
}

// Beyond the edges a row at a time comes into view.
void ListView::DragTo(WPARAM keys, POINT point) {
    if ((keys & MK_CONTROL) != 0 || HasStyle(LVS_SINGLESEL) || rows_.Count() == 0)
        return;
    const int first = rows_.First();
    const int row = std::clamp(RowAt(point.y), first - 1, first + RowsShown());
    const int target = std::clamp(row, 0, rows_.Count() - 1);
    if (target == rows_.Focused())
        return;
    rows_.MoveTo(target, ListViewRows::Move::Extend);
    ShowRow(target);
    Redraw();
}

} // namespace device
