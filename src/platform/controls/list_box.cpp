#include "platform/controls/list_box.h"

#include "platform/controls/collation.h"
#include "platform/controls/up_down.h"
#include "platform/dialog.h"
#include "platform/drawing/device_context.h"
#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/look.h"

#include <algorithm>

namespace device {

bool ListBox::IsSpinner() const {
    return UpDown::PartnerOf(Handle(), UDS_HORZ) != nullptr;
}

int ListBox::SortedPlace(const std::wstring& text) const {
    const auto place = std::upper_bound(rows_.begin(), rows_.end(), text,
        [](const std::wstring& added, const Row& row) { return IsBefore(added, row.text.c_str()); });
    return static_cast<int>(place - rows_.begin());
}

int ListBox::Insert(int index, const wchar_t* text) {
    if (index < 0)
        index = Count();
    if (index > Count())
        return static_cast<int>(LB_ERR);
    rows_.insert(rows_.begin() + index, Row{text, 0});
    if (selected_ >= index)
        ++selected_;
    Changed();
    return index;
}

LRESULT ListBox::Remove(WPARAM index) {
    if (!IsRow(index))
        return LB_ERR;
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index));
    if (selected_ == static_cast<int>(index))
        selected_ = -1;
    else if (selected_ > static_cast<int>(index))
        --selected_;
    Changed();
    return Count();
}

LRESULT ListBox::Select(int index) {
    if (index < -1 || index >= Count()) {
        selected_ = -1;
        Changed();
        return LB_ERR;
    }
    selected_ = index;
    Changed();
    return index;
}

void ListBox::Changed() {
    const int shown = RowsShown();
    if (selected_ >= 0)
        first_ = std::clamp(first_, selected_ - shown + 1, selected_);
    ScrollTo(first_);
    if (Window* window = FindWindowRecord(Handle())) {
        const bool bar = HasStyle(WS_VSCROLL) && !IsSpinner() && Count() > shown;
        SetInsets(*window, {0, 0, bar ? GetSystemMetrics(SM_CXVSCROLL) : 0, 0});
    }
}

ScrollBar ListBox::Bar() const {
    const Window* window = FindWindowRecord(Handle());
    return {window ? ScrollBarPlace(*window) : RECT{}, Count(), RowsShown(), first_};
}

void ListBox::ScrollTo(int position) {
    hidden_ = 0;
    first_ = std::clamp(position, 0, std::max(0, Count() - RowsShown()));
    Redraw();
}

bool ListBox::Pan(int pixels) {
    if (IsSpinner() || Count() <= RowsShown())
        return false;
    PanRows(pixels, RowHeight(), Count() - RowsShown(), first_, hidden_);
    Redraw();
    return true;
}

bool ListBox::IsChosen(POINT point) const {
    return !IsSpinner() && selected_ >= 0 && RowAt(point) == selected_;
}

void ListBox::Step(int step, bool wrap) {
    if (Count() == 0)
        return;
    int index = selected_ + step;
    if (selected_ < 0)
        index = step > 0 ? 0 : Count() - 1;
    else if (wrap)
        index = (index + Count()) % Count();
    index = std::clamp(index, 0, Count() - 1);
    if (index != selected_)
        Select(index);
}

void ListBox::KeyDown(WORD key) {
    if (IsSpinner()) {
        if (key == VK_LEFT || key == VK_RIGHT)
            Step(key == VK_LEFT ? -1 : 1, true);
        return;
    }
    const std::pair<WORD, int> steps[] = {{VK_UP, -1}, {VK_DOWN, 1}, {VK_PRIOR, -RowsShown()}, {VK_NEXT, RowsShown()},
        {VK_HOME, -Count()}, {VK_END, Count()}};
    for (const auto& [each, step] : steps)
        if (each == key)
            Step(step, false);
}

void ListBox::Character(wchar_t character) {
    const int row = NextBeginningWith(character, Count(), selected_,
        [this](int index) { return rows_[static_cast<std::size_t>(index)].text.c_str(); });
    if (row >= 0 && row != selected_)
        Select(row);
}

int ListBox::RowAt(POINT point) const {
    const int row = first_ + ((static_cast<int>(point.y) + hidden_) / RowHeight());
    return IsRow(static_cast<WPARAM>(row)) ? row : -1;
}

void ListBox::LeftPress(POINT point, WPARAM /*keys*/) {
    if (IsSpinner())
        Step(point.x < Client().right / 2 ? -1 : 1, true);
    else if (const int row = RowAt(point); row >= 0 && row != selected_)
        Select(row);
}

// A row that is chosen twice is taken, as the Action key takes it.
void ListBox::DoubleClick(POINT point) {
    LeftPress(point, 0);
    if (!IsSpinner() && RowAt(point) >= 0)
        PostMessageW(Handle(), WM_KEYDOWN, VK_RETURN, 0);
}

void ListBox::RightPress(POINT point) {
    if (!IsSpinner())
        LeftPress(point, 0);
}

// A spinner that is passed on the way through a form keeps its value.
bool ListBox::Wheel(int lines) {
    if (!IsSpinner())
        ScrollTo(first_ - lines);
    else if (GetFocus() == Handle())
        Step(lines > 0 ? -1 : 1, false);
    else
        return false;
    return true;
}

LRESULT ListBox::Add(const wchar_t* text) {
    return Insert(HasStyle(LBS_SORT) ? SortedPlace(text) : -1, text);
}

void ListBox::Clear() {
    rows_.clear();
    selected_ = -1;
    first_ = 0;
    Changed();
}

LRESULT ListBox::CopyText(std::size_t row, wchar_t* buffer) const {
    if (!IsRow(row) || !buffer)
        return LB_ERR;
    const std::wstring& text = rows_[row].text;
    buffer[text.copy(buffer, text.size())] = 0;
    return static_cast<LRESULT>(text.size());
}

LRESULT ListBox::SetData(std::size_t row, LPARAM data) {
    if (!IsRow(row))
        return LB_ERR;
    rows_[row].data = data;
    return 0;
}

LRESULT ListBox::WantedKeys(const MSG* pending) const {
    const bool vertical = pending && (pending->wParam == VK_UP || pending->wParam == VK_DOWN);
    return DLGC_WANTCHARS | (IsSpinner() && vertical ? 0 : DLGC_WANTARROWS);
}

LRESULT ListBox::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case LB_ADDSTRING:
        return Add(TextAt(lParam));
    case LB_INSERTSTRING:
        return Insert(static_cast<int>(wParam), TextAt(lParam));
    case LB_DELETESTRING:
        return Remove(wParam);
    case LB_RESETCONTENT:
        Clear();
        return 0;
    case LB_SETCURSEL:
        return Select(static_cast<int>(wParam));
    case LB_GETCURSEL:
        return selected_;
    case LB_GETCOUNT:
        return Count();
    case LB_GETTEXTLEN:
        return IsRow(wParam) ? static_cast<LRESULT>(rows_[wParam].text.size()) : LB_ERR;
    case LB_GETTEXT:
        return CopyText(wParam, Pointer<wchar_t>(lParam));
    case LB_SETITEMDATA:
        return SetData(wParam, lParam);
    case LB_GETITEMDATA:
        return IsRow(wParam) ? rows_[wParam].data : LB_ERR;
    default:
        return DefWindowProcW(Handle(), message, wParam, lParam);
    }
}

// Layout and painting

int ListBox::RowHeight() const {
    return std::max(TextHeight() + Scaled(4), TouchTarget());
}

int ListBox::RowsShown() const {
    return std::max(1, static_cast<int>(Client().bottom) / RowHeight());
}

/// What an arrow of a spinner takes of its width.
int ListBox::ArrowRoom() {
    return std::max(Scaled(16), TouchTarget());
}

/// They stand on grounds of their own, so that one sees which key does what before the spinner has the focus.
void ListBox::PaintArrows(Canvas& canvas, const RECT& place, COLORREF color, bool focused) {
    const LONG room = ArrowRoom();
    if (!focused) {
        canvas.Fill({place.left, place.top, place.left + room, place.bottom}, GetSysColor(COLOR_3DFACE));
        canvas.Fill({place.right - room, place.top, place.right, place.bottom}, GetSysColor(COLOR_3DFACE));
    }
    const LONG middle = (place.top + place.bottom) / 2;
    const LONG arrow = Scaled(5);
    const LONG left = place.left + (room - arrow) / 2;
    const LONG right = place.right - (room - arrow) / 2;
    const POINT toLeft[] = {{left, middle}, {left + arrow, middle - arrow}, {left + arrow, middle + arrow}};
    const POINT toRight[] = {{right, middle}, {right - arrow, middle - arrow}, {right - arrow, middle + arrow}};
    canvas.Polygon(toLeft, color);
    canvas.Polygon(toRight, color);
}

void ListBox::PaintSpinner(HDC context, const RECT& client) const {
    const bool focused = GetFocus() == Handle();
    Canvas& canvas = ContextCanvas(context);
    const RECT place = ToCanvas(context, client);
    canvas.SetMarks(ContextMarks(context));
    canvas.Fill(place, focused ? GetSysColor(COLOR_HIGHLIGHT) : GetSysColor(COLOR_WINDOW));
    const COLORREF color = GetSysColor(focused ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT);
    PaintArrows(canvas, place, color, focused);
    if (selected_ < 0)
        return;
    SetTextColor(context, color);
    RECT inner{ArrowRoom(), 0, client.right - ArrowRoom(), client.bottom};
    DrawTextW(context, rows_[static_cast<std::size_t>(selected_)].text.c_str(), -1, &inner,
        DT_SINGLELINE | DT_VCENTER | DT_CENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void ListBox::PaintRows(HDC context, const RECT& client) const {
    FillRect(context, &client, GetSysColorBrush(COLOR_WINDOW));
    const int height = RowHeight();
    PaintMarks marks = ContextMarks(context);
    for (int index = first_; index < Count(); ++index) {
        const LONG top = (index - first_) * height - hidden_;
        if (top >= client.bottom)
            break;
        RECT row{0, top, client.right, top + height};
        const bool selected = index == selected_;
        if (selected)
            FillRect(context, &row, GetSysColorBrush(COLOR_HIGHLIGHT));
        SetTextColor(context, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
        marks.selected = selected;
        SetContextMarks(context, marks);
        row.left += Scaled(6);
        row.right -= Scaled(4);
        DrawTextW(context, rows_[static_cast<std::size_t>(index)].text.c_str(), -1, &row,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
}

void ListBox::Paint(HDC context) {
    if (IsSpinner())
        PaintSpinner(context, Client());
    else
        PaintRows(context, Client());
}

void ListBox::PaintFrame(Canvas& canvas, const RECT& place) {
    if (IsSpinner())
        canvas.Frame(place, MenuEdgeColor, 1);
}

} // namespace device
