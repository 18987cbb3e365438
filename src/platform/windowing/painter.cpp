#include "platform/drawing/device_context.h"
#include "platform/drawing/rectangles.h"
#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/look.h"
#include "platform/windowing/open_menu.h"
#include "platform/windowing/shown_fields.h"
#include "platform/windowing/soft_key_bar.h"

namespace device {

namespace {

void PaintWindow(Window& window, Canvas& canvas, const RECT& clip) {
    if (!window.Has(WS_VISIBLE) || !window.redraw)
        return;
    const RECT place = Intersection(ScreenPlace(window), clip);
    if (IsRectEmpty(place))
        return;
    const RECT client = ScreenClient(window);
    const RECT visible = Intersection(client, place);
    const HWND handle = window.handle;
    if (!IsRectEmpty(visible)) {
        ContextTarget target;
        target.canvas = &canvas;
        target.origin = {client.left, client.top};
        target.clip = visible;
        target.font = window.font;
        target.marks.topLevel = TopLevelOf(&window)->handle;
        target.marks.control = window.parent ? handle : nullptr;
        target.marks.focused = Desktop::The().Focus() == handle;
        target.marks.greyed = window.Has(WS_DISABLED) && window.parent;
        canvas.PushClip(visible);
        const HDC context = CreateContext(target);
        SendMessageW(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(context), 0);
        SendMessageW(handle, WM_PAINT, reinterpret_cast<WPARAM>(context), 0);
        DestroyContext(context);
        canvas.PopClip();
    }
    if (!FindWindowRecord(handle))
        return;
    canvas.PushClip(place);
    canvas.SetMarks({});
    PaintScrollBar(canvas, ScrollBarOf(window));
    if (window.control)
        window.control->PaintFrame(canvas, ScreenPlace(window));
    canvas.PopClip();
    for (Window* child : window.children)
        PaintWindow(*child, canvas, visible);
}

void PaintTitle(Canvas& canvas, const Window* front) {
    const RECT line{0, 0, ScreenSize().cx, TitleHeight()};
    canvas.SetMarks({});
    canvas.Fill(line, BarColor);
    if (!front)
        return;
    PaintMarks marks;
    marks.topLevel = front->handle;
    const FontDescription font = DeviceFont(10, true);
    TextMeasurer& measurer = canvas.Measurer();
    const int top = (TitleHeight() - measurer.Metrics(font).Height()) / 2;
    // Under fingers the end of the line is the host's, for a menu of its own.
    int right = static_cast<int>(line.right) - Scaled(6) - TouchTarget();
    const Control* focused = ControlOf(Desktop::The().Focus());
    const std::wstring_view mark = focused ? focused->InputMark() : L"";
    if (!mark.empty()) {
        const FontDescription small = DeviceFont(8, false);
        right -= measurer.Width(small, mark);
        marks.role = PaintMarks::Role::InputMode;
        canvas.SetMarks(marks);
        canvas.Text(right, (TitleHeight() - measurer.Metrics(small).Height()) / 2, mark, small, BarQuietColor);
        right -= Scaled(6);
    }
    marks.role = PaintMarks::Role::Title;
    canvas.SetMarks(marks);
    const int left = Scaled(6);
    canvas.Text(left, top, EllipsisText(measurer, font, front->text, right - left), font, BarTextColor);
}

void PaintBar(Canvas& canvas, const Window* front) {
    const SIZE screen = ScreenSize();
    const RECT bar{0, screen.cy - SoftKeyBarHeight(), screen.cx, screen.cy};
    canvas.SetMarks({});
    canvas.Fill(bar, BarColor);
    const SoftKeyBar* keys = front ? SoftKeyBar::Of(front->handle) : nullptr;
    if (!keys)
        return;
    const FontDescription font = DeviceFont(10, true);
    TextMeasurer& measurer = canvas.Measurer();
    const int half = static_cast<int>(screen.cx) / 2;
    for (const bool left : {true, false}) {
        PaintMarks marks;
        marks.topLevel = front->handle;
        marks.role = left ? PaintMarks::Role::LeftSoftKey : PaintMarks::Role::RightSoftKey;
        canvas.SetMarks(marks);
        const std::wstring text = EllipsisText(measurer, font, keys->At(left).text, half - Scaled(8));
        const int x = (left ? 0 : half) + ((half - measurer.Width(font, text)) / 2);
        const int y = static_cast<int>(bar.top) + ((SoftKeyBarHeight() - measurer.Metrics(font).Height()) / 2);
        canvas.Text(x, y, text, font, BarTextColor);
    }
    canvas.SetMarks({});
    canvas.Line({half, bar.top + Scaled(5)}, {half, bar.bottom - Scaled(5)}, BarQuietColor, 1);
}

void PaintScreen(Desktop& desktop, Canvas& canvas, const RECT& dirty) {
    canvas.BeginFrame(dirty);
    canvas.PushClip(dirty);
    const RECT area = WorkArea();
    Window* full = desktop.FrontFull();
    Window* front = desktop.Front();
    canvas.SetMarks({});
    if (full)
        PaintWindow(*full, canvas, dirty);
    else
        canvas.Fill(area, GetSysColor(COLOR_WINDOW));
    if (front && front != full) {
        canvas.SetMarks({});
        canvas.Fill(area, RGB(0, 0, 0), DimAlpha);
        PaintWindow(*front, canvas, dirty);
    }
    PaintTitle(canvas, front);
    PaintBar(canvas, front);
    if (const OpenMenu* menu = desktop.Menu())
        menu->Paint(canvas);
    canvas.PopClip();
}

} // namespace

void Desktop::PaintInvalid() {
    if (IsRectEmpty(dirty_))
        return;
    const RECT dirty = dirty_;
    dirty_ = {};
    TellTitle();
    PaintScreen(*this, Screen(), dirty);
    host_->Present(dirty);
    TellFields();
    mouse_.UpdateShape(); // another window may be under the pointer now
}

void Desktop::PaintAll(Canvas& canvas) {
    PaintScreen(*this, canvas, {0, 0, ScreenSize().cx, ScreenSize().cy});
}

void Desktop::TellFields() {
    const Window* front = Front();
    std::vector<ShownField> fields;
    if (front && !menu_)
        fields = ShownFields(*front);
    if (fields == toldFields_)
        return;
    host_->FieldsChanged(fields);
    toldFields_ = std::move(fields);
}

void Desktop::TellTitle() {
    const Window* front = FrontFull();
    if (!front || front->text == toldTitle_)
        return;
    toldTitle_ = front->text;
    host_->TitleChanged(toldTitle_);
}

} // namespace device
