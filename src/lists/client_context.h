#pragma once

#include "platform/drawing.h"
#include "platform/window.h"

/// A device context on a window's client area, given back at the end of the scope.
class CClientContext {
public:
    explicit CClientContext(HWND window)
        : window_(window)
        , context_(GetDC(window)) { }
    CClientContext(const CClientContext&) = delete;
    CClientContext& operator=(const CClientContext&) = delete;
    ~CClientContext() { ReleaseDC(window_, context_); }

    HDC GetHandle() const { return context_; }

private:
    HWND window_;
    HDC context_;
};

/// A child's place in its parent's client area; also that of a window in its own.
RECT PlaceIn(HWND parent, HWND child);
/// What a line of a font takes, from one baseline to the next.
LONG LineHeight(HWND window, HFONT font);
/// A text's measure in the font that the context holds.
SIZE TextExtent(HDC context, const wchar_t* text);
