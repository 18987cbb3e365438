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

constexpr int DigitItems = 9; // the keypad's digits from 1 on

/// The number that an item's digit key has among those that can be chosen by digit; 0 for none.
int DigitOf(const std::vector<MenuItem>& items, int index) {
    int digit = 0;
    for (int each = 0; each <= index; ++each)
        if (!items[static_cast<std::size_t>(each)].separator)
            ++digit;
    return digit <= DigitItems ? digit : 0;
}

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
    if (index < 0 || index >= static_cast<int>(Popup().Items().size()))
        return false;
    const MenuItem& item = Popup().Items()[static_cast<std::size_t>(index)];
    return !item.separator && !item.grayed;
}

bool OpenMenu::CanChoose(POINT point) const {
    return CanChoose(ItemAt(point));
}

OpenMenu::Outcome OpenMenu::Choose(int index) {
    if (!CanChoose(index))
        return Outcome::Open;
    MenuItem& item = levels_.back().popup->Items()[static_cast<std::size_t>(index)];
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
    const Level& level = levels_.back();
    const auto& items = level.popup->Items();
    const bool onPopup = level.focused >= 0 && items[static_cast<std::size_t>(level.focused)].popup;
    switch (key) {
    case VK_UP:
        Move(-1);
        return Outcome::Open;
    case VK_DOWN:
        Move(1);
        return Outcome::Open;
    case VK_RIGHT:
        return onPopup ? Choose(level.focused) : Outcome::Open;
    case VK_LEFT:
        if (levels_.size() > 1)
            CloseInner();
        return Outcome::Open;
    case VK_RETURN:
        return Choose(level.focused);
    case VK_ESCAPE:
        if (levels_.size() == 1)
            return Outcome::Closed;
        CloseInner();
        return Outcome::Open;
    case VK_TSOFT1:
    case VK_TSOFT2: {
        const bool left = key == VK_TSOFT1;
        return left != left_ && bar_.At(left).popup ? Outcome::Switched : Outcome::Closed;
    }
    case VK_APPS:
        return Outcome::Closed;
    default:
        return Outcome::Open;
    }
}

OpenMenu::Outcome OpenMenu::PressMouse(POINT point) {
    const SIZE screen = ScreenSize();
    if (point.y >= screen.cy - SoftKeyBarHeight()) {
        const bool left = point.x < screen.cx / 2;
        return left != left_ && bar_.At(left).popup ? Outcome::Switched : Outcome::Closed;
    }
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

OpenMenu::Outcome OpenMenu::Handle(const InputEvent& event) {
    const POINT point{event.x, event.y};
    wchar_t character = 0;
    if (event.kind != InputEvent::Kind::MouseMove)
        Desktop::The().InvalidateAll();
    switch (event.kind) {
    case InputEvent::Kind::KeyDown:
        character = event.character;
        if (character < L'1' || character > L'9')
            return HandleKey(event.key);
        break;
    case InputEvent::Kind::Text:
        character = event.character;
        break;
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
    default:
        return Outcome::Open;
    }
    const auto& items = Popup().Items();
    for (int index = 0; index < static_cast<int>(items.size()); ++index) {
        const int digit = items[static_cast<std::size_t>(index)].separator ? 0 : DigitOf(items, index);
        if (digit != 0 && character == L'0' + digit)
            return Choose(index);
    }
    return Outcome::Open;
}

// Layout and painting

int OpenMenu::RowHeight(const MenuItem& item) const {
    if (item.separator)
        return Scaled(7);
    return Desktop::The().Screen().Measurer().Metrics(MenuFont()).Height() + Scaled(6);
}

RECT OpenMenu::Place() const {
    const RECT area = Desktop::The().WorkArea();
    const auto& items = Popup().Items();
    LONG height = 2 * Scaled(2);
    LONG width = 0;
    TextMeasurer& measurer = Desktop::The().Screen().Measurer();
    for (int index = 0; index < static_cast<int>(items.size()); ++index) {
        height += RowHeight(items[static_cast<std::size_t>(index)]);
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
    const RECT place = Place();
    const auto& items = Popup().Items();
    LONG room = place.bottom - place.top - (2 * Scaled(2));
    int count = 0;
    for (auto index = static_cast<std::size_t>(FirstShown()); index < items.size(); ++index, ++count) {
        room -= RowHeight(items[index]);
        if (room < 0)
            break;
    }
    return std::max(count, 1);
}

void OpenMenu::ShowFocused() {
    Level& level = levels_.back();
    level.first = std::clamp(level.first, 0, std::max(level.focused, 0));
    while (level.focused >= level.first + CountShown())
        ++level.first;
}

std::vector<RECT> OpenMenu::ItemPlaces() const {
    const RECT place = Place();
    const auto& items = Popup().Items();
    std::vector<RECT> places(items.size());
    const auto end = std::min(items.size(), static_cast<std::size_t>(FirstShown() + CountShown()));
    LONG top = place.top + Scaled(2);
    for (auto index = static_cast<std::size_t>(FirstShown()); index < end; ++index) {
        places[index] = {place.left, top, place.right, top + RowHeight(items[index])};
        top = places[index].bottom;
    }
    return places;
}

int OpenMenu::ItemAt(POINT point) const {
    const std::vector<RECT> places = ItemPlaces();
    const auto hit
        = std::find_if(places.begin(), places.end(), [&](const RECT& place) { return Contains(place, point); });
    return hit == places.end() ? -1 : static_cast<int>(hit - places.begin());
}

std::wstring OpenMenu::PaintedText(int index) const {
    const auto& items = Popup().Items();
    const MenuItem& item = items[static_cast<std::size_t>(index)];
    std::wstring text;
    if (const int digit = DigitOf(items, index))
        text = std::to_wstring(digit) + L" ";
    if (item.checked)
        text += L"\u2713 ";
    text += item.text;
    if (item.popup)
        text += L" \u25B8";
    return text;
}

void OpenMenu::Paint(Canvas& canvas) const {
    const RECT place = Place();
    canvas.SetMarks({});
    canvas.Fill(place, MenuColor);
    canvas.PushClip(place);
    const std::vector<RECT> places = ItemPlaces();
    for (int index = 0; index < static_cast<int>(places.size()); ++index) {
        const MenuItem& item = Popup().Items()[static_cast<std::size_t>(index)];
        const RECT& row = places[static_cast<std::size_t>(index)];
        if (IsRectEmpty(row))
            continue;
        if (item.separator) {
            const LONG middle = (row.top + row.bottom) / 2;
            canvas.Line({place.left + Scaled(6), middle}, {place.right - Scaled(6), middle}, MenuEdgeColor, 1);
        } else {
            const bool focused = index == Focused();
            if (focused)
                canvas.Fill(row, GetSysColor(COLOR_HIGHLIGHT));
            const COLORREF color = item.grayed ? GetSysColor(COLOR_GRAYTEXT)
                : focused                      ? GetSysColor(COLOR_HIGHLIGHTTEXT)
                                               : GetSysColor(COLOR_WINDOWTEXT);
            PaintMarks marks;
            marks.role = PaintMarks::Role::Menu;
            marks.selected = focused;
            marks.greyed = item.grayed;
            canvas.SetMarks(marks);
            const int room = static_cast<int>(place.right - place.left) - Scaled(16);
            canvas.Text(row.left + Scaled(8), row.top + Scaled(3),
                EllipsisText(canvas.Measurer(), MenuFont(), PaintedText(index), room), MenuFont(), color);
        }
    }
    canvas.SetMarks({});
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
