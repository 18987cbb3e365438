#pragma once

#include "platform/windowing/host.h"

#include <deque>
#include <map>

struct SDL_KeyboardEvent;

namespace device {

/// Turns a desktop keyboard into the handset's keys. What a printable key gives comes as text, not as a key, unless
/// Control is held.
class Keyboard {
public:
    /// What a key asks of the window itself; such a key never reaches the handset. Held: it was asked already.
    enum class HostCommand { None, Held, ZoomIn, ZoomOut, ZoomReset, FullScreen, Close };
    static HostCommand CommandOf(const SDL_KeyboardEvent& key);

    /// Appends what the key gives, if anything.
    void Translate(const SDL_KeyboardEvent& key, std::deque<InputEvent>& events);
    /// Appends each character of a typed text.
    void TranslateText(const char* utf8, std::deque<InputEvent>& events) const;
    /// MOD_CONTROL and MOD_SHIFT as they are held now.
    static unsigned Modifiers();

private:
    /// What each key was sent down as: it goes up as the same, whatever modifiers changed in between.
    std::map<int, WORD> held_;
    bool isRepeat_ = false; ///< the key that went down last did so because it is held
};

} // namespace device
