#include "hosts/terminal/terminal_input.h"
#include "hosts/terminal/terminal_sequences.h"
#include "platform/input.h"

#include <clocale>
#include <gtest/gtest.h>
#include <map>
#include <string>

using namespace device;

namespace {

/// The text console's first function key is known by the terminal's type alone.
std::optional<TerminalKey> KeyOf(const std::string& sequence) {
    return sequence == "\x1b[[A" ? TerminalKey::OfKey(VK_TSOFT1) : KeyOfSequence(sequence);
}

std::wstring Told(const TerminalKey& key) {
    static const std::map<WORD, std::wstring> names{{VK_UP, L"up"}, {VK_DOWN, L"down"}, {VK_LEFT, L"left"},
        {VK_RIGHT, L"right"}, {VK_HOME, L"home"}, {VK_END, L"end"}, {VK_PRIOR, L"page up"}, {VK_NEXT, L"page down"},
        {VK_DELETE, L"delete"}, {VK_BACK, L"backspace"}, {VK_TAB, L"tab"}, {VK_TACTION, L"action"}, {VK_TBACK, L"back"},
        {VK_TSOFT1, L"soft1"}, {VK_TSOFT2, L"soft2"}};
    static const std::map<InputEvent::Kind, std::wstring> events{{InputEvent::Kind::MouseDown, L"down"},
        {InputEvent::Kind::MouseMove, L"move"}, {InputEvent::Kind::MouseUp, L"up"},
        {InputEvent::Kind::Wheel, L"wheel"}};
    const InputEvent& event = key.event;
    const auto modifiers = [](unsigned held) {
        return std::wstring((held & MOD_SHIFT) != 0 ? L"shift " : L"") + ((held & MOD_CONTROL) != 0 ? L"ctrl " : L"");
    };
    switch (key.kind) {
    case TerminalKey::Kind::Character:
        return std::wstring(1, key.character == 0x1B ? L'E' : key.character);
    case TerminalKey::Kind::Key:
        return L"<" + modifiers(key.modifiers) + names.at(key.key) + L">";
    case TerminalKey::Kind::CanTellKeys:
        return L"<answer>";
    case TerminalKey::Kind::Event:
        if (event.kind == InputEvent::Kind::Paste)
            return L"'" + event.text + L"'";
        return L"<" + modifiers(event.modifiers) + events.at(event.kind) + L" "
            + std::to_wstring(event.kind == InputEvent::Kind::Wheel ? event.delta : static_cast<int>(event.button))
            + L" " + std::to_wstring(event.x) + L"," + std::to_wstring(event.y) + L">";
    }
    return {};
}

/// Keys as text: Escape as "E", a key and the pointer as "<shift up>" and "<down 0 3,4>", a paste in apostrophes. A "|"
/// among the bytes is a pause of a tenth of a second, at the end one of any length.
std::wstring Read(const std::string& bytes) {
    TerminalInput input(KeyOf);
    std::wstring told;
    const auto take = [&] {
        while (const auto key = input.Take())
            told += Told(*key);
    };
    for (const char byte : bytes) {
        constexpr int Tenth = 100;
        if (byte != '|')
            input.Feed(byte);
        else if (input.Patience() >= 0 && input.Patience() <= Tenth)
            input.PauseIsOver();
        take();
    }
    while (input.Patience() >= 0)
        input.PauseIsOver();
    take();
    return told;
}

void ExpectRead(const std::vector<std::pair<std::string, std::wstring>>& cases) {
    for (const auto& [bytes, told] : cases)
        EXPECT_EQ(Read(bytes), told) << testing::PrintToString(bytes);
}

TEST(TerminalInputTest, SequencesAreKeysOrNothing) {
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    const std::tuple<const char*, std::string, std::wstring> cases[] = {
        {"text of several bytes a character", "a\xC3\xA9\xE6\xB1\xBD", L"a\u00E9\u6C7D"},
        {"broken text", "a\xC3z\xFF", std::wstring(L"az\0", 3)},
        {"a lone Escape", "\x1b|x", L"Ex"},
        {"Escape twice", "\x1b\x1b|", L"EE"},
        {"a held Escape", "\x1b\x1b\x1b\x1b|", L"EEEE"},
        {"a key", "x\x1bOAy", L"x<up>y"},
        {"a key that ends early", "\x1b[3$y", L"<shift delete>y"},
        {"a key of the text console", "\x1b[[Ay", L"<soft1>y"},
        {"a key that is none here", "\x1b[24~y", L"y"},
        {"a soft key",
            "\x1b"
            "1\x1b"
            "2y",
            L"<soft1><soft2>y"},
        {"one as two keys", "\x1b|1\x1b|2y", L"<soft1><soft2>y"},
        {"Escape, then another digit", "\x1b|3", L"E3"},
        {"Escape, then a key", "\x1b|\x1b[Ay", L"E<up>y"},
        {"focus comes and goes", "\x1b[I\x1b[Oy", L"y"},
        {"Alt and a key", "\x1b\x1bOAy", L"y"},
        {"Alt and a character", "\x1b\xC3\xA9y\x1b\ry", L"yy"},
        {"a colour's late answer", "\x1b]11;rgb:0000/0000/0000\x1b\\y", L"y"},
        {"the same, ended by a bell", "\x1b]11;rgb:0000/0000/0000\ay", L"y"},
        {"a device's late answer", "\x1bP1+r544e=787465726d\x1b\\\x1b[?64;1;2cy", L"y"},
        {"others with strings", "\x1b_Gi=1;OK\x1b\\\x1b^a\x1b\\\x1bXa\x1b\\y", L"y"},
        {"a sequence that never ends", "\x1b[1;", L""},
        {"a string that never ends", "\x1b]11", L""},
        {"a sequence of any length", "\x1b[" + std::string(100'000, '1') + "Ay", L"y"},
        {"one cut off by a key", "\x1b[1;\r\x1b]11\r\x1bO\x1bOAy", L"\r\r<up>y"},
        {"one cut off by Escape", "\x1b[1;\x1b|", L"E"},
        {"a string cut off by a key", "\x1b]11\x1bOAy", L"<up>y"},
    };
    for (const auto& [what, bytes, keys] : cases)
        EXPECT_EQ(Read(bytes), keys) << what;
}

TEST(TerminalInputTest, PastesAreText) {
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    ExpectRead({
        {"\x1b[200~q]\xC3\xA9\x1b[201~]", L"'q]\u00E9']"},
        {"\x1b[200~a\r\nb\nc\rd\te\x1b[201~", L"'a\nb\nc\nd e'"},
        {"\x1b[200~a\x03\x1b[31m\xC2\x9B"
         "b\x1b[201~x",
            L"'a31mb'x"},
        {"\x1b[200~a\x1b\x1b[201~x", L"'a'x"},
        {"\x1b[200~a|x", L"'ax'"},
    });
}

TEST(TerminalInputTest, KeysAndTheirModifiersComeInManyForms) {
    ExpectRead({
        {"\x1b[A\x1bOB\x1b[1;2C\x1b[1;5D", L"<up><down><shift right><ctrl left>"},
        {"\x1b[a\x1bOb\x1b[5^\x1b[6@\x1b[7$", L"<shift up><ctrl down><ctrl page up><shift ctrl page down><shift home>"},
        {"\x1b[H\x1b[4~\x1b[3;2~\x1b[Z", L"<home><end><shift delete><shift tab>"},
        {"\x1bOP\x1b[12~\x1b[P\x1bOM", L"<soft1><soft2><soft1><action>"},
        {"\x1b[13;2u\x1b[27;2;13~\x1b[27u\x1b[57414u", L"<shift action><shift action><back><action>"},
        {"\x1b[49;3u\x1b[27;3;50~\x1b[49;131u", L"<soft1><soft2><soft1>"},
        {"\x1b[97;5u\x1b[252u\x1b[65;2u\x1b[97;65u",
            L"\x01\u00FC"
            L"Aa"},
        {"\x1b[?1u", L"<answer>"},
        // With Alt or a key that there is none of here; numbers that are none or too many.
        {"\x1b[1;3A\x1b[1;9A\x1b[13;3u\x1b[97;7u\x1b[49;7u\x1b[97;0u\x1b[57358u", L""},
        {"\x1b[2A\x1b[1;2;3A\x1b[;2A\x1b[1;A\x1b[99999999999;2A\x1b[1:2A\x1b[-1A\x1b[9~\x1b[u\x1b[27;2;~", L""},
        {"\x1b[12;40R\x1b[?64;1c\x1b[>0;1;2c\x1b[8;24;80t\x1b[?2026;1$y", L""},
    });
}

TEST(TerminalInputTest, ThePointerIsToldByItsCells) {
    ExpectRead({
        {"\x1b[<0;1;24M\x1b[<32;2;24M\x1b[<0;3;24m", L"<down 0 0,23><move 0 1,23><up 0 2,23>"},
        {"\x1b[<2;1;1M\x1b[<1;1;1M\x1b[<20;1;1M", L"<down 2 0,0><down 1 0,0><shift ctrl down 0 0,0>"},
        {"\x1b[<64;5;6M\x1b[<65;5;6M", L"<wheel 3 4,5><wheel -3 4,5>"},
        // Nothing of what is broken or unknown: other buttons, no button, a place outside, too few numbers, the old
        // form.
        {"\x1b[<66;1;1M\x1b[<128;1;1M\x1b[<35;1;1M\x1b[<0;0;1M\x1b[<0;1M\x1b[<0;1;1;1M\x1b[<0;1;1;M\x1b[<;1;1M", L""},
        {"\x1b[M q]\x1b[M\xC3\x1b[y", L"y"},
    });
}

TEST(TerminalInputTest, APauseEndsAnEscapeSoonAndAPasteLate) {
    TerminalInput input(KeyOf);
    EXPECT_EQ(input.Patience(), -1);
    input.Feed(0x1B);
    const int first = input.Patience();
    input.PauseIsOver();
    EXPECT_EQ(first + input.Patience(), 300) << "for a digit, and not a moment more: Back must not lag";
    input.Feed(0x1B);
    for (const char byte : {'[', '2', '0', '0'})
        input.Feed(byte);
    EXPECT_GE(input.Patience(), 500) << "a slow line";
    input.Feed('~');
    EXPECT_GE(input.Patience(), 5000);
}

} // namespace
