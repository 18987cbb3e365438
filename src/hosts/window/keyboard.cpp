#include "hosts/window/keyboard.h"

#include "platform/input.h"
#include "platform/utf8.h"

#include <SDL.h>
#include <algorithm>
#include <iterator>

namespace device {

namespace {

struct KeyPair {
    SDL_Keycode desktop;
    WORD handset;
};

constexpr KeyPair Keys[] = {
    {SDLK_ESCAPE, VK_TBACK},
    {SDLK_AC_BACK, VK_TBACK},
    {SDLK_RETURN, VK_TACTION},
    {SDLK_RETURN2, VK_TACTION},
    {SDLK_KP_ENTER, VK_TACTION},
    {SDLK_SELECT, VK_TACTION},
    {SDLK_F1, VK_TSOFT1},
    {SDLK_F2, VK_TSOFT2},
    {SDLK_LEFT, VK_LEFT},
    {SDLK_RIGHT, VK_RIGHT},
    {SDLK_UP, VK_UP},
    {SDLK_DOWN, VK_DOWN},
    {SDLK_PAGEUP, VK_PRIOR},
    {SDLK_PAGEDOWN, VK_NEXT},
    {SDLK_HOME, VK_HOME},
    {SDLK_END, VK_END},
    {SDLK_BACKSPACE, VK_BACK},
    {SDLK_DELETE, VK_DELETE},
    {SDLK_INSERT, VK_INSERT},
    {SDLK_APPLICATION, VK_APPS},
    {SDLK_MENU, VK_APPS},
    {SDLK_F10, VK_F10},
    {SDLK_TAB, VK_TAB},
    {SDLK_LSHIFT, VK_SHIFT},
    {SDLK_RSHIFT, VK_SHIFT},
    {SDLK_LCTRL, VK_CONTROL},
    {SDLK_RCTRL, VK_CONTROL},
};

/// The number pad while Num Lock is off.
constexpr KeyPair PadKeys[] = {
    {SDLK_KP_4, VK_LEFT},
    {SDLK_KP_6, VK_RIGHT},
    {SDLK_KP_8, VK_UP},
    {SDLK_KP_2, VK_DOWN},
    {SDLK_KP_9, VK_PRIOR},
    {SDLK_KP_3, VK_NEXT},
    {SDLK_KP_7, VK_HOME},
    {SDLK_KP_1, VK_END},
    {SDLK_KP_5, VK_TACTION},
    {SDLK_KP_PERIOD, VK_DELETE},
    {SDLK_KP_0, VK_INSERT},
};

template <std::size_t Count> WORD Lookup(const KeyPair (&pairs)[Count], SDL_Keycode key) {
    const auto* found
        = std::find_if(std::begin(pairs), std::end(pairs), [key](const KeyPair& pair) { return pair.desktop == key; });
    return found == std::end(pairs) ? WORD{0} : found->handset;
}

bool IsControlAlone(unsigned modifiers) {
    // AltGr counts as Control and Alt on some keyboards, and types characters.
    return (modifiers & KMOD_CTRL) != 0 && (modifiers & (KMOD_ALT | KMOD_MODE)) == 0;
}

WORD ControlKey(const SDL_Keysym& key) {
    if (key.sym >= SDLK_a && key.sym <= SDLK_z)
        return static_cast<WORD>('A' + (key.sym - SDLK_a));
    // Layouts without Latin letters: by the place of the key.
    const bool isLatin = key.sym > 0 && key.sym < 0x80;
    if (!isLatin && key.scancode >= SDL_SCANCODE_A && key.scancode <= SDL_SCANCODE_Z)
        return static_cast<WORD>('A' + (key.scancode - SDL_SCANCODE_A));
    return 0;
}

WORD HandsetKey(const SDL_Keysym& key) {
    if (const WORD known = Lookup(Keys, key.sym))
        return known;
    if ((key.mod & KMOD_NUM) == 0) {
        if (const WORD pad = Lookup(PadKeys, key.sym))
            return pad;
    }
    return IsControlAlone(key.mod) ? ControlKey(key) : WORD{0};
}

unsigned HandsetModifiers(unsigned modifiers) {
    return ((modifiers & KMOD_CTRL) != 0 ? MOD_CONTROL : 0) | ((modifiers & KMOD_SHIFT) != 0 ? MOD_SHIFT : 0);
}

struct HostKey {
    SDL_Keycode desktop;
    Keyboard::HostCommand command;
};

/// With Control. A plus shares its key with the equals sign on many keyboards.
constexpr HostKey ControlHostKeys[] = {
    {SDLK_PLUS, Keyboard::HostCommand::ZoomIn},
    {SDLK_EQUALS, Keyboard::HostCommand::ZoomIn},
    {SDLK_KP_PLUS, Keyboard::HostCommand::ZoomIn},
    {SDLK_MINUS, Keyboard::HostCommand::ZoomOut},
    {SDLK_KP_MINUS, Keyboard::HostCommand::ZoomOut},
    {SDLK_0, Keyboard::HostCommand::ZoomReset},
    {SDLK_KP_0, Keyboard::HostCommand::ZoomReset},
};

} // namespace

Keyboard::HostCommand Keyboard::CommandOf(const SDL_KeyboardEvent& key) {
    const auto& [scancode, symbol, modifiers, unused] = key.keysym;
    if (key.state != SDL_PRESSED)
        return HostCommand::None;
    if (symbol == SDLK_F11)
        return key.repeat == 0 ? HostCommand::FullScreen : HostCommand::Held;
    if (!IsControlAlone(modifiers))
        return HostCommand::None;
    if (ControlKey(key.keysym) == 'Q')
        return key.repeat == 0 ? HostCommand::Close : HostCommand::Held;
    for (const HostKey& known : ControlHostKeys)
        if (known.desktop == symbol)
            return known.command;
    // Layouts that have other characters there: by the place of the key.
    return scancode == SDL_SCANCODE_0 ? HostCommand::ZoomReset : HostCommand::None;
}

void Keyboard::Translate(const SDL_KeyboardEvent& key, std::deque<InputEvent>& events) {
    InputEvent event;
    event.modifiers = HandsetModifiers(key.keysym.mod);
    isRepeat_ = key.state == SDL_PRESSED && key.repeat != 0;
    const auto held = held_.find(key.keysym.scancode);
    if (key.state == SDL_PRESSED) {
        event.kind = InputEvent::Kind::KeyDown;
        event.key = held != held_.end() ? held->second : HandsetKey(key.keysym);
        if (event.key != 0)
            held_[key.keysym.scancode] = event.key;
    } else if (held != held_.end()) {
        event.kind = InputEvent::Kind::KeyUp;
        event.key = held->second;
        held_.erase(held);
    }
    if (event.key != 0)
        events.push_back(event);
}

void Keyboard::TranslateText(const char* utf8, std::deque<InputEvent>& events) const {
    const unsigned modifiers = SDL_GetModState();
    if (IsControlAlone(modifiers))
        return;
    for (const wchar_t character : FromUtf8(utf8))
        if (character >= L' ' && character != 0x7F)
            events.push_back({.kind = InputEvent::Kind::Text,
                .character = character,
                .modifiers = HandsetModifiers(modifiers),
                .isRepeat = isRepeat_});
}

unsigned Keyboard::Modifiers() {
    return HandsetModifiers(SDL_GetModState());
}

} // namespace device
