#include "platform/drawing/context_state.h"

#include "platform/drawing/canvas.h"
#include "platform/drawing/recording_canvas.h"
#include "platform/drawing/rectangles.h"
#include "platform/metrics.h"
#include "platform/system/handle_table.h"

#include <memory>
#include <utility>

namespace device {

namespace {

/// Stands in where there is no screen: for measuring, and nobody looks at it.
Canvas& NoScreen() {
    static RecordingCanvas canvas(DeviceMeasurer());
    return canvas;
}

HandleTable<HDC, Context>& Contexts() {
    static auto* const contexts = new HandleTable<HDC, Context>;
    return *contexts;
}

/// A stale handle's draws where nobody looks.
const Context& ContextOrBlank(HDC context) {
    static const Context blank{&NoScreen(), {}, {}, {}};
    const Context* found = FindContext(context);
    return found != nullptr ? *found : blank;
}

bool (*describeWindow)(HWND window, ContextTarget& target) = nullptr;

/// Puts an object that was selected before back into `handle`, and gives what stood there.
HGDIOBJ Select(ContextState& state, HGDIOBJ handle, const GdiObject& object) {
    if (const auto* font = std::get_if<FontReference>(&object)) {
        state.fontDescription = *font;
        return std::exchange(state.font, handle);
    }
    if (const auto* pen = std::get_if<Pen>(&object)) {
        state.penDescription = *pen;
        return std::exchange(state.pen, handle);
    }
    return nullptr; // brushes are named where something is filled
}

} // namespace

Context* FindContext(HDC context) {
    return Contexts().Find(context);
}

ContextPainter::ContextPainter(const Context& context, const RECT& clip)
    : canvas_(context.canvas)
    , shows_(Intersects(clip, context.state.clip)) {
    if (!shows_)
        return;
    canvas_->SetMarks(context.state.marks);
    canvas_->PushClip(Intersection(clip, context.state.clip));
}

ContextPainter::~ContextPainter() {
    if (shows_)
        canvas_->PopClip();
}

void SetWindowTarget(bool (*describe)(HWND window, ContextTarget& target)) {
    describeWindow = describe;
}

HDC CreateContext(const ContextTarget& target) {
    Context context{target.canvas != nullptr ? target.canvas : &NoScreen(), target.origin, {}, {}};
    ContextState& state = context.state;
    for (HGDIOBJ object : {SystemFont(), ThinPen()})
        Select(state, object, *FindObject(object));
    const GdiObject* font = FindObject(target.font);
    if (std::get_if<FontReference>(font))
        Select(state, target.font, *font);
    state.clip = target.clip;
    state.marks = target.marks;
    return Contexts().Add(std::move(context));
}

bool DestroyContext(HDC context) {
    return Contexts().Remove(context);
}

void SetContextMarks(HDC context, const PaintMarks& marks) {
    if (Context* found = FindContext(context))
        found->state.marks = marks;
}

PaintMarks ContextMarks(HDC context) {
    return ContextOrBlank(context).state.marks;
}

void ClipContext(HDC context, const RECT& clip) {
    if (Context* found = FindContext(context))
        found->state.clip = Intersection(found->state.clip, Moved(clip, found->origin));
}

Canvas& ContextCanvas(HDC context) {
    return *ContextOrBlank(context).canvas;
}

RECT ContextClip(HDC context) {
    return ContextOrBlank(context).state.clip;
}

RECT ToCanvas(HDC context, const RECT& rectangle) {
    return Moved(rectangle, ContextOrBlank(context).origin);
}

} // namespace device

using namespace device;

HDC GetDC(HWND window) {
    ContextTarget target;
    const bool found = describeWindow != nullptr ? describeWindow(window, target) : window == nullptr;
    return found ? CreateContext(target) : nullptr;
}

int ReleaseDC(HWND /*window*/, HDC context) {
    return DestroyContext(context) ? 1 : 0;
}

int SaveDC(HDC context) {
    Context* found = FindContext(context);
    if (found == nullptr)
        return 0;
    found->saved.push_back(found->state);
    return static_cast<int>(found->saved.size());
}

BOOL RestoreDC(HDC context, int state) {
    Context* found = FindContext(context);
    if (found == nullptr)
        return FALSE;
    const auto count = static_cast<std::int64_t>(found->saved.size());
    const std::int64_t number = state < 0 ? count + 1 + state : state;
    if (number < 1 || number > count)
        return FALSE;
    found->state = found->saved[static_cast<std::size_t>(number - 1)];
    found->saved.resize(static_cast<std::size_t>(number - 1));
    return TRUE;
}

HGDIOBJ SelectObject(HDC context, HGDIOBJ object) {
    Context* found = FindContext(context);
    const GdiObject* selected = FindObject(object);
    return found != nullptr && selected != nullptr ? Select(found->state, object, *selected) : nullptr;
}

int GetDeviceCaps(HDC context, int index) {
    return FindContext(context) != nullptr && index == LOGPIXELSY ? Dpi() : 0;
}

COLORREF SetTextColor(HDC context, COLORREF color) {
    Context* found = FindContext(context);
    return found != nullptr ? std::exchange(found->state.textColor, color) : 0;
}

COLORREF SetBkColor(HDC context, COLORREF color) {
    Context* found = FindContext(context);
    return found != nullptr ? std::exchange(found->state.backgroundColor, color) : 0;
}

int FillRect(HDC context, const RECT* rectangle, HBRUSH brush) {
    const Context* found = FindContext(context);
    COLORREF color = 0;
    if (found == nullptr || rectangle == nullptr || !BrushColor(brush, color))
        return 0;
    const ContextPainter painter(*found, Moved(*rectangle, found->origin));
    if (painter.Shows())
        painter->Fill(Moved(*rectangle, found->origin), color);
    return 1;
}

BOOL MoveToEx(HDC context, int x, int y, POINT* former) {
    Context* found = FindContext(context);
    if (found == nullptr)
        return FALSE;
    const POINT position = std::exchange(found->state.position, POINT{x, y});
    if (former != nullptr)
        *former = position;
    return TRUE;
}

BOOL LineTo(HDC context, int x, int y) {
    Context* found = FindContext(context);
    if (found == nullptr)
        return FALSE;
    const POINT from = Moved(found->state.position, found->origin);
    const POINT to = Moved(POINT{x, y}, found->origin);
    found->state.position = {x, y};
    const ContextPainter painter(*found);
    if (painter.Shows())
        painter->Line(from, to, found->state.penDescription.color, found->state.penDescription.width);
    return TRUE;
}
