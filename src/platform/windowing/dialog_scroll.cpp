#include "platform/windowing/dialog_scroll.h"

#include "platform/drawing/rectangles.h"
#include "platform/metrics.h"
#include "platform/windowing/desktop.h"

#include <algorithm>

namespace device {

namespace {

int ContentHeight(const Window& dialog) {
    LONG bottom = 0;
    for (const Window* child : dialog.children)
        if (child->Has(WS_VISIBLE))
            bottom = std::max(bottom, child->place.bottom);
    return static_cast<int>(bottom) + dialog.modal->scroll + Scaled(4);
}

} // namespace

void ScrollDialog(Window& dialog, int position) {
    const int client = HeightOf(ScreenClient(dialog));
    position = std::clamp(position, 0, std::max(0, ContentHeight(dialog) - client));
    const LONG move = dialog.modal->scroll - position;
    if (move == 0)
        return;
    dialog.modal->scroll = position;
    for (Window* child : dialog.children) {
        child->place.top += move;
        child->place.bottom += move;
    }
    InvalidateRect(dialog.handle, nullptr, TRUE);
}

bool ScrollToHidden(Window& dialog, int step) {
    const int hidden = step < 0 ? dialog.modal->scroll
                                : ContentHeight(dialog) - HeightOf(ScreenClient(dialog)) - dialog.modal->scroll;
    if (hidden <= Scaled(8))
        return false;
    ScrollDialog(dialog, dialog.modal->scroll + (step * Scaled(24)));
    return true;
}

void ShowDialogControl(Window& dialog, const Window& control) {
    if (!dialog.modal || control.parent != &dialog)
        return;
    LONG top = control.place.top;
    LONG labelTop = top;
    for (const Window* child : dialog.children) {
        const bool isAbove = child->control && !child->control->TakesFocus() && child->Has(WS_VISIBLE)
            && child->place.bottom <= top + Scaled(2) && child->place.top < top;
        if (isAbove)
            labelTop = labelTop == top ? child->place.top : std::max(labelTop, child->place.top);
    }
    const int client = HeightOf(ScreenClient(dialog));
    const int scroll = dialog.modal->scroll;
    const int margin = Scaled(4);
    int position = scroll;
    if (control.place.bottom + margin > client)
        position = scroll + static_cast<int>(control.place.bottom) + margin - client;
    if (labelTop - (position - scroll) < 0)
        position = scroll + static_cast<int>(labelTop) - Scaled(2);
    ScrollDialog(dialog, position);
}

void UpdateDialogScroll(Window& dialog) {
    if (!dialog.modal)
        return;
    const int height = HeightOf(dialog.place);
    const bool needed = dialog.Has(WS_VSCROLL) && ContentHeight(dialog) > height;
    ScrollDialog(dialog, needed ? dialog.modal->scroll : 0);
    SetInsets(dialog, {0, 0, needed ? GetSystemMetrics(SM_CXVSCROLL) : 0, 0});
}

ScrollBar DialogScrollBar(const Window& dialog) {
    return {ScrollBarPlace(dialog), ContentHeight(dialog), HeightOf(ScreenClient(dialog)), dialog.modal->scroll};
}

} // namespace device
