#pragma once

#include "platform/windowing/host.h"

#include <deque>

namespace device {

/// Ends the program from outside, as the user would: whatever form or message stands open is left without keeping what
/// was typed into it, and then the frame is closed. For a process that is told to end.
class OrderlyEnd {
public:
    void Request() { isRequested_ = true; }
    bool IsRequested() const { return isRequested_; }

    /// One more step, asked for while the device waits for input. It posts a message or appends to `events`. A program
    /// that does not end in a few hundred steps is ended with EXIT_FAILURE.
    void Step(std::deque<InputEvent>& events);

private:
    bool isRequested_ = false;
    int steps_ = 0;
};

} // namespace device
