#pragma once

#include "hosts/terminal/terminal_input.h"
#include "platform/windowing/host.h"

#include <deque>

namespace device {

/// What the keys of a terminal are on the handset.
class TerminalKeys {
public:
    /// Adds what a key does. `typing`: the focus is where text is typed, so that brackets are text.
    static void Translate(const TerminalKey& key, bool typing, std::deque<InputEvent>& events);
};

} // namespace device
