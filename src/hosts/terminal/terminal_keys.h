#pragma once

#include "hosts/terminal/terminal_key.h"

#include <deque>
#include <optional>

namespace device {

/// What the keys of a terminal are on the handset.
class TerminalKeys {
public:
    /// The key that the terminal library has a code for.
    static std::optional<TerminalKey> OfCode(int code);
    /// Adds what a key does. `typing`: the focus is where text is typed, so that brackets are text.
    static void Translate(const TerminalKey& key, bool typing, std::deque<InputEvent>& events);
};

} // namespace device
