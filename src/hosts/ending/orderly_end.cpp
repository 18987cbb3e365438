#include "hosts/ending/orderly_end.h"

#include "platform/input.h"
#include "platform/messages.h"
#include "platform/window.h"
#include "platform/windowing/desktop.h"

#include <cstdlib>

namespace device {

namespace {

/// More than any nesting of forms and messages takes.
constexpr int MostSteps = 300;

InputEvent EventOf(InputEvent::Kind kind) {
    InputEvent event;
    event.kind = kind;
    return event;
}

} // namespace

void OrderlyEnd::Step(std::deque<InputEvent>& events) {
    if (++steps_ > MostSteps)
        std::exit(EXIT_FAILURE);
    const Window* front = Desktop::The().Front();
    if (steps_ == 1 || !front || !front->modal) {
        events.push_back(EventOf(InputEvent::Kind::Close));
    } else if (front->isMessageBox && steps_ % 2 == 0) {
        // The right key is the one that changes nothing: No, Cancel.
        for (const auto kind : {InputEvent::Kind::KeyDown, InputEvent::Kind::KeyUp}) {
            events.push_back(EventOf(kind));
            events.back().key = VK_TSOFT2;
        }
    } else {
        PostMessageW(front->handle, WM_CLOSE, 0, 0);
    }
}

} // namespace device
