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

// The header has no window of its own: the list answers for it.
namespace {

constexpr UINT HeaderGetItemCount = 0x1200;
constexpr UINT HeaderGetItemRect = 0x1207;

template <typename Kind> Kind* Pointer(LPARAM value) {
    return reinterpret_cast<Kind*>(value); // NOLINT(performance-no-int-to-ptr): what the interface passes
}

DWORD StyleOf(HWND window) {
    return static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
}

} // namespace

ListView::ListView(HWND window)
    : Control(window)
    , rows_((StyleOf(window) & LVS_SINGLESEL) != 0) {
}

bool ListView::HasStyle(DWORD style) const {
    return (StyleOf(Handle()) & style) != 0;
}

HFONT ListView::Font() const {
    const Window* window = FindWindowRecord(Handle());
    return window ? window->font : nullptr;
}

// Layout

int ListView::RowsShown() const {
    RECT client;
    GetClientRect(Handle(), &client);
    return std::max(1, (static_cast<int>(client.bottom) - HeaderHeight()) / rowHeight_);
}

RECT ListView::RowRect(int row) const {
    RECT client;
    GetClientRect(Handle(), &client);
    const LONG top = HeaderHeight() + ((row - rows_.First()) * rowHeight_);
    return {0, top, client.right, top + rowHeight_};
}

bool ListView::ItemRect(int row, RECT* rectangle) const {
    if (!rectangle || !rows_.Has(row))
        return false;
    const int part = static_cast<int>(rectangle->left);
    const RECT whole = RowRect(row);
    const int margin = Scaled(2);
    const LONG iconRight = whole.left + margin + imageSize_;
    const LONG columnRight = columns_.empty() ? whole.right : std::min<LONG>(columns_[0].width, whole.right);
    if (part == LVIR_ICON)
        *rectangle = {whole.left + margin, whole.top, iconRight, whole.bottom};
    else if (part == LVIR_LABEL)
        *rectangle = {iconRight, whole.top, std::max(columnRight, iconRight), whole.bottom};
    else
        *rectangle = whole;
    return true;
}

int ListView::RowAt(int y) const {
    y -= HeaderHeight();
    return y < 0 ? -1 : rows_.First() + (y / rowHeight_);
}

void ListView::Measure() {
    TextMeasurer& measurer = Desktop::The().Screen().Measurer();
    int height = std::max(measurer.Metrics(FontOf(Font())).Height() + Scaled(4), imageSize_ + Scaled(2));
    if (HasStyle(LVS_OWNERDRAWFIXED)) {
        MEASUREITEMSTRUCT request;
        request.CtlType = ODT_LISTVIEW;
        request.CtlID = static_cast<UINT>(GetDlgCtrlID(Handle()));
        request.itemHeight = static_cast<UINT>(height);
        SendMessageW(GetParent(Handle()), WM_MEASUREITEM, request.CtlID, reinterpret_cast<LPARAM>(&request));
        height = static_cast<int>(request.itemHeight);
    }
    rowHeight_ = std::max(1, height);
}

void ListView::Changed() {
    Window* window = FindWindowRecord(Handle());
    if (!window || !window->redraw)
        return;
    rows_.ScrollTo(rows_.First(), RowsShown());
    const int edge = window->Has(WS_BORDER) ? 1 : 0;
    const bool bar = rows_.Count() > RowsShown();
    SetInsets(*window, {edge, edge, edge + (bar ? GetSystemMetrics(SM_CXVSCROLL) : 0), edge});
    InvalidateRect(Handle(), nullptr, TRUE);
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
    if ((item.mask & LVIF_STATE) != 0)
        rows_.SetState(item.iItem, item.state, item.stateMask);
    Changed();
    return TRUE;
}

LRESULT ListView::GetText(int row, LVITEMW& item) const {
    if (!rows_.Has(row) || !item.pszText || item.cchTextMax <= 0)
        return 0;
    const std::wstring text = rows_.Cell(row, item.iSubItem);
    const std::size_t length = text.copy(item.pszText, static_cast<std::size_t>(item.cchTextMax) - 1);
    item.pszText[length] = 0;
    return static_cast<LRESULT>(length);
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
    if ((item.mask & LVIF_STATE) != 0)
        item.state = GetState(item.iItem);
    return TRUE;
}

UINT ListView::GetState(int row) const {
    return (rows_.IsSelected(row) ? LVIS_SELECTED : 0) | (rows_.Focused() == row ? LVIS_FOCUSED : 0);
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
    rows_.EnsureVisible(row, RowsShown());
    InvalidateRect(Handle(), nullptr, TRUE);
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

bool ListView::HeaderRect(int column, RECT* place) const {
    if (!place || !HasColumn(column))
        return false;
    *place = {0, 0, columns_[static_cast<std::size_t>(column)].width, HeaderHeight()};
    return true;
}

LRESULT ListView::SetState(int row, const LVITEMW& item) {
    if (row == -1)
        for (int each = 0; each < rows_.Count(); ++each)
            rows_.SetState(each, item.state, item.stateMask & LVIS_SELECTED);
    else if (rows_.Has(row))
        rows_.SetState(row, item.state, item.stateMask);
    else
        return FALSE;
    InvalidateRect(Handle(), nullptr, FALSE);
    return TRUE;
}

LRESULT ListView::SetColumnWidth(int column, int width) {
    if (!HasColumn(column))
        return FALSE;
    if (width < 0) { // to the content: the last column takes what the others leave
        RECT client;
        GetClientRect(Handle(), &client);
        width = static_cast<int>(client.right);
        for (int each = 0; each < static_cast<int>(columns_.size()); ++each)
            width -= each == column ? 0 : columns_[static_cast<std::size_t>(each)].width;
    }
    columns_[static_cast<std::size_t>(column)].width = std::max(0, width);
    InvalidateRect(Handle(), nullptr, TRUE);
    return TRUE;
}

bool ListView::SetOrder(std::span<const int> order) {
    if (!rows_.SetOrder(order))
        return false;
    InvalidateRect(Handle(), nullptr, TRUE);
    return true;
}

LRESULT ListView::ListMessage(UINT message, WPARAM wParam, LPARAM lParam) {
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
    case LVM_GETITEMSTATE:
        return GetState(row) & lParam;
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
        return ItemRect(row, Pointer<RECT>(lParam)) ? TRUE : FALSE;
    case LVM_ENSUREVISIBLE:
        return EnsureVisible(row);
    case LVM_ORDERITEMS:
        return SetOrder({Pointer<const int>(lParam), lParam ? wParam : 0}) ? TRUE : FALSE;
    case LVM_INSERTCOLUMNW:
        return lParam ? InsertColumn(row, *Pointer<const LVCOLUMNW>(lParam)) : -1;
    case LVM_SETCOLUMNWIDTH:
        return SetColumnWidth(row, static_cast<std::int16_t>(LOWORD(static_cast<std::uintptr_t>(lParam))));
    case LVM_GETCOLUMNWIDTH:
        return HasColumn(row) ? columns_[wParam].width : 0;
    case LVM_SETEXTENDEDLISTVIEWSTYLE:
        return SetWindowLongW(Handle(), GWL_EXSTYLE, lParam);
    case LVM_SETIMAGELIST:
        return reinterpret_cast<LRESULT>(SetImages(Pointer<HIMAGELIST__>(lParam)));
    case LVM_GETHEADER:
        return reinterpret_cast<LRESULT>(Handle());
    case HeaderGetItemCount:
        return static_cast<LRESULT>(columns_.size());
    case HeaderGetItemRect:
        return HeaderRect(row, Pointer<RECT>(lParam)) ? TRUE : FALSE;
    default:
        return DefWindowProcW(Handle(), message, wParam, lParam);
    }
}

void ListView::TypeAhead(wchar_t character) {
    rows_.MoveTo(rows_.TypeAhead(character), ListViewRows::Move::Select);
    rows_.EnsureVisible(rows_.Focused(), RowsShown());
    InvalidateRect(Handle(), nullptr, FALSE);
}

ScrollBar ListView::Bar() const {
    const Window* window = FindWindowRecord(Handle());
    return {window ? ScrollBarPlace(*window) : RECT{}, rows_.Count(), RowsShown(), rows_.First()};
}

void ListView::ScrollTo(int position) {
    rows_.ScrollTo(position, RowsShown());
    InvalidateRect(Handle(), nullptr, TRUE);
}

void ListView::LookChanged(bool isFont) {
    if (isFont && !HasStyle(LVS_OWNERDRAWFIXED))
        Measure();
    Changed();
}

LRESULT ListView::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_KEYDOWN:
        KeyDown(static_cast<WORD>(wParam));
        return 0;
    case WM_CHAR:
        TypeAhead(static_cast<wchar_t>(wParam));
        return 0;
    case WM_LBUTTONDOWN:
        Click(wParam, lParam);
        return 0;
    case WM_LBUTTONDBLCLK:
        DoubleClick(lParam);
        return 0;
    case WM_RBUTTONDOWN:
        RightClick(lParam);
        return 0;
    case WM_MOUSEMOVE:
        if ((wParam & MK_CONTROL) == 0)
            DragTo(lParam);
        return 0;
    case WM_MOUSEWHEEL:
        ScrollTo(rows_.First() - static_cast<std::int16_t>(HIWORD(wParam)));
        return 0;
    case WM_SIZE:
        Measure();
        Changed();
        return 0;
    case WM_SETFONT:
    case WM_SETREDRAW:
        DefWindowProcW(Handle(), message, wParam, lParam);
        LookChanged(message == WM_SETFONT);
        return 0;
    case WM_PAINT:
        Paint(reinterpret_cast<HDC>(wParam)); // NOLINT(performance-no-int-to-ptr)
        return 0;
    default:
        return ListMessage(message, wParam, lParam);
    }
}

} // namespace device
