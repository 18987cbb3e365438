#include "platform/windowing/open_menu.h"

#include "platform/drawing/rectangles.h"
#include "platform/input.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/look.h"
#include "platform/windowing/soft_key_bar.h"

#include <algorithm>
#include <array>
#include <utility>

namespace device {

namespace {

FontDescription MenuFont() {
    return DeviceFont(10, false);
}

/// An arrow that says that there are more items than show; `tip` is its height, downwards above 0.
void PaintMore(Canvas& canvas, POINT middle, int tip) {
    const POINT shape[]
        = {{middle.x - Scaled(4), middle.y}, {middle.x + Scaled(4), middle.y}, {middle.x, middle.y + tip}};
    canvas.Polygon(shape, MenuEdgeColor);
}

constexpr int DigitItems = 9; // the keypad's digits from 1 on

} // namespace

OpenMenu::OpenMenu(SoftKeyBar& bar, bool left, std::optional<POINT> at)
    : bar_(bar)
    , left_(left)
    , at_(at) {
    Open(*bar.At(left).popup);
}

HWND OpenMenu::Owner() const {
    return bar_.Owner();
}

void OpenMenu::Open(PopupMenu& popup) {
    SendMessageW(
        bar_.Owner(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup.Handle()), static_cast<LPARAM>(levels_.size()));
    levels_.push_back({&popup, popup.NextEnabled(0, 1)});
    Desktop::The().StopRepeats();
    ShowFocused();
}

void OpenMenu::CloseInner() {
    levels_.pop_back();
    Desktop::The().StopRepeats();
}

bool OpenMenu::CanChoose(int index) const {
    return index >= 0 && index < CountItems() && Item(index).CanBeChosen();
}

/// The digit key that chooses an item; 0 for none.
int OpenMenu::DigitOf(int index) const {
    int digit = 0;
    for (int each = 0; each <= index; ++each)
        digit += Item(each).separator ? 0 : 1;
    return Item(index).separator || digit > DigitItems ? 0 : digit;
}

bool OpenMenu::CanChoose(POINT point) const {
    return CanChoose(ItemAt(point));
}

OpenMenu::Outcome OpenMenu::Choose(int index) {
    if (!CanChoose(index))
        return Outcome::Open;
    const MenuItem& item = Item(index);
    levels_.back().focused = index;
    if (item.popup) {
        Open(*item.popup);
        return Outcome::Open;
    }
    command_ = item.command;
    return Outcome::Chosen;
}

void OpenMenu::Move(int step) {
    Level& level = levels_.back();
    if (level.focused >= 0)
        level.focused = level.popup->NextEnabled(level.focused + step, step);
    ShowFocused();
}

OpenMenu::Outcome OpenMenu::HandleKey(WORD key) {
    switch (key) {
    case VK_UP:
        Move(-1);
        return Outcome::Open;
    case VK_DOWN:
        Move(1);
        return Outcome::Open;
    case VK_RIGHT:
        return Focused() >= 0 && Item(Focused()).popup ? Choose(Focused()) : Outcome::Open;
    case VK_LEFT:
        if (levels_.size() > 1)
            CloseInner();
        return Outcome::Open;
    case VK_RETURN:
        return Choose(Focused());
    case VK_ESCAPE:
        if (levels_.size() == 1)
            return Outcome::Closed;
        CloseInner();
        return Outcome::Open;
    case VK_TSOFT1:
    case VK_TSOFT2:
        return HandleSoftKey(key == VK_TSOFT1);
    case VK_APPS:
        return Outcome::Closed;
    default:
        return Outcome::Open;
    }
}

OpenMenu::Outcome OpenMenu::HandleSoftKey(bool left) const {
    return left != left_ && bar_.At(left).popup ? Outcome::Switched : Outcome::Closed;
}

OpenMenu::Outcome OpenMenu::PressMouse(POINT point) {
    if (IsOnSoftKeys(point))
        return HandleSoftKey(IsLeftSoftKey(point));
    if (!Contains(Place(), point))
        return Outcome::Closed;
    releaseChooses_ = true;
    Focus(ItemAt(point));
    return Outcome::Open;
}

void OpenMenu::Focus(int index) {
    if (!CanChoose(index) || index == Focused())
        return;
    levels_.back().focused = index;
    Desktop::The().InvalidateAll();
}

void OpenMenu::Hover(POINT point) {
    const std::optional<POINT> held = Desktop::The().TheMouse().HeldAt();
    releaseChooses_ = releaseChooses_ || (held && !IsNear(*held, point));
    Focus(ItemAt(point));
}

// The button that opened the menu chooses nothing where it comes up without having moved.
OpenMenu::Outcome OpenMenu::ReleaseMouse(POINT point) {
    return std::exchange(releaseChooses_, false) ? Choose(ItemAt(point)) : Outcome::Open;
}

OpenMenu::Outcome OpenMenu::HandleCharacter(wchar_t character) {
    for (int index = 0; index < CountItems(); ++index)
        if (DigitOf(index) != 0 && character == L'0' + DigitOf(index))
            return Choose(index);
    return Outcome::Open;
}

OpenMenu::Outcome OpenMenu::Handle(const InputEvent& event) {
    const POINT point{event.x, event.y};
    if (event.kind != InputEvent::Kind::MouseMove)
        Desktop::The().InvalidateAll();
    switch (event.kind) {
    case InputEvent::Kind::KeyDown:
        return event.character < L'1' || event.character > L'9' ? HandleKey(event.key)
                                                                : HandleCharacter(event.character);
    case InputEvent::Kind::Text:
        return HandleCharacter(event.character);
    case InputEvent::Kind::MouseDown:
        return PressMouse(point);
    case InputEvent::Kind::MouseMove:
        Hover(point);
        return Outcome::Open;
    case InputEvent::Kind::MouseUp:
        return ReleaseMouse(point);
    case InputEvent::Kind::Wheel:
        Move(event.delta > 0 ? -1 : 1);
        return Outcome::Open;
    case InputEvent::Kind::Tap: {
        const Outcome pressed = PressMouse(point);
        return pressed == Outcome::Open ? ReleaseMouse(point) : pressed;
    }
    case InputEvent::Kind::Pan:
        Pan(event.delta);
        return Outcome::Open;
    case InputEvent::Kind::Back:
        return HandleKey(VK_TBACK);
    default:
        return Outcome::Open;
    }
}

// Layout and painting

int OpenMenu::RowHeight(const MenuItem& item) const {
    if (item.separator)
        return Scaled(7);
    const int text = Desktop::The().Screen().Measurer().Metrics(MenuFont()).Height();
    return std::max(text + 2 * Scaled(3), TouchTarget());
}

RECT OpenMenu::Place() const {
    const RECT area = WorkArea();
    LONG height = 2 * Scaled(2);
    LONG width = 0;
    TextMeasurer& measurer = Desktop::The().Screen().Measurer();
    for (int index = 0; index < CountItems(); ++index) {
        height += RowHeight(Item(index));
        width = std::max<LONG>(width, measurer.Width(MenuFont(), PaintedText(index)));
    }
    width = std::min(std::max<LONG>(width + Scaled(28), (area.right - area.left) * 3 / 5), area.right - area.left);
    height = std::min(height, area.bottom - area.top);
    if (!at_) {
        const LONG x = left_ ? area.left : area.right - width;
        return {x, area.bottom - height, x + width, area.bottom};
    }
    const LONG x = std::clamp(at_->x, area.left, area.right - width);
    // Above the pointer where it has no room below it.
    const LONG top = at_->y + height <= area.bottom ? at_->y : at_->y - height;
    const LONG y = std::clamp(top, area.top, area.bottom - height);
    return {x, y, x + width, y + height};
}

int OpenMenu::CountShown() const {
    int room = HeightOf(Place()) - 2 * Scaled(2);
    int end = FirstShown();
    while (end < CountItems() && (room -= RowHeight(Item(end))) >= 0)
        ++end;
    return std::max(end - FirstShown(), 1);
}

void OpenMenu::ShowFocused() {
    Level& level = levels_.back();
    level.first = std::clamp(level.first, 0, std::max(level.focused, 0));
    while (level.focused >= level.first + CountShown())
        ++level.first;
}

std::vector<RECT> OpenMenu::ItemPlaces() const {
    const RECT place = Place();
    std::vector<RECT> places(Popup().Items().size());
    const int end = std::min(CountItems(), FirstShown() + CountShown());
    LONG top = place.top + Scaled(2);
    for (int index = FirstShown(); index < end; ++index) {
        const LONG bottom = top + RowHeight(Item(index));
        places[static_cast<std::size_t>(index)] = {place.left, top, place.right, bottom};
        top = bottom;
    }
    return places;
}

void OpenMenu::Pan(int pixels) {
    Level& level = levels_.back();
    level.panned += pixels;
    const int rows = level.panned / RowHeight(Item(0));
    level.panned -= rows * RowHeight(Item(0));
    for (int row = 0; row < rows && level.first > 0; ++row)
        --level.first;
    for (int row = 0; row > rows && level.first + CountShown() < CountItems(); --row)
        ++level.first;
}

int OpenMenu::ItemAt(POINT point) const {
    const std::vector<RECT> places = ItemPlaces();
    const auto hit
        = std::find_if(places.begin(), places.end(), [&](const RECT& place) { return Contains(place, point); });
    return hit == places.end() ? -1 : static_cast<int>(hit - places.begin());
}

std::wstring OpenMenu::PaintedText(int index) const {
    const MenuItem& item = Item(index);
    std::wstring text;
    if (const int digit = DigitOf(index))
        text = std::to_wstring(digit) + L" ";
    if (item.checked)
        text += L"\u2713 ";
    text += item.text;
    if (item.popup)
        text += L" \u25B8";
    return text;
}

void OpenMenu::PaintItem(Canvas& canvas, int index, const RECT& row) const {
    const MenuItem& item = Item(index);
    if (item.separator) {
        const LONG middle = (row.top + row.bottom) / 2;
        canvas.Line({row.left + Scaled(6), middle}, {row.right - Scaled(6), middle}, MenuEdgeColor, 1);
        return;
    }
    const bool focused = index == Focused();
    if (focused)
        canvas.Fill(row, GetSysColor(COLOR_HIGHLIGHT));
    PaintMarks marks;
    marks.role = PaintMarks::Role::Menu;
    marks.selected = focused;
    marks.greyed = item.grayed;
    canvas.SetMarks(marks);
    const int color = item.grayed ? COLOR_GRAYTEXT : focused ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT;
    const int room = static_cast<int>(row.right - row.left) - Scaled(16);
    const int margin = (HeightOf(row) - canvas.Measurer().Metrics(MenuFont()).Height()) / 2;
    canvas.Text(row.left + Scaled(8), row.top + margin,
        EllipsisText(canvas.Measurer(), MenuFont(), PaintedText(index), room), MenuFont(), GetSysColor(color));
}

void OpenMenu::Paint(Canvas& canvas) const {
    const RECT place = Place();
    canvas.SetMarks({});
    canvas.Fill(place, MenuColor);
    canvas.PushClip(place);
    const std::vector<RECT> places = ItemPlaces();
    for (int index = 0; index < CountItems(); ++index)
        if (const RECT& row = places[static_cast<std::size_t>(index)]; !IsRectEmpty(row))
            PaintItem(canvas, index, row);
    canvas.SetMarks({});
    if (FirstShown() > 0)
        PaintMore(canvas, {place.right - Scaled(10), place.top + Scaled(8)}, -Scaled(4));
    if (FirstShown() + CountShown() < CountItems())
        PaintMore(canvas, {place.right - Scaled(10), place.bottom - Scaled(8)}, Scaled(4));
    canvas.PopClip();
    canvas.Frame(place, MenuEdgeColor, 1);
}

UINT RunMenu(SoftKeyBar& bar, bool left, std::optional<POINT> at) {
    Desktop& desktop = Desktop::The();
    const HWND barWindow = bar.Handle();
    UINT command = 0;
    for (bool open = true; open;) {
        OpenMenu menu(bar, left, at);
        desktop.SetMenu(&menu);
        auto outcome = OpenMenu::Outcome::Open;
        InputEvent event;
        while (outcome == OpenMenu::Outcome::Open && desktop.NextInput(event))
            if (desktop.NoteForMenu(event))
                outcome = menu.Handle(event);
        desktop.SetMenu(nullptr);
        open = outcome == OpenMenu::Outcome::Switched && IsWindow(barWindow);
        left = open ? !left : left;
        at.reset();
        command = menu.Command();
    }
    return command;
}

} // namespace device
