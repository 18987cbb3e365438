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
    const std::tuple<TerminalKey, bool, WORD, unsigned> cases[]
        = {{{true, 0, KEY_F(1)}, true, VK_TSOFT1, 0}, {{false, L'[', 0}, false, VK_TSOFT1, 0},
            {{false, L']', 0}, false, VK_TSOFT2, 0}, {{false, L'\r', 0}, true, VK_TACTION, 0},
            {{false, 0x1B, 0}, true, VK_TBACK, 0}, {{false, 0x7F, 0}, true, VK_BACK, 0},
            {{false, 1, 0}, true, 'A', MOD_CONTROL}, {{true, 0, KEY_SF}, false, VK_DOWN, MOD_SHIFT}};
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
        const auto events = Events({false, character, 0}, true);
        ASSERT_EQ(events.size(), 1U);
        EXPECT_EQ(events[0].kind, InputEvent::Kind::Text);
        EXPECT_EQ(events[0].character, character);
    }
    EXPECT_TRUE(Events({true, 0, KEY_F(9)}).empty() && Events({false, 0, 0}).empty());
    for (const wchar_t control : {L'C', L'Q'})
        EXPECT_EQ(Events({false, control - L'@', 0}).at(0).kind, InputEvent::Kind::Close);
}

} // namespace
