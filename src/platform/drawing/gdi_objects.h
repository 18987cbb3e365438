#pragma once

#include "platform/drawing.h"
#include "platform/drawing/canvas.h"

#include <memory>
#include <variant>

namespace device {

/// Width 0 is the thinnest line that a screen can show.
struct Pen {
    int width = 0;
    COLORREF color = 0;
};

struct Brush {
    COLORREF color = 0;
};

/// A font that is deleted while a context holds it lives on in there.
using FontReference = std::shared_ptr<const FontDescription>;
using GdiObject = std::variant<FontReference, Pen, Brush>;

/// Null for a stale handle; valid until the object is deleted.
const GdiObject* FindObject(HGDIOBJ object);
HGDIOBJ AddObject(GdiObject object);

/// The objects that every context begins with. Nothing deletes them.
HFONT SystemFont();
HPEN ThinPen();

} // namespace device
