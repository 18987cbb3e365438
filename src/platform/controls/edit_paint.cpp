#include "platform/controls/edit.h"

#include "platform/controls/edit_frame.h"
#include "platform/drawing/device_context.h"
#include "platform/windowing/desktop.h"

#include <algorithm>

namespace device {

void Edit::Layout() {
    Window* window = FindWindowRecord(Handle());
    if (!window || !Desktop::The().IsOn())
        return;
    EditLayout::Frame frame{&Desktop::The().Screen().Measurer(), Font(),
        {window->place.right - window->place.left, window->place.bottom - window->place.top}, FieldPadding(),
        IsMultiline()};
    if (IsMultiline() && HasStyle(WS_VSCROLL)) {
        // The width without a bar decides, so that it does not come and go by its own doing.
        const LONG bar = EditLayout::FitsIn(frame, text_.Text()) ? 0 : GetSystemMetrics(SM_CXVSCROLL);
        const bool caretMoved = caretMoved_;
        SetInsets(*window, {0, 0, bar, 0});
        caretMoved_ = caretMoved; // by nobody, though the window hears of a new size
    }
    frame.client = {Client().right, Client().bottom};
    layout_.Update(frame, text_.Text());
}

void Edit::PaintLine(HDC context, std::size_t line, bool focused) const {
    const RECT client = Client();
    const POINT at = layout_.LinePlace(line);
    const std::wstring text(layout_.LineText(line));
    RECT place{at.x, at.y, client.right, client.bottom};
    constexpr UINT Format = DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP;
    SetTextColor(context, GetSysColor(IsWindowEnabled(Handle()) ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &place, Format);
    const RECT selected = layout_.SelectionPlace(line, text_.Start(), text_.End());
    if (!focused || IsRectEmpty(selected))
        return;
    // The same run once more, so that letters that join keep their shapes at the edge of the selection.
    const int saved = SaveDC(context);
    ClipContext(context, selected);
    FillRect(context, &selected, GetSysColorBrush(COLOR_HIGHLIGHT));
    SetTextColor(context, GetSysColor(COLOR_HIGHLIGHTTEXT));
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &place, Format);
    RestoreDC(context, saved);
}

void Edit::Paint(HDC context) {
    Layout();
    const RECT client = Client();
    const bool focused = GetFocus() == Handle();
    FillRect(context, &client, GetSysColorBrush(IsReadOnly() ? COLOR_3DFACE : COLOR_WINDOW));
    if (layout_.Lines().empty())
        return;
    const LONG padding = FieldPadding();
    const int saved = SaveDC(context);
    ClipContext(context, {padding / 2, IsMultiline() ? padding / 2 : 0, client.right - padding / 2, client.bottom});
    for (auto line = static_cast<std::size_t>(layout_.FirstLine()); line < layout_.Lines().size(); ++line) {
        if (layout_.LinePlace(line).y >= client.bottom)
            break;
        PaintLine(context, line, focused);
    }
    if (focused) {
        const std::size_t line = layout_.LineOf(text_.Caret());
        const LONG x = layout_.CaretX(line, text_.Caret());
        const LONG top = layout_.LinePlace(line).y;
        const RECT caret{x, top, x + std::min(Scaled(1), 2), top + layout_.LineHeight()};
        FillRect(context, &caret, GetSysColorBrush(COLOR_WINDOWTEXT));
    }
    RestoreDC(context, saved);
}

ScrollBar Edit::Bar() const {
    const Window* window = FindWindowRecord(Handle());
    // A text that was never laid out has no bar yet.
    if (!window || window->insets.right <= 0)
        return {};
    return {
        ScrollBarPlace(*window), static_cast<int>(layout_.Lines().size()), layout_.LinesShown(), layout_.FirstLine()};
}

void Edit::ScrollTo(int position) {
    Settle();
    layout_.ScrollBy(position - layout_.FirstLine());
    Redraw();
}

void Edit::PaintFrame(Canvas& canvas, const RECT& place) {
    PaintFieldFrame(canvas, place, GetFocus() == Handle());
}

} // namespace device
