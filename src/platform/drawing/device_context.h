#pragma once

#include "platform/drawing.h"
#include "platform/drawing/canvas.h"

namespace device {

/// What a context draws on. All in the canvas's own coordinates: device pixels of the screen.
struct ContextTarget {
    Canvas* canvas = nullptr;
    POINT origin{}; ///< where (0, 0) of the context stands
    RECT clip{}; ///< nothing outside changes; an empty one makes a context that only measures
    HFONT font = nullptr; ///< the font to begin with; null: the system font
    PaintMarks marks{};
};

/// Fills `target` for a window's client area, for the whole screen if `window` is null; false: no such window.
/// Installed once by whoever owns the windows. Until then GetDC(nullptr) alone works, and only measures.
void SetWindowTarget(bool (*describe)(HWND window, ContextTarget& target));

/// A new context: black text, the thin black pen. Coordinates given to it are relative to its origin. Null when there
/// are too many. The canvas must outlive it.
HDC CreateContext(const ContextTarget& target);
/// False for a stale handle.
bool DestroyContext(HDC context);

/// What the texts drawn from now on mean. SaveDC and RestoreDC keep it too.
void SetContextMarks(HDC context, const PaintMarks& marks);
PaintMarks ContextMarks(HDC context);
/// Narrows the clip (the context's coordinates) until RestoreDC goes back behind it.
void ClipContext(HDC context, const RECT& clip);

/// A canvas that nobody sees for a stale handle.
Canvas& ContextCanvas(HDC context);
/// In the canvas's coordinates.
RECT ContextClip(HDC context);

/// The system font's for anything that is not a font.
const FontDescription& FontOf(HFONT font);
/// True for a live brush.
bool BrushColor(HBRUSH brush, COLORREF& color);

/// From the context's coordinates to the canvas's.
RECT ToCanvas(HDC context, const RECT& rectangle);

} // namespace device
