#include "hosts/terminal/terminal_input.h"

#include "platform/input.h"

#include <string_view>
#include <utility>

namespace device {

namespace {

constexpr char Escape = 0x1B;
constexpr char Bell = 7;
constexpr std::string_view PasteBegins = "\x1b[200~";
constexpr std::string_view PasteEnds = "\x1b[201~";

// What is sent in one go comes so close behind its Escape even over a slow line.
constexpr int EscapePatience = 50;
// Some send Alt and a digit as two keys, as fast as fingers do it.
constexpr int SoftKeyPatience = 250;
constexpr int SequencePatience = 1000;
// What is left of a paste must not be taken for keys, however the line stalls.
constexpr int PastePatience = 10'000;
/// Longer ones are cut: no field takes as much.
constexpr std::size_t LongestPaste = 1'000'000;
/// What is longer is no key.
constexpr std::size_t LongestSequence = 64;
constexpr std::size_t OldPointerLength = 6;

bool IsBetween(char byte, unsigned first, unsigned last) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= first && value <= last;
}

/// Alt and this digit are a soft key, which terminals that keep F1 and F2 for themselves have as well.
WORD SoftKeyOf(char byte) {
    return byte == '1' ? VK_TSOFT1 : byte == '2' ? VK_TSOFT2 : WORD{0};
}

} // namespace

void TerminalInput::Feed(char byte) {
    switch (state_) {
    case State::Text:
        FeedText(byte);
        return;
    case State::Escape:
        FeedEscape(byte);
        return;
    case State::LateEscape:
        FeedLateEscape(byte);
        return;
    case State::Pointer:
        sequence_ += byte;
        if (sequence_.size() == OldPointerLength)
            state_ = State::Text;
        return;
    case State::Control:
    case State::Single:
        FeedControl(byte);
        return;
    case State::String:
        FeedString(byte);
        return;
    case State::StringEscape:
        if (byte == '\\') {
            state_ = State::Text;
        } else {
            Begin();
            FeedEscape(byte);
        }
        return;
    case State::Modified:
        if (Decode(byte))
            state_ = State::Text;
        return;
    case State::Paste:
        FeedPaste(byte);
        return;
    }
}

std::optional<TerminalKey> TerminalInput::Take() {
    if (keys_.empty())
        return std::nullopt;
    TerminalKey key = std::move(keys_.front());
    keys_.pop_front();
    return key;
}

int TerminalInput::Patience() const {
    switch (state_) {
    case State::Text:
        return -1;
    case State::Escape:
        return EscapePatience;
    case State::LateEscape:
        return SoftKeyPatience;
    case State::Paste:
        return PastePatience;
    default:
        return SequencePatience;
    }
}

void TerminalInput::PauseIsOver() {
    switch (state_) {
    case State::Escape:
        if (!isModified_) {
            state_ = State::LateEscape;
            return;
        }
        keys_.push_back(TerminalKey::OfCharacter(Escape));
        [[fallthrough]];
    case State::LateEscape:
        keys_.push_back(TerminalKey::OfCharacter(Escape));
        break;
    case State::Paste:
        EndPaste();
        break;
    default:
        break;
    }
    state_ = State::Text;
}

void TerminalInput::Begin() {
    state_ = State::Escape;
    sequence_.assign(1, Escape);
    isModified_ = false;
    shift_ = {};
}

/// What has begun was no whole sequence: the byte stands for itself.
void TerminalInput::Abandon(char byte) {
    state_ = State::Text;
    Feed(byte);
}

void TerminalInput::Complete() {
    state_ = State::Text;
    if (sequence_ == PasteBegins) {
        state_ = State::Paste;
        pasted_.clear();
        matched_ = 0;
        lineEnded_ = false;
    } else if (isModified_) {
        return; // a key with Alt
    } else if (auto key = keyOf_(sequence_)) {
        keys_.push_back(std::move(*key));
    } else if (sequence_ == "\x1b[M") {
        state_ = State::Pointer;
    }
}

void TerminalInput::EndPaste() {
    keys_.push_back(TerminalKey::OfEvent({.kind = InputEvent::Kind::Paste, .text = std::exchange(pasted_, {})}));
}

/// The character that ends with the byte, if any; 0 for what is none in the encoding.
std::optional<wchar_t> TerminalInput::Decode(char byte) {
    constexpr auto Invalid = static_cast<std::size_t>(-1);
    constexpr auto Incomplete = static_cast<std::size_t>(-2);
    const bool hadBegun = std::mbsinit(&shift_) == 0;
    wchar_t character = 0;
    switch (std::mbrtowc(&character, &byte, 1, &shift_)) {
    case Incomplete:
        return std::nullopt;
    case Invalid:
        shift_ = {};
        // What was cut off does not take the character behind it along.
        return hadBegun ? Decode(byte) : L'\0';
    default:
        return character;
    }
}

void TerminalInput::FeedText(char byte) {
    if (byte == Escape) {
        Begin();
        return;
    }
    if (const auto character = Decode(byte))
        keys_.push_back(TerminalKey::OfCharacter(*character));
}

void TerminalInput::FeedEscape(char byte) {
    if (byte == Escape) {
        // Pressed again and again, or held: only the last two can belong to a sequence.
        if (isModified_)
            keys_.push_back(TerminalKey::OfCharacter(Escape));
        isModified_ = true;
        return;
    }
    if (const WORD key = isModified_ ? WORD{0} : SoftKeyOf(byte)) {
        state_ = State::Text;
        keys_.push_back(TerminalKey::OfKey(key));
        return;
    }
    sequence_ += byte;
    switch (byte) {
    case '[':
        state_ = State::Control;
        return;
    case 'O':
        state_ = State::Single;
        return;
    case ']': // a command to the system, and four more strings
    case 'P':
    case 'X':
    case '^':
    case '_':
        state_ = State::String;
        return;
    default:
        // A key with Alt.
        state_ = State::Modified;
        Feed(byte);
    }
}

void TerminalInput::FeedLateEscape(char byte) {
    state_ = State::Text;
    if (const WORD key = SoftKeyOf(byte)) {
        keys_.push_back(TerminalKey::OfKey(key));
        return;
    }
    keys_.push_back(TerminalKey::OfCharacter(Escape));
    Feed(byte);
}

void TerminalInput::FeedControl(char byte) {
    // The text console sends "ESC [ [ A" for its first function key.
    const bool isConsoles = sequence_ == "\x1b[[";
    if (!IsBetween(byte, 0x20, 0x7E)) {
        Abandon(byte);
        return;
    }
    if (sequence_.size() < LongestSequence)
        sequence_ += byte;
    const bool isEnd = IsBetween(byte, 0x40, 0x7E) && sequence_ != "\x1b[[";
    // Some terminals end a key's sequence with what is else the last but one byte.
    if (isEnd || isConsoles || (IsBetween(byte, 0x20, 0x2F) && keyOf_(sequence_)))
        Complete();
}

void TerminalInput::FeedString(char byte) {
    if (byte == Escape)
        state_ = State::StringEscape;
    else if (byte == Bell)
        state_ = State::Text;
    else if (IsBetween(byte, 0, 0x1F))
        Abandon(byte); // nothing that ends comes of it any more
}

void TerminalInput::FeedPaste(char byte) {
    if (byte == PasteEnds[matched_]) {
        if (++matched_ == PasteEnds.size()) {
            state_ = State::Text;
            EndPaste();
        }
        return;
    }
    matched_ = byte == Escape ? 1 : 0;
    if (matched_ > 0)
        return;
    auto character = Decode(byte);
    if (!character)
        return;
    const bool isRestOfLineEnd = std::exchange(lineEnded_, character == L'\r') && character == L'\n';
    if (character == L'\r')
        character = L'\n';
    else if (character == L'\t')
        character = L' ';
    const bool isText = character == L'\n' || (*character >= L' ' && (*character < 0x7F || *character >= 0xA0));
    if (!isRestOfLineEnd && isText && pasted_.size() < LongestPaste)
        pasted_ += *character;
}

} // namespace device
