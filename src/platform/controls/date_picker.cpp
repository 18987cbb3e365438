#include "platform/controls/date_picker.h"

#include "platform/controls/edit_frame.h"
#include "platform/drawing/device_context.h"
#include "platform/drawing/rectangles.h"
#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/time.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/look.h"

#include <algorithm>

namespace device {

namespace {

/// -1 for what is no digit, neither the keypad's nor the locale's.
int DigitOf(wchar_t character) {
    if (character >= L'0' && character <= L'9')
        return character - L'0';
    for (WORD value = 0; value <= 9; ++value) {
        SYSTEMTIME date;
        date.wDay = value;
        if (ShortDatePartText({ShortDatePart::Kind::Day, {}, false}, date) == std::wstring_view(&character, 1))
            return value;
    }
    return -1;
}

constexpr std::size_t LongestNumber = 4; // the year's

/// The runs of digits, in the digits of numbers; nothing where one is longer than a year.
std::vector<std::wstring> NumbersOf(std::wstring_view text) {
    std::vector<std::wstring> numbers;
    bool isOpen = false;
    for (const wchar_t character : text) {
        const int digit = DigitOf(character);
        if (digit >= 0 && !isOpen)
            numbers.emplace_back();
        isOpen = digit >= 0;
        if (isOpen)
            numbers.back() += static_cast<wchar_t>(L'0' + digit);
        if (isOpen && numbers.back().size() > LongestNumber)
            return {};
    }
    return numbers;
}

} // namespace

DatePicker::DatePicker(HWND window)
    : Control(window)
    , parts_(ShortDateOrder()) {
    SYSTEMTIME today;
    GetLocalTime(&today);
    parts_.Set(today);
}

std::wstring DatePicker::Text() const {
    std::wstring text;
    for (const DateParts::Piece& piece : parts_.Pieces())
        text += piece.text;
    return text;
}

void DatePicker::KeyDown(WORD key) {
    if (const UINT message = ClipboardMessage(key)) {
        SendMessageW(Handle(), message, 0, 0);
        return;
    }
    constexpr int LastPart = 3;
    switch (key) {
    case VK_LEFT:
        parts_.Choose(Part() - 1);
        break;
    case VK_RIGHT:
        parts_.Choose(Part() + 1);
        break;
    case VK_HOME:
        parts_.Choose(1);
        break;
    case VK_END:
        parts_.Choose(LastPart);
        break;
    default:
        return;
    }
    Redraw();
}

void DatePicker::Character(wchar_t character) {
    if (character == L'+' || character == L'-')
        parts_.Step(character == L'+' ? 1 : -1);
    else if (const int digit = DigitOf(character); digit >= 0)
        parts_.Type(digit);
    else
        return;
    Redraw();
}

// A whole date is taken or nothing: in the order shown or, with the year first, as year, month and day.
void DatePicker::Paste(std::wstring_view text) {
    using Kind = ShortDatePart::Kind;
    const std::vector<std::wstring> numbers = NumbersOf(text);
    std::vector<Kind> order = {Kind::Year, Kind::Month, Kind::Day};
    if (numbers.size() == order.size() && numbers.front().size() < LongestNumber) {
        order.clear();
        for (const ShortDatePart& part : ShortDateOrder())
            if (part.kind != Kind::Literal)
                order.push_back(part.kind);
    }
    SYSTEMTIME date = parts_.Get();
    for (std::size_t index = 0; index < std::min(numbers.size(), order.size()); ++index) {
        WORD& part = order[index] == Kind::Year ? date.wYear : order[index] == Kind::Month ? date.wMonth : date.wDay;
        part = static_cast<WORD>(std::stoi(numbers[index]));
    }
    if (numbers.size() == order.size() && parts_.Set(date))
        Redraw();
    else
        MessageBeep(static_cast<UINT>(-1));
}

void DatePicker::LeftPress(POINT point, WPARAM /*keys*/) {
    for (const bool up : {false, true}) {
        if (Contains(StepPlace(up), point)) {
            parts_.Step(up ? 1 : -1);
            Redraw();
            return;
        }
    }
    const std::vector<DateParts::Piece> pieces = parts_.Pieces();
    const std::vector<RECT> places = PiecePlaces(pieces);
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        if (pieces[index].part > 0 && point.x >= places[index].left && point.x < places[index].right) {
            parts_.Choose(pieces[index].part);
            Redraw();
            return;
        }
    }
}

LRESULT DatePicker::SetDate(LRESULT validity, const SYSTEMTIME* date) {
    if (validity != GDT_VALID || !date || !parts_.Set(*date))
        return FALSE;
    Redraw();
    return TRUE;
}

LRESULT DatePicker::GetDate(SYSTEMTIME* date) const {
    if (date)
        *date = parts_.Get();
    return GDT_VALID;
}

// Without a former owner the focus comes back from another top-level window: the picker was not left.
void DatePicker::Enter(bool hasFormerOwner) {
    if (hasFormerOwner)
        parts_.Choose(1);
}

void DatePicker::Leave() {
    parts_.Settle();
    Redraw();
}

LRESULT DatePicker::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case DTM_SETSYSTEMTIME:
        return SetDate(static_cast<LRESULT>(wParam), Pointer<const SYSTEMTIME>(lParam));
    case DTM_GETSYSTEMTIME:
        return GetDate(Pointer<SYSTEMTIME>(lParam));
    case WM_SETTEXT:
        return FALSE; // the text is the date's
    case WM_SETFOCUS:
        Enter(wParam != 0);
        return 0;
    case WM_KILLFOCUS:
        Leave();
        return 0;
    case WM_COPY:
        Desktop::The().StoreText(Clipboard::Copied, Text());
        return 0;
    case WM_PASTE:
        Paste(lParam ? Pointer<const wchar_t>(lParam) : Desktop::The().StoredText(Clipboard::Copied));
        return 0;
    default:
        return Control::Message(message, wParam, lParam);
    }
}

// Layout and painting

std::vector<RECT> DatePicker::PiecePlaces(const std::vector<DateParts::Piece>& pieces) const {
    TextMeasurer& measurer = Desktop::The().Screen().Measurer();
    const LONG height = TextHeight();
    const LONG top = (Client().bottom - height) / 2;
    LONG left = FieldPadding();
    std::vector<RECT> places;
    for (const DateParts::Piece& piece : pieces) {
        const LONG right = left + measurer.Width(Font(), piece.text);
        places.push_back({left, top, right, top + height});
        left = right;
    }
    return places;
}

RECT DatePicker::StepPlace(bool up) const {
    const RECT client = Client();
    const LONG right = client.right - (up ? 0 : TouchTarget());
    return {right - TouchTarget(), 0, right, client.bottom};
}

void DatePicker::PaintSteps(HDC context) const {
    Canvas& canvas = ContextCanvas(context);
    for (const bool up : {false, true}) {
        const RECT place = ToCanvas(context, StepPlace(up));
        canvas.Fill(place, GetSysColor(COLOR_3DFACE));
        const LONG arrow = up ? -Scaled(5) : Scaled(5);
        const POINT middle{(place.left + place.right) / 2, (place.top + place.bottom - arrow) / 2};
        const POINT shape[]
            = {{middle.x - Scaled(5), middle.y}, {middle.x + Scaled(5), middle.y}, {middle.x, middle.y + arrow}};
        canvas.Polygon(shape, GetSysColor(COLOR_WINDOWTEXT));
    }
}

bool DatePicker::DescribeField(ShownField& field) const {
    field.kind = ShownField::Kind::Date;
    field.text = Text();
    return true;
}

void DatePicker::Paint(HDC context) {
    const RECT client = Client();
    const bool focused = GetFocus() == Handle();
    const bool enabled = IsWindowEnabled(Handle()) != FALSE;
    FillRect(context, &client, GetSysColorBrush(COLOR_WINDOW));
    const std::vector<DateParts::Piece> pieces = parts_.Pieces();
    const std::vector<RECT> places = PiecePlaces(pieces);
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        RECT place = places[index];
        const bool chosen = focused && pieces[index].part == Part();
        if (chosen)
            FillRect(context, &place, GetSysColorBrush(COLOR_HIGHLIGHT));
        SetTextColor(context, GetSysColor(chosen ? COLOR_HIGHLIGHTTEXT : enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
        DrawTextW(context, pieces[index].text.c_str(), -1, &place, DT_SINGLELINE | DT_NOPREFIX);
    }
    if (TouchTarget() > 0)
        PaintSteps(context);
}

void DatePicker::PaintFrame(Canvas& canvas, const RECT& place) {
    PaintFieldFrame(canvas, place, GetFocus() == Handle());
}

} // namespace device
