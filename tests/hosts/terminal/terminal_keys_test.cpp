#define NCURSES_WIDECHAR 1

#include "hosts/terminal/terminal_keys.h"
#include "platform/input.h"

#include <curses.h>
#include <gtest/gtest.h>

using namespace device;

namespace {

std::deque<InputEvent> Events(const TerminalKey& key, bool typing = false) {
    std::deque<InputEvent> events;
    TerminalKeys::Translate(key, typing, events);
    return events;
}

TEST(TerminalKeysTest, KeysComeDownAndUp) {
    const auto code = [](int number) { return TerminalKeys::OfCode(number).value(); };
    const auto typed = [](wchar_t character) { return TerminalKey::OfCharacter(character); };
    const std::tuple<TerminalKey, bool, WORD, unsigned> cases[]
        = {{code(KEY_F(1)), true, VK_TSOFT1, 0}, {typed(L'['), false, VK_TSOFT1, 0}, {typed(L']'), false, VK_TSOFT2, 0},
            {typed(L'\r'), true, VK_TACTION, 0}, {typed(0x1B), true, VK_TBACK, 0}, {typed(0x7F), true, VK_BACK, 0},
            {typed(1), true, 'A', MOD_CONTROL}, {code(KEY_SF), false, VK_DOWN, MOD_SHIFT}};
    for (const auto& [key, typing, expected, modifiers] : cases) {
        const auto events = Events(key, typing);
        ASSERT_EQ(events.size(), 2U) << expected;
        EXPECT_TRUE(events[0].kind == InputEvent::Kind::KeyDown && events[1].kind == InputEvent::Kind::KeyUp);
        EXPECT_TRUE(events[0].key == expected && events[1].key == expected) << expected;
        EXPECT_EQ(events[0].modifiers, modifiers);
    }
}

TEST(TerminalKeysTest, TextIsText) {
    for (const wchar_t character : {L'a', L' ', L'\u00DC', L'\u6C7D', L'[', L']'}) {
        const auto events = Events(TerminalKey::OfCharacter(character), true);
        ASSERT_EQ(events.size(), 1U);
        EXPECT_TRUE(events[0].kind == InputEvent::Kind::Text && events[0].character == character);
    }
    EXPECT_TRUE(!TerminalKeys::OfCode(KEY_F(9)) && Events(TerminalKey::OfCharacter(0)).empty());
    for (const wchar_t control : {L'C', L'Q'})
        EXPECT_EQ(Events(TerminalKey::OfCharacter(control - L'@')).at(0).kind, InputEvent::Kind::Close);
}

} // namespace
