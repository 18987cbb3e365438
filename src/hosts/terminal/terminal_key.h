#pragma once

#include "platform/windowing/host.h"

#include <utility>

namespace device {

/// What a terminal tells: a key, a text that was pasted, what its pointer did.
struct TerminalKey {
    enum class Kind {
        Character,
        Key, ///< of the handset
        Event, ///< a paste, or the pointer: its place in cells
        CanTellKeys ///< an answer: the terminal can tell each key without doubt, if it is asked to
    };

    Kind kind = Kind::Character;
    wchar_t character = 0;
    WORD key = 0;
    unsigned modifiers = 0;
    InputEvent event;

    static TerminalKey OfCharacter(wchar_t character) { return {Kind::Character, character, 0, 0, {}}; }
    static TerminalKey OfKey(WORD key, unsigned modifiers = 0) { return {Kind::Key, 0, key, modifiers, {}}; }
    static TerminalKey OfEvent(InputEvent event) { return {Kind::Event, 0, 0, 0, std::move(event)}; }
};

} // namespace device
