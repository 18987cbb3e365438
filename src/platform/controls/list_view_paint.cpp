#include "platform/controls/list_view.h"

#include "platform/dialog.h"
#include "platform/drawing/device_context.h"
#include "platform/metrics.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/look.h"

#include <algorithm>

namespace device {

namespace {

/// Between a cell's edge and its text: no more than it needs, for columns are narrow here.
int CellPadding() {
    return Scaled(2);
}

} // namespace

int ListView::HeaderHeight() const {
    return HasStyle(LVS_NOCOLUMNHEADER) ? 0 : TextHeight() + Scaled(6);
}

void ListView::PaintGround(HDC context) {
    const RECT client = Client();
    FillRect(context, &client, GetSysColorBrush(COLOR_WINDOW));
}

void ListView::Paint(HDC context) {
    const RECT client = Client();
    const RECT clip = ContextClip(context);
    const PaintMarks marks = ContextMarks(context);
    const bool focusShown = GetFocus() == Handle();
    for (int row = rows_.First(); row < rows_.Count(); ++row) {
        const RECT place = RowRect(row);
        const RECT onCanvas = ToCanvas(context, place);
        if (place.top >= client.bottom || onCanvas.top >= clip.bottom)
            break;
        if (onCanvas.bottom <= clip.top)
            continue;
        PaintMarks own = marks;
        own.selected = rows_.IsSelected(row);
        SetContextMarks(context, own);
        if (HasStyle(LVS_OWNERDRAWFIXED))
            AskOwnerToPaint(context, row, place);
        else
            PaintRow(context, row, place);
        if (focusShown && row == rows_.Focused() && !own.selected)
            ContextCanvas(context).Frame(onCanvas, GetSysColor(COLOR_HIGHLIGHT), 1);
    }
    SetContextMarks(context, marks);
    if (HeaderHeight() > 0) // over a row that is hidden in part
        PaintHeader(context, client);
}

void ListView::PaintHeader(HDC context, const RECT& client) const {
    const RECT header{0, 0, client.right, HeaderHeight()};
    FillRect(context, &header, GetSysColorBrush(COLOR_3DFACE));
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    LONG left = 0;
    for (const Column& column : columns_) {
        PaintCell(context, column.heading, column, {left, 0, left + column.width, header.bottom});
        left += column.width;
    }
}

void ListView::PaintCell(HDC context, const std::wstring& text, const Column& column, RECT cell) {
    cell.left += CellPadding();
    cell.right -= CellPadding();
    const UINT alignment = column.format == LVCFMT_RIGHT ? DT_RIGHT : 0;
    DrawTextW(context, text.c_str(), -1, &cell, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | alignment);
}

void ListView::AskOwnerToPaint(HDC context, int row, const RECT& place) const {
    DRAWITEMSTRUCT request;
    request.CtlType = ODT_LISTVIEW;
    request.CtlID = static_cast<UINT>(GetDlgCtrlID(Handle()));
    request.itemID = static_cast<UINT>(row);
    request.itemState = (rows_.IsSelected(row) ? ODS_SELECTED : 0) | (rows_.Focused() == row ? ODS_FOCUS : 0);
    request.hwndItem = Handle();
    request.hDC = context;
    request.rcItem = place;
    const int state = SaveDC(context);
    SendMessageW(GetParent(Handle()), WM_DRAWITEM, request.CtlID, reinterpret_cast<LPARAM>(&request));
    RestoreDC(context, state);
}

void ListView::PaintRow(HDC context, int row, const RECT& place) const {
    const bool selected = rows_.IsSelected(row);
    FillRect(context, &place, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    SetTextColor(context, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    RECT label;
    label.left = LVIR_LABEL;
    ItemRect(row, &label);
    if (images_ && rows_.At(row).image >= 0) {
        const HICON icon = ImageList_GetIcon(images_, rows_.At(row).image, 0);
        const LONG top = place.top + ((place.bottom - place.top - imageSize_) / 2);
        DrawIconEx(context, label.left - imageSize_, top, icon, imageSize_, imageSize_, 0, nullptr, DI_NORMAL);
        DestroyIcon(icon);
    }
    LONG left = 0;
    for (std::size_t index = 0; index < columns_.size(); ++index) {
        const Column& column = columns_[index];
        const RECT cell{index == 0 ? label.left : left, place.top, left + column.width, place.bottom};
        PaintCell(context, rows_.Cell(row, static_cast<int>(index)), column, cell);
        left += column.width;
    }
}

void ListView::PaintFrame(Canvas& canvas, const RECT& place) {
    if (HasStyle(WS_BORDER))
        canvas.Frame(place, MenuEdgeColor, 1);
}

} // namespace device
