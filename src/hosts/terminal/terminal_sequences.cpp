#include "hosts/terminal/terminal_sequences.h"

#include "platform/input.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <vector>

namespace device {

namespace {

/// "ESC [ < 1 ; 2 M": what begins it ('['), the marker ('<', else 0), the numbers, what ends it ('M').
struct Sequence {
    char begin = 0;
    char marker = 0;
    std::vector<int> numbers;
    char end = 0;

    /// 1 where it is left out, as everywhere in these sequences.
    int Number(std::size_t index) const { return index < numbers.size() ? numbers[index] : 1; }
};

constexpr std::size_t MostNumbers = 3;
constexpr int LargestNumber = 0x10FFFF;

std::optional<Sequence> Split(std::string_view text) {
    constexpr std::size_t Shortest = 3;
    if (text.size() < Shortest || text[0] != '\x1b' || (text[1] != '[' && text[1] != 'O'))
        return std::nullopt;
    Sequence result;
    result.begin = text[1];
    result.end = text.back();
    text = text.substr(2, text.size() - Shortest);
    if (!text.empty() && text[0] >= '<' && text[0] <= '?') {
        result.marker = text[0];
        text.remove_prefix(1);
    }
    while (!text.empty()) {
        int number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc{} || number < 0 || number > LargestNumber || result.numbers.size() == MostNumbers)
            return std::nullopt;
        result.numbers.push_back(number);
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        if (text.empty())
            break;
        if (text[0] != ';' || text.size() == 1)
            return std::nullopt;
        text.remove_prefix(1);
    }
    return result;
}

struct Modifiers {
    unsigned handset;
    bool alt;
};

/// Nothing when a key is held that the handset knows nothing of. The number is one more than its bits.
std::optional<Modifiers> ModifiersOf(int number) {
    constexpr unsigned Shift = 1;
    constexpr unsigned Alt = 2;
    constexpr unsigned Control = 4;
    constexpr unsigned Locks = 64 | 128;
    const unsigned bits = (static_cast<unsigned>(number) - 1) & ~Locks;
    if ((bits & ~(Shift | Alt | Control)) != 0)
        return std::nullopt;
    return Modifiers{
        ((bits & Shift) != 0 ? MOD_SHIFT : 0) | ((bits & Control) != 0 ? MOD_CONTROL : 0), (bits & Alt) != 0};
}

template <typename Sign> struct Known {
    Sign sign;
    WORD key;
};

template <typename Table, typename Sign> WORD Find(const Table& table, Sign sign) {
    const auto* found
        = std::find_if(std::begin(table), std::end(table), [sign](const auto& each) { return each.sign == sign; });
    return found == std::end(table) ? WORD{0} : found->key;
}

constexpr Known<char> Letters[] = {{'A', VK_UP}, {'B', VK_DOWN}, {'C', VK_RIGHT}, {'D', VK_LEFT}, {'H', VK_HOME},
    {'F', VK_END}, {'P', VK_TSOFT1}, {'Q', VK_TSOFT2}};
constexpr Known<int> Numbers[] = {{1, VK_HOME}, {3, VK_DELETE}, {4, VK_END}, {5, VK_PRIOR}, {6, VK_NEXT}, {7, VK_HOME},
    {8, VK_END}, {11, VK_TSOFT1}, {12, VK_TSOFT2}, {2, VK_INSERT}, {21, VK_F10}, {29, VK_APPS}};
/// The keypad's have numbers of their own.
constexpr Known<int> Codes[] = {{8, VK_BACK}, {9, VK_TAB}, {13, VK_TACTION}, {27, VK_TBACK}, {127, VK_BACK},
    {57414, VK_TACTION}, {57417, VK_LEFT}, {57418, VK_RIGHT}, {57419, VK_UP}, {57420, VK_DOWN}, {57421, VK_PRIOR},
    {57422, VK_NEXT}, {57423, VK_HOME}, {57424, VK_END}, {57426, VK_DELETE}};

std::optional<TerminalKey> KeyWith(WORD key, int modifiers) {
    const auto held = ModifiersOf(modifiers);
    if (key == 0 || !held || held->alt)
        return std::nullopt;
    return TerminalKey::OfKey(key, held->handset);
}

/// A key that is told by its character.
std::optional<TerminalKey> KeyOfCode(int code, int modifiers) {
    const auto held = ModifiersOf(modifiers);
    if (!held)
        return std::nullopt;
    if (held->alt && held->handset == 0 && (code == '1' || code == '2'))
        return TerminalKey::OfKey(code == '1' ? VK_TSOFT1 : VK_TSOFT2);
    if (const WORD key = Find(Codes, code))
        return KeyWith(key, modifiers);
    const bool isFunction = code >= 0xE000 && code <= 0xF8FF;
    if (held->alt || code < ' ' || isFunction)
        return std::nullopt;
    if ((held->handset & MOD_CONTROL) == 0)
        return TerminalKey::OfCharacter(static_cast<wchar_t>(code));
    if (held->handset != MOD_CONTROL || code < 'a' || code > 'z')
        return std::nullopt;
    return TerminalKey::OfCharacter(static_cast<wchar_t>(code - 'a' + 1));
}

/// As some terminals tell Shift and Ctrl: by another end.
std::optional<TerminalKey> KeyOfOtherEnd(const Sequence& sequence) {
    constexpr Known<char> Arrows[] = {{'a', VK_UP}, {'b', VK_DOWN}, {'c', VK_RIGHT}, {'d', VK_LEFT}};
    if (sequence.numbers.empty())
        if (const WORD key = Find(Arrows, sequence.end))
            return TerminalKey::OfKey(key, sequence.begin == 'O' ? MOD_CONTROL : MOD_SHIFT);
    const WORD key = sequence.numbers.size() == 1 ? Find(Numbers, sequence.numbers[0]) : WORD{0};
    if (key == 0)
        return std::nullopt;
    switch (sequence.end) {
    case '$':
        return TerminalKey::OfKey(key, MOD_SHIFT);
    case '^':
        return TerminalKey::OfKey(key, MOD_CONTROL);
    case '@':
        return TerminalKey::OfKey(key, MOD_SHIFT | MOD_CONTROL);
    default:
        return std::nullopt;
    }
}

std::optional<TerminalKey> PointerOf(const Sequence& sequence) {
    constexpr unsigned Shift = 4;
    constexpr unsigned Alt = 8;
    constexpr unsigned Control = 16;
    constexpr unsigned Moves = 32;
    constexpr unsigned WheelUp = 64;
    constexpr unsigned WheelDown = 65;
    constexpr unsigned Buttons = 3;
    constexpr int LinesPerWheelStep = 3;
    if (sequence.numbers.size() != MostNumbers || sequence.numbers[1] < 1 || sequence.numbers[2] < 1)
        return std::nullopt;
    InputEvent event;
    auto bits = static_cast<unsigned>(sequence.numbers[0]);
    event.modifiers = ((bits & Shift) != 0 ? MOD_SHIFT : 0) | ((bits & Control) != 0 ? MOD_CONTROL : 0);
    event.x = sequence.numbers[1] - 1;
    event.y = sequence.numbers[2] - 1;
    bits &= ~(Shift | Alt | Control);
    if (sequence.end == 'M' && (bits == WheelUp || bits == WheelDown)) {
        event.kind = InputEvent::Kind::Wheel;
        event.delta = bits == WheelUp ? LinesPerWheelStep : -LinesPerWheelStep;
        return TerminalKey::OfEvent(event);
    }
    if ((bits & ~Moves) >= Buttons)
        return std::nullopt;
    event.button = static_cast<InputEvent::Button>(bits & Buttons);
    event.kind = sequence.end == 'm' ? InputEvent::Kind::MouseUp
        : (bits & Moves) != 0        ? InputEvent::Kind::MouseMove
                                     : InputEvent::Kind::MouseDown;
    return TerminalKey::OfEvent(event);
}

std::optional<TerminalKey> KeyOfOnlyNumbers(const Sequence& sequence) {
    constexpr int CharacterFollows = 27;
    const std::size_t count = sequence.numbers.size();
    switch (sequence.end) {
    case '~':
        if (count == 3 && sequence.numbers[0] == CharacterFollows)
            return KeyOfCode(sequence.numbers[2], sequence.numbers[1]);
        return count <= 2 ? KeyWith(Find(Numbers, sequence.Number(0)), sequence.Number(1)) : std::nullopt;
    case 'u':
        return count == 1 || count == 2 ? KeyOfCode(sequence.numbers[0], sequence.Number(1)) : std::nullopt;
    case 'Z':
        return count == 0 ? std::optional(TerminalKey::OfKey(VK_TAB, MOD_SHIFT)) : std::nullopt;
    case 'M':
        return sequence.begin == 'O' && count == 0 ? std::optional(TerminalKey::OfKey(VK_TACTION)) : std::nullopt;
    default:
        break;
    }
    if (const WORD key = Find(Letters, sequence.end))
        return count <= 2 && sequence.Number(0) == 1 ? KeyWith(key, sequence.Number(1)) : std::nullopt;
    return KeyOfOtherEnd(sequence);
}

} // namespace

std::optional<TerminalKey> KeyOfSequence(std::string_view text) {
    const auto sequence = Split(text);
    if (!sequence)
        return std::nullopt;
    if (sequence->marker == 0)
        return KeyOfOnlyNumbers(*sequence);
    if (sequence->begin != '[')
        return std::nullopt;
    if (sequence->marker == '<' && (sequence->end == 'M' || sequence->end == 'm'))
        return PointerOf(*sequence);
    if (sequence->marker == '?' && sequence->end == 'u')
        return TerminalKey{TerminalKey::Kind::CanTellKeys, 0, 0, 0, {}};
    return std::nullopt;
}

} // namespace device
