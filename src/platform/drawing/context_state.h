#pragma once

#include "platform/drawing/device_context.h"
#include "platform/drawing/gdi_objects.h"

#include <vector>

namespace device {

/// What SaveDC keeps.
struct ContextState {
    HFONT font = nullptr;
    HPEN pen = nullptr;
    FontReference fontDescription;
    Pen penDescription;
    COLORREF textColor = RGB(0, 0, 0);
    COLORREF backgroundColor = RGB(255, 255, 255);
    POINT position;
    RECT clip; ///< the canvas's coordinates
    PaintMarks marks;
};

struct Context {
    Canvas* canvas;
    POINT origin;
    ContextState state;
    std::vector<ContextState> saved;
};

/// Null for a stale handle.
Context* FindContext(HDC context);

/// The canvas of a context, clipped and marked for as long as this lives. Contexts on one canvas come and go in any
/// order, so none keeps its clip on the canvas between two calls.
class ContextPainter {
public:
    explicit ContextPainter(const Context& context)
        : ContextPainter(context, context.state.clip) { }
    /// `clip` in the canvas's coordinates, and within the context's own.
    ContextPainter(const Context& context, const RECT& clip);
    ~ContextPainter();
    ContextPainter(const ContextPainter&) = delete;
    ContextPainter& operator=(const ContextPainter&) = delete;

    /// False when nothing of it can show.
    bool Shows() const { return shows_; }
    Canvas* operator->() const { return canvas_; }

private:
    Canvas* canvas_;
    bool shows_;
};

} // namespace device
