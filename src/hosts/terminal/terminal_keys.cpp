#define NCURSES_WIDECHAR 1

#include "hosts/terminal/terminal_keys.h"

#include "platform/input.h"

#include <algorithm>
#include <curses.h>
#include <iterator>

namespace device {

namespace {

struct KeyPair {
    int code;
    WORD handset;
    unsigned modifiers;
};

constexpr KeyPair Codes[] = {
    {KEY_ENTER, VK_TACTION, 0},
    {KEY_F(1), VK_TSOFT1, 0},
    {KEY_F(2), VK_TSOFT2, 0},
    {KEY_LEFT, VK_LEFT, 0},
    {KEY_RIGHT, VK_RIGHT, 0},
    {KEY_UP, VK_UP, 0},
    {KEY_DOWN, VK_DOWN, 0},
    {KEY_PPAGE, VK_PRIOR, 0},
    {KEY_NPAGE, VK_NEXT, 0},
    {KEY_HOME, VK_HOME, 0},
    {KEY_END, VK_END, 0},
    {KEY_BACKSPACE, VK_BACK, 0},
    {KEY_DC, VK_DELETE, 0},
    {KEY_BTAB, VK_TAB, MOD_SHIFT},
    {KEY_SLEFT, VK_LEFT, MOD_SHIFT},
    {KEY_SRIGHT, VK_RIGHT, MOD_SHIFT},
    {KEY_SR, VK_UP, MOD_SHIFT},
    {KEY_SF, VK_DOWN, MOD_SHIFT},
    {KEY_SHOME, VK_HOME, MOD_SHIFT},
    {KEY_SEND, VK_END, MOD_SHIFT},
    {KEY_SDC, VK_DELETE, MOD_SHIFT},
};

constexpr wchar_t Escape = 0x1B;
constexpr wchar_t Delete = 0x7F;
constexpr wchar_t ControlC = 3;
constexpr wchar_t ControlQ = 17;

void AddPress(WORD key, unsigned modifiers, std::deque<InputEvent>& events) {
    for (const auto kind : {InputEvent::Kind::KeyDown, InputEvent::Kind::KeyUp})
        events.push_back({.kind = kind, .key = key, .modifiers = modifiers});
}

/// 0 for a character that is text.
WORD KeyOf(wchar_t character, bool typing) {
    switch (character) {
    case L'\r':
    case L'\n':
        return VK_TACTION;
    case L'\t':
        return VK_TAB;
    case L'\b':
    case Delete:
        return VK_BACK;
    case Escape:
        return VK_TBACK;
    case L'[':
        return typing ? WORD{0} : VK_TSOFT1;
    case L']':
        return typing ? WORD{0} : VK_TSOFT2;
    default:
        return 0;
    }
}

void TranslateCharacter(wchar_t character, bool typing, std::deque<InputEvent>& events) {
    if (const WORD key = KeyOf(character, typing))
        AddPress(key, 0, events);
    else if (character == ControlC || character == ControlQ)
        events.push_back({.kind = InputEvent::Kind::Close});
    else if (character > 0 && character <= 26)
        AddPress(static_cast<WORD>('A' + character - 1), MOD_CONTROL, events);
    else if (character >= L' ' && (character < 0x80 || character >= 0xA0))
        events.push_back({.kind = InputEvent::Kind::Text, .character = character});
}

} // namespace

std::optional<TerminalKey> TerminalKeys::OfCode(int code) {
    const auto* found
        = std::find_if(std::begin(Codes), std::end(Codes), [code](const KeyPair& pair) { return pair.code == code; });
    if (found == std::end(Codes))
        return std::nullopt;
    return TerminalKey::OfKey(found->handset, found->modifiers);
}

void TerminalKeys::Translate(const TerminalKey& key, bool typing, std::deque<InputEvent>& events) {
    switch (key.kind) {
    case TerminalKey::Kind::Character:
        TranslateCharacter(key.character, typing, events);
        return;
    case TerminalKey::Kind::Key:
        AddPress(key.key, key.modifiers, events);
        return;
    case TerminalKey::Kind::Event:
        events.push_back(key.event);
        return;
    case TerminalKey::Kind::CanTellKeys:
        return;
    }
}

} // namespace device
