#include "platform/controls/list_view.h"

#include "platform/dialog.h"
#include "platform/drawing/device_context.h"
#include "platform/drawing/icons.h"
#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/look.h"

#include <algorithm>

namespace device {

namespace {

DWORD StyleOf(HWND window) {
    return static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
}

} // namespace

ListView::ListView(HWND window)
    : Control(window)
    , rows_((StyleOf(window) & LVS_SINGLESEL) != 0) {
}

// Layout

int ListView::RowsShown() const {
    return std::max(1, (static_cast<int>(Client().bottom) - HeaderHeight()) / rowHeight_);
}

RECT ListView::RowRect(int row) const {
    const LONG top = HeaderHeight() + ((row - rows_.First()) * rowHeight_) - hidden_;
    return {0, top, Client().right, top + rowHeight_};
}

BOOL ListView::ItemRect(int row, RECT* rectangle) const {
    if (!rectangle || !rows_.Has(row))
        return FALSE;
    const int part = static_cast<int>(rectangle->left);
    const RECT whole = RowRect(row);
    const int margin = Scaled(2);
    const LONG top = whole.top + TouchMargin();
    const LONG bottom = whole.bottom - TouchMargin();
    const LONG iconRight = whole.left + margin + imageSize_;
    const LONG columnRight = columns_.empty() ? whole.right : std::min<LONG>(columns_[0].width, whole.right);
    if (part == LVIR_ICON)
        *rectangle = {whole.left + margin, top, iconRight, bottom};
    else if (part == LVIR_LABEL)
        *rectangle = {iconRight, top, std::max(columnRight, iconRight), bottom};
    else
        *rectangle = whole;
    return TRUE;
}

int ListView::RowAt(LONG y) const {
    y -= HeaderHeight();
    return y < 0 ? -1 : rows_.First() + ((y + hidden_) / rowHeight_);
}

int ListView::TouchMargin() const {
    return TouchTarget() > 0 && HasStyle(LVS_OWNERDRAWFIXED) ? Scaled(4) : 0;
}

void ListView::Measure() {
    int height = std::max({TextHeight() + Scaled(4), imageSize_ + Scaled(2), TouchTarget()});
    if (HasStyle(LVS_OWNERDRAWFIXED)) {
        MEASUREITEMSTRUCT request;
        request.CtlType = ODT_LISTVIEW;
        request.CtlID = static_cast<UINT>(GetDlgCtrlID(Handle()));
        request.itemHeight = static_cast<UINT>(height);
        SendMessageW(GetParent(Handle()), WM_MEASUREITEM, request.CtlID, reinterpret_cast<LPARAM>(&request));
        height = static_cast<int>(request.itemHeight) + (2 * TouchMargin());
    }
    rowHeight_ = std::max(1, height);
}

void ListView::Changed() {
    Window* window = FindWindowRecord(Handle());
    if (!window || !window->redraw)
        return;
    const int first = rows_.First();
    rows_.ScrollTo(first, RowsShown());
    if (rows_.First() != first || first + RowsShown() >= rows_.Count())
        hidden_ = 0;
    const int edge = HasStyle(WS_BORDER) ? 1 : 0;
    const bool bar = rows_.Count() > RowsShown();
    SetInsets(*window, {edge, edge, edge + (bar ? GetSystemMetrics(SM_CXVSCROLL) : 0), edge});
    Redraw();
}

// Messages

LRESULT ListView::InsertItem(const LVITEMW& item) {
    ListViewRows::Row row;
    if ((item.mask & LVIF_TEXT) != 0 && item.pszText)
        row.cells.emplace_back(item.pszText);
    if ((item.mask & LVIF_IMAGE) != 0)
        row.image = item.iImage;
    if ((item.mask & LVIF_PARAM) != 0)
        row.data = item.lParam;
    const int place = HasStyle(LVS_SORTASCENDING) ? rows_.SortedPlace(row.Text()) : item.iItem;
    const int index = rows_.Insert(place, std::move(row));
    Changed();
    return index;
}

LRESULT ListView::SetItem(const LVITEMW& item) {
    if (!rows_.Has(item.iItem))
        return FALSE;
    if ((item.mask & LVIF_TEXT) != 0)
        rows_.SetCell(item.iItem, item.iSubItem, item.pszText ? item.pszText : L"");
    if ((item.mask & LVIF_IMAGE) != 0)
        rows_.At(item.iItem).image = item.iImage;
    if ((item.mask & LVIF_PARAM) != 0)
        rows_.At(item.iItem).data = item.lParam;
    Changed();
    return TRUE;
}

LRESULT ListView::GetText(int row, LVITEMW& item) const {
    if (!rows_.Has(row) || item.cchTextMax <= 0)
        return 0;
    return static_cast<LRESULT>(
        CopyText(rows_.Cell(row, item.iSubItem), item.pszText, static_cast<std::size_t>(item.cchTextMax)));
}

LRESULT ListView::GetItem(LVITEMW& item) const {
    if (!rows_.Has(item.iItem))
        return FALSE;
    if ((item.mask & LVIF_TEXT) != 0)
        GetText(item.iItem, item);
    if ((item.mask & LVIF_IMAGE) != 0)
        item.iImage = rows_.At(item.iItem).image;
    if ((item.mask & LVIF_PARAM) != 0)
        item.lParam = rows_.At(item.iItem).data;
    return TRUE;
}

LRESULT ListView::DeleteItem(int row) {
    const bool removed = rows_.Remove(row);
    Changed();
    return removed ? TRUE : FALSE;
}

LRESULT ListView::DeleteAllItems() {
    rows_.Clear();
    Changed();
    return TRUE;
}

int ListView::FindItem(int after, const LVFINDINFOW* wanted) const {
    return wanted && (wanted->flags & LVFI_PARAM) != 0 ? rows_.FindData(wanted->lParam, after) : -1;
}

LRESULT ListView::EnsureVisible(int row) {
    ShowRow(row);
    Redraw();
    return rows_.Has(row) ? TRUE : FALSE;
}

HIMAGELIST ListView::SetImages(HIMAGELIST images) {
    const HIMAGELIST former = images_;
    images_ = images;
    imageSize_ = static_cast<int>(ImageListSize(images_).cx);
    Measure();
    Changed();
    return former;
}

// Columns

bool ListView::HasColumn(int column) const {
    return column >= 0 && column < static_cast<int>(columns_.size());
}

int ListView::InsertColumn(int place, const LVCOLUMNW& column) {
    const int index = std::clamp(place, 0, static_cast<int>(columns_.size()));
    columns_.insert(columns_.begin() + index, {column.pszText ? column.pszText : L"", column.fmt, column.cx});
    Changed();
    return index;
}

BOOL ListView::HeaderRect(int column, RECT* place) const {
    if (!place || !HasColumn(column))
        return FALSE;
    *place = {0, 0, columns_[static_cast<std::size_t>(column)].width, HeaderHeight()};
    return TRUE;
}

LRESULT ListView::SetState(int row, const LVITEMW& item) {
    if (row == -1)
        for (int each = 0; each < rows_.Count(); ++each)
            rows_.SetState(each, item.state, item.stateMask & LVIS_SELECTED);
    else if (rows_.Has(row))
        rows_.SetState(row, item.state, item.stateMask);
    else
        return FALSE;
    Redraw();
    return TRUE;
}

LRESULT ListView::SetColumnWidth(int column, int width) {
    if (!HasColumn(column))
        return FALSE;
    if (width < 0) { // to the content: the last column takes what the others leave
        width = static_cast<int>(Client().right);
        for (int each = 0; each < static_cast<int>(columns_.size()); ++each)
            width -= each == column ? 0 : columns_[static_cast<std::size_t>(each)].width;
    }
    columns_[static_cast<std::size_t>(column)].width = std::max(0, width);
    Redraw();
    return TRUE;
}

BOOL ListView::SetOrder(std::span<const int> order) {
    if (!rows_.SetOrder(order))
        return FALSE;
    Redraw();
    return TRUE;
}

LRESULT ListView::ColumnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const int column = static_cast<int>(wParam);
    switch (message) {
    case LVM_INSERTCOLUMNW:
        return lParam ? InsertColumn(column, *Pointer<const LVCOLUMNW>(lParam)) : -1;
    case LVM_SETCOLUMNWIDTH:
        return SetColumnWidth(column, static_cast<std::int16_t>(LOWORD(static_cast<std::uintptr_t>(lParam))));
    case LVM_GETCOLUMNWIDTH:
        return HasColumn(column) ? columns_[wParam].width : 0;
    case LVM_GETHEADER: // it has no window of its own: the list answers for it
        return reinterpret_cast<LRESULT>(Handle());
    case HDM_GETITEMCOUNT:
        return static_cast<LRESULT>(columns_.size());
    case HDM_GETITEMRECT:
        return HeaderRect(column, Pointer<RECT>(lParam));
    default:
        return Control::Message(message, wParam, lParam);
    }
}

ScrollBar ListView::Bar() const {
    const Window* window = FindWindowRecord(Handle());
    return {window ? ScrollBarPlace(*window) : RECT{}, rows_.Count(), RowsShown(), rows_.First()};
}

std::wstring ListView::FocusedPart() const {
    if (!rows_.Has(rows_.Focused()))
        return {};
    std::wstring part = L"row " + std::to_wstring(rows_.Focused() + 1);
    return part.append(L" of ").append(std::to_wstring(rows_.Count()));
}

void ListView::ScrollTo(int position) {
    rows_.ScrollTo(position, RowsShown());
    hidden_ = 0;
    Redraw();
}

void ListView::ShowRow(int row) {
    const int first = rows_.First();
    rows_.EnsureVisible(row, RowsShown());
    if (rows_.First() != first || row == first)
        hidden_ = 0;
}

bool ListView::Pan(int pixels) {
    if (rows_.Count() <= RowsShown())
        return false;
    int first = rows_.First();
    PanRows(pixels, rowHeight_, rows_.Count() - RowsShown(), first, hidden_);
    rows_.ScrollTo(first, RowsShown());
    Redraw();
    return true;
}

bool ListView::Wheel(int lines) {
    ScrollTo(rows_.First() - lines);
    return true;
}

void ListView::Sized() {
    Measure();
    Changed();
}

LRESULT ListView::LookChanged(UINT message, WPARAM wParam, LPARAM lParam) {
    Control::Message(message, wParam, lParam);
    if (message == WM_SETFONT && !HasStyle(LVS_OWNERDRAWFIXED))
        Measure();
    Changed();
    return 0;
}

LRESULT ListView::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    const int row = static_cast<int>(wParam);
    switch (message) {
    case LVM_GETITEMCOUNT:
        return rows_.Count();
    case LVM_INSERTITEMW:
        return lParam ? InsertItem(*Pointer<LVITEMW>(lParam)) : -1;
    case LVM_SETITEMW:
        return lParam ? SetItem(*Pointer<LVITEMW>(lParam)) : FALSE;
    case LVM_GETITEMW:
        return lParam ? GetItem(*Pointer<LVITEMW>(lParam)) : FALSE;
    case LVM_GETITEMTEXTW:
        return lParam ? GetText(row, *Pointer<LVITEMW>(lParam)) : 0;
    case LVM_SETITEMSTATE:
        return lParam ? SetState(row, *Pointer<LVITEMW>(lParam)) : FALSE;
    case LVM_DELETEITEM:
        return DeleteItem(row);
    case LVM_DELETEALLITEMS:
        return DeleteAllItems();
    case LVM_FINDITEMW:
        return FindItem(row, Pointer<const LVFINDINFOW>(lParam));
    case LVM_GETNEXTITEM:
        return rows_.Next(row, LOWORD(static_cast<std::uintptr_t>(lParam)));
    case LVM_GETSELECTEDCOUNT:
        return rows_.SelectedCount();
    case LVM_GETITEMRECT:
        return ItemRect(row, Pointer<RECT>(lParam));
    case LVM_ENSUREVISIBLE:
        return EnsureVisible(row);
    case LVM_ORDERITEMS:
        return SetOrder({Pointer<const int>(lParam), lParam ? wParam : 0});
    case LVM_SETIMAGELIST:
        return reinterpret_cast<LRESULT>(SetImages(Pointer<HIMAGELIST__>(lParam)));
    case WM_SETFONT:
    case WM_SETREDRAW:
        return LookChanged(message, wParam, lParam);
    case WM_MOUSEMOVE:
        DragTo(wParam, PointOf(lParam));
        return 0;
    default:
        return ColumnMessage(message, wParam, lParam);
    }
}

} // namespace device
