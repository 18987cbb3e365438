#include "hosts/terminal/terminal_input.h"

#include <clocale>
#include <gtest/gtest.h>
#include <string>

using device::TerminalInput;

namespace {

constexpr int Up = 259;
constexpr int ShiftDelete = 383;
constexpr int F1 = 265;

int CodeOf(const std::string& sequence) {
    return sequence == "\x1bOA" ? Up : sequence == "\x1b[3$" ? ShiftDelete : sequence == "\x1b[[A" ? F1 : 0;
}

/// Keys as text: Escape as "E", a code as "<259>", a pasted character behind an apostrophe. A "|" among the bytes is a
/// pause that was long enough.
std::wstring Read(const std::string& bytes) {
    TerminalInput input(CodeOf);
    std::wstring told;
    for (const char byte : bytes + "|") {
        if (byte != '|')
            input.Feed(byte);
        else if (input.Patience() >= 0)
            input.PauseIsOver();
        while (const auto key = input.Take()) {
            if (key->isPasted)
                told += L'\'';
            told += key->isCode ? L"<" + std::to_wstring(key->code) + L">"
                                : std::wstring(1, key->character == 0x1B ? L'E' : key->character);
        }
    }
    return told;
}

TEST(TerminalInputTest, SequencesAreKeysOrNothing) {
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    const std::tuple<const char*, std::string, std::wstring> cases[] = {
        {"text of several bytes a character", "a\xC3\xA9\xE6\xB1\xBD", L"a\u00E9\u6C7D"},
        {"broken text", "a\xC3z\xFF", std::wstring(L"a\0\0", 3)},
        {"a lone Escape", "\x1b|x", L"Ex"},
        {"Escape twice", "\x1b\x1b|", L"EE"},
        {"a held Escape", "\x1b\x1b\x1b\x1b|", L"EEEE"},
        {"a key", "x\x1bOAy", L"x<259>y"},
        {"a key that ends early", "\x1b[3$y", L"<383>y"},
        {"a key of the text console", "\x1b[[Ay", L"<265>y"},
        {"the Menu key", "\x1b[29~y", L"y"},
        {"a key told by its character", "\x1b[97;5uy", L"y"},
        {"focus comes and goes", "\x1b[I\x1b[Oy", L"y"},
        {"Alt and a key", "\x1b\x1bOAy", L"y"},
        {"Alt and a character", "\x1b\xC3\xA9y\x1b\ry", L"yy"},
        {"a colour's late answer", "\x1b]11;rgb:0000/0000/0000\x1b\\y", L"y"},
        {"the same, ended by a bell", "\x1b]11;rgb:0000/0000/0000\ay", L"y"},
        {"a device's late answer", "\x1bP1+r544e=787465726d\x1b\\\x1b[?64;1;2cy", L"y"},
        {"others with strings", "\x1b_Gi=1;OK\x1b\\\x1b^a\x1b\\\x1bXa\x1b\\y", L"y"},
        {"a sequence that never ends", "\x1b[1;|y\x1b]11|y\x1bO|y", L"yyy"},
        {"one cut off by a key", "\x1b[1;\r\x1b]11\r\x1bO\x1bOAy", L"\r\r<259>y"},
        {"one cut off by Escape", "\x1b[1;\x1b|", L"E"},
        {"a string cut off by a key", "\x1b]11\x1bOAy", L"<259>y"},
    };
    for (const auto& [what, bytes, keys] : cases)
        EXPECT_EQ(Read(bytes), keys) << what;
}

TEST(TerminalInputTest, PastesAreText) {
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    const std::pair<std::string, std::wstring> cases[] = {
        {"\x1b[200~q]\xC3\xA9\x1b[201~]", L"'q']'\u00E9]"},
        {"\x1b[200~a\r\nb\nc\rd\te\x1b[201~", L"'a'\n'b'\n'c'\n'd' 'e"},
        {"\x1b[200~a\x03\x1b[31mb\x1b[201~x", L"'a'3'1'm'bx"},
        {"\x1b[200~a\x1b\x1b[201~x", L"'ax"},
        {"\x1b[200~a|x", L"'ax"},
    };
    for (const auto& [bytes, keys] : cases)
        EXPECT_EQ(Read(bytes), keys) << testing::PrintToString(bytes);
}

TEST(TerminalInputTest, APauseEndsAnEscapeSoonAndAPasteLate) {
    TerminalInput input(CodeOf);
    EXPECT_EQ(input.Patience(), -1);
    input.Feed(0x1B);
    EXPECT_TRUE(input.Patience() > 0 && input.Patience() <= 100) << "Back must not lag";
    for (const char byte : {'[', '2', '0', '0'})
        input.Feed(byte);
    EXPECT_GE(input.Patience(), 500) << "a slow line";
    input.Feed('~');
    EXPECT_GE(input.Patience(), 5000);
}

} // namespace
