#include "platform/drawing/canvas.h"

#include "platform/drawing/rectangles.h"

namespace device {

void Canvas::BeginFrame(const RECT& dirty) {
    PopAllClips();
    Begin(dirty);
}

void Canvas::PushClip(const RECT& clip) {
    clips_.push_back(Clipped(clip));
    Clip(clips_.back());
}

void Canvas::PopClip() {
    clips_.pop_back();
    Unclip();
}

void Canvas::PopAllClips() {
    while (!clips_.empty())
        PopClip();
}

RECT Canvas::Clipped(const RECT& rectangle) const {
    return clips_.empty() ? rectangle : Intersection(clips_.back(), rectangle);
}

} // namespace device
