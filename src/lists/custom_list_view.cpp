#include "lists/custom_list_view.h"

#include "lists/client_context.h"
#include "platform/metrics.h"
#include "platform/wait_cursor.h"
#include "records/data_layer.h"
#include "resources/ids.h"
#include "resources/load_text.h"
#include "settings/app_settings.h"

#include <new>

namespace {

constexpr LONG EmptyTextTop = 10; ///< below the header, in pixels

} // namespace

CCustomListView::CCustomListView()
    : imageList_(ImageList_Create(theSettings.SmallIconSize, theSettings.SmallIconSize, ILC_COLOR32 | ILC_MASK, 1, 1)) {
}

CCustomListView::~CCustomListView() {
    if (!imageList_)
        return;
    ImageList_RemoveAll(imageList_);
    ImageList_Destroy(imageList_);
}

// Messages

LRESULT CCustomListView::ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (DispatchReflected(message, wParam, lParam, result))
        return result;
    if (message == WM_ERASEBKGND && DrawEmptyText(reinterpret_cast<HDC>(wParam)))
        return 1;
    result = DefaultMessage(message, wParam, lParam);
    if (message == WM_SIZE)
        OnSize();
    return result;
}

bool CCustomListView::DispatchReflected(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message < OCM_BASE || message >= OCM_BASE + WM_USER)
        return false;
    result = TRUE;
    switch (message - OCM_BASE) {
    case WM_DRAWITEM:
        DrawItem(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        break;
    case WM_MEASUREITEM:
        MeasureItem(reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
        break;
    case WM_DELETEITEM:
    case WM_COMPAREITEM:
        break;
    default:
        result = DefWindowProcW(GetHandle(), message - OCM_BASE, wParam, lParam);
        break;
    }
    return true;
}

bool CCustomListView::DrawEmptyText(HDC context) const {
    if (GetRowCount() > 0)
        return false;
    const int state = SaveDC(context);
    RECT place = PlaceIn(GetHandle(), GetHandle());
    FillRect(context, &place, GetSysColorBrush(COLOR_WINDOW));
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(context, GetSysColor(COLOR_WINDOW));
    const auto header = reinterpret_cast<HWND>(SendMessageW(GetHandle(), LVM_GETHEADER, 0, 0));
    RECT firstColumn;
    if (header && SendMessageW(header, HDM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&firstColumn)))
        place.top += firstColumn.bottom;
    place.top += EmptyTextTop;
    SelectObject(context, GetStockObject(SYSTEM_FONT));
    DrawTextW(
        context, LoadText(strings::EmptyList).c_str(), -1, &place, DT_CENTER | DT_WORDBREAK | DT_NOCLIP | DT_NOPREFIX);
    RestoreDC(context, state);
    return true;
}

// Columns and layout

int CCustomListView::InsertColumn(int index, const wchar_t* heading, int format, int width) {
    LVCOLUMNW column;
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT;
    column.fmt = format;
    column.cx = width;
    column.pszText = const_cast<wchar_t*>(heading);
    return static_cast<int>(
        SendMessageW(GetHandle(), LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column)));
}

void CCustomListView::FitColumn(int column) {
    const auto header = reinterpret_cast<HWND>(SendMessageW(GetHandle(), LVM_GETHEADER, 0, 0));
    if (column == -1 || !header)
        return;
    RECT client;
    GetClientRect(GetHandle(), &client);
    // The message holds 16 bits of width, so that is all there is to divide.
    auto width = static_cast<WORD>(client.right);
    const auto count = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
    for (int other = 0; other < count; ++other)
        if (other != column)
            width = static_cast<WORD>(
                width - SendMessageW(GetHandle(), LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(other), 0));
    SendMessageW(GetHandle(), LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(width, 0));
}

void CCustomListView::FitColumnToHeader() {
    SendMessageW(GetHandle(), LVM_SETCOLUMNWIDTH, 0, MAKELPARAM(static_cast<unsigned>(LVSCW_AUTOSIZE_USEHEADER), 0));
}

void CCustomListView::RemeasureRows() {
    const RECT place = PlaceIn(GetParent(GetHandle()), GetHandle());
    const LONG width = place.right - place.left;
    const LONG height = place.bottom - place.top;
    MoveWindow(GetHandle(), place.left, place.top + 1, width, height - 1, TRUE);
    MoveWindow(GetHandle(), place.left, place.top, width, height, TRUE);
}

void CCustomListView::AddIcon(UINT id) {
    const HICON icon = LoadIconW(GetModuleHandleW(nullptr), id);
    ImageList_ReplaceIcon(imageList_, -1, icon);
    DestroyIcon(icon);
}

void CCustomListView::UseImageList() {
    SendMessageW(GetHandle(), LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(imageList_));
}

void CCustomListView::SetExtendedStyle(DWORD style) {
    SendMessageW(GetHandle(), LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(style));
}

void CCustomListView::RemoveHorizontalScrollBar() {
    const auto style = static_cast<DWORD>(GetWindowLongW(GetHandle(), GWL_STYLE));
    SetWindowLongW(GetHandle(), GWL_STYLE, static_cast<LONG_PTR>(style & ~WS_HSCROLL));
}

CCustomListView::CRedrawPause::CRedrawPause(CCustomListView& list)
    : list_(list) {
    SendMessageW(list_.GetHandle(), WM_SETREDRAW, FALSE, 0);
}

CCustomListView::CRedrawPause::~CRedrawPause() {
    SendMessageW(list_.GetHandle(), WM_SETREDRAW, TRUE, 0);
    list_.RedrawAll();
}

void CCustomListView::Empty(CObjectList& records) {
    records.Clear();
    SendMessageW(GetHandle(), LVM_DELETEALLITEMS, 0, 0);
}

int CCustomListView::Fill(
    CObjectList& records, const std::function<int()>& load, const std::function<void()>& addRows) {
    const CWaitCursor wait;
    Empty(records);
    const int loaded = load();
    if (!loaded) {
        if (theDataLayer.LastFailure() == StoreFailure::NoMemory)
            PostOutOfMemory(GetHandle());
        return 0;
    }
    try {
        const CRedrawPause pause(*this);
        addRows();
    } catch (const std::bad_alloc&) {
        Empty(records);
        PostOutOfMemory(GetHandle());
        return 0;
    }
    RemeasureRows();
    return loaded;
}

void CCustomListView::RedrawAll() {
    InvalidateRect(GetHandle(), nullptr, TRUE);
}

void CCustomListView::RedrawIfEmpty() {
    if (GetRowCount() == 0)
        RedrawAll();
}
