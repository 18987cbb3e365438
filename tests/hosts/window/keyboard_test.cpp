#include "hosts/window/keyboard.h"

#include "platform/input.h"

#include <SDL.h>
#include <gtest/gtest.h>
#include <string>

namespace {

using device::InputEvent;
using device::Keyboard;
using Command = Keyboard::HostCommand;

SDL_KeyboardEvent Key(bool isDown, SDL_Keycode symbol, int modifiers, SDL_Scancode place, Uint8 repeat = 0) {

    SDL_KeyboardEvent event{};
    event.type = isDown ? SDL_KEYDOWN : SDL_KEYUP;
    event.state = isDown ? SDL_PRESSED : SDL_RELEASED;
    event.repeat = repeat;
    event.keysym = {place, symbol, static_cast<Uint16>(modifiers), 0};
    return event;
}

TEST(Keyboard, GivesTheHandsetsKeys) {
    // A key of 0: nothing comes.
    const std::tuple<const char*, SDL_Keycode, int, SDL_Scancode, WORD, unsigned> cases[]
        = {{"Escape is Back", SDLK_ESCAPE, 0, SDL_SCANCODE_ESCAPE, VK_TBACK, 0},
            {"Enter is Action", SDLK_KP_ENTER, 0, SDL_SCANCODE_KP_ENTER, VK_TACTION, 0},
            {"selection of a row", SDLK_DOWN, KMOD_RSHIFT, SDL_SCANCODE_DOWN, VK_DOWN, MOD_SHIFT},
            {"a letter comes as text", SDLK_q, 0, SDL_SCANCODE_Q, 0, 0},
            {"a letter with Control", SDLK_q, KMOD_LCTRL, SDL_SCANCODE_Q, 'Q', MOD_CONTROL},
            {"a Cyrillic letter with Control", 0x439, KMOD_LCTRL, SDL_SCANCODE_Q, 'Q', MOD_CONTROL},
            {"a letter on another place", SDLK_a, KMOD_LCTRL, SDL_SCANCODE_Q, 'A', MOD_CONTROL},
            {"AltGr types", SDLK_q, KMOD_LCTRL | KMOD_RALT, SDL_SCANCODE_Q, 0, 0},
            {"number pad moves", SDLK_KP_8, 0, SDL_SCANCODE_KP_8, VK_UP, 0},
            {"number pad types", SDLK_KP_8, KMOD_NUM, SDL_SCANCODE_KP_8, 0, 0}};
    for (const auto& [what, symbol, modifiers, place, key, handsetModifiers] : cases) {
        SCOPED_TRACE(what);
        Keyboard keyboard;
        std::deque<InputEvent> events;
        keyboard.Translate(Key(true, symbol, modifiers, place), events);
        keyboard.Translate(Key(false, symbol, modifiers, place), events);
        ASSERT_EQ(events.size(), key != 0 ? 2U : 0U);
        if (key == 0)
            continue;
        EXPECT_TRUE(events[0].kind == InputEvent::Kind::KeyDown && events[1].kind == InputEvent::Kind::KeyUp);
        EXPECT_TRUE(events[0].key == key && events[1].key == key);
        EXPECT_EQ(events[0].modifiers, handsetModifiers);
    }
}

TEST(Keyboard, KeyGoesUpAsItWentDown) {
    Keyboard keyboard;
    std::deque<InputEvent> events;
    keyboard.Translate(Key(true, SDLK_a, KMOD_LCTRL, SDL_SCANCODE_A), events);
    keyboard.Translate(Key(false, SDLK_a, 0, SDL_SCANCODE_A), events);
    keyboard.Translate(Key(false, SDLK_a, 0, SDL_SCANCODE_A), events);
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[1].key, 'A');
}

TEST(Keyboard, TextComesByCharacters) {
    Keyboard keyboard;
    std::deque<InputEvent> events;
    keyboard.TranslateText("a\u00e9\U0001F697\t\x7f", events);
    std::wstring typed;
    for (const InputEvent& event : events)
        typed += event.character;
    EXPECT_EQ(typed, L"a\u00e9\U0001F697");
}

TEST(Keyboard, TextOfAHeldKeyIsARepeat) {
    Keyboard keyboard;
    std::deque<InputEvent> events;
    for (const Uint8 repeat : {0, 1, 1, 0}) {
        keyboard.Translate(Key(true, SDLK_1, 0, SDL_SCANCODE_1, repeat), events);
        keyboard.TranslateText("1", events);
    }
    keyboard.Translate(Key(true, SDLK_1, 0, SDL_SCANCODE_1, 1), events);
    keyboard.Translate(Key(false, SDLK_1, 0, SDL_SCANCODE_1), events);
    keyboard.TranslateText("\u6c7d", events); // from a list of candidates
    std::vector<bool> repeats;
    for (const InputEvent& event : events)
        repeats.push_back(event.isRepeat);
    EXPECT_EQ(repeats, (std::vector<bool>{false, true, true, false, false}));
}

TEST(Keyboard, CommandsOfTheWindowItself) {
    const std::tuple<SDL_Keycode, int, SDL_Scancode, Command> cases[] = {
        {SDLK_PLUS, KMOD_LCTRL | KMOD_LSHIFT, SDL_SCANCODE_EQUALS, Command::ZoomIn},
        {SDLK_KP_MINUS, KMOD_LCTRL | KMOD_NUM, SDL_SCANCODE_KP_MINUS, Command::ZoomOut},
        {0xE0, KMOD_LCTRL, SDL_SCANCODE_0, Command::ZoomReset}, {SDLK_F11, 0, SDL_SCANCODE_F11, Command::FullScreen},
        {SDLK_q, KMOD_RCTRL, SDL_SCANCODE_Q, Command::Close}, {SDLK_MINUS, 0, SDL_SCANCODE_MINUS, Command::None},
        {SDLK_PLUS, KMOD_LCTRL | KMOD_RALT, SDL_SCANCODE_EQUALS, Command::None}};
    for (const auto& [symbol, modifiers, place, command] : cases) {
        EXPECT_EQ(Keyboard::CommandOf(Key(true, symbol, modifiers, place)), command) << symbol;
        EXPECT_EQ(Keyboard::CommandOf(Key(false, symbol, modifiers, place)), Command::None) << symbol;
    }
    // Held, it must not answer the question that its press brought up.
    EXPECT_EQ(Keyboard::CommandOf(Key(true, SDLK_q, KMOD_LCTRL, SDL_SCANCODE_Q, 1)), Command::Held);
}

} // namespace
