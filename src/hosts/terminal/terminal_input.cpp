#include "hosts/terminal/terminal_input.h"

#include <string_view>
#include <utility>

namespace device {

namespace {

constexpr char Escape = 0x1B;
constexpr char Bell = 7;
constexpr std::string_view PasteBegins = "\x1b[200~";
constexpr std::string_view PasteEnds = "\x1b[201~";

// Short enough that Back does not lag, long enough for a key's sequence over a slow line.
constexpr int EscapePatience = 50;
constexpr int SequencePatience = 1000;
// What is left of a paste must not be taken for keys, however the line stalls.
constexpr int PastePatience = 10'000;

bool IsBetween(char byte, unsigned first, unsigned last) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= first && value <= last;
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
    const TerminalKey key = keys_.front();
    keys_.pop_front();
    return key;
}

int TerminalInput::Patience() const {
    switch (state_) {
    case State::Text:
        return -1;
    case State::Escape:
        return EscapePatience;
    case State::Paste:
        return PastePatience;
    default:
        return SequencePatience;
    }
}

void TerminalInput::PauseIsOver() {
    if (state_ == State::Escape)
        for (int times = isModified_ ? 2 : 1; times > 0; --times)
            keys_.push_back({false, wchar_t{Escape}, 0});
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
        matched_ = 0;
        lineEnded_ = false;
    } else if (const int code = isModified_ ? 0 : codeOf_(sequence_); code > 0) {
        keys_.push_back({true, 0, code});
    }
}

/// The character that ends with the byte, if any. What is no character in the encoding gives none.
std::optional<wchar_t> TerminalInput::Decode(char byte) {
    constexpr auto Invalid = static_cast<std::size_t>(-1);
    constexpr auto Incomplete = static_cast<std::size_t>(-2);
    wchar_t character = 0;
    switch (std::mbrtowc(&character, &byte, 1, &shift_)) {
    case Incomplete:
        return std::nullopt;
    case Invalid:
        shift_ = {};
        return L'\0';
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
        keys_.push_back({false, *character, 0});
}

void TerminalInput::FeedEscape(char byte) {
    if (byte == Escape) {
        // Pressed again and again, or held: only the last two can belong to a sequence.
        if (isModified_)
            keys_.push_back({false, wchar_t{Escape}, 0});
        isModified_ = true;
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

void TerminalInput::FeedControl(char byte) {
    // The text console sends "ESC [ [ A" for its first function key.
    const bool isConsoles = sequence_ == "\x1b[[";
    if (!IsBetween(byte, 0x20, 0x7E)) {
        Abandon(byte);
        return;
    }
    sequence_ += byte;
    const bool isEnd = IsBetween(byte, 0x40, 0x7E) && sequence_ != "\x1b[[";
    // Some terminals end a key's sequence with what is else the last but one byte.
    if (isEnd || isConsoles || (IsBetween(byte, 0x20, 0x2F) && codeOf_(sequence_) > 0))
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
        if (++matched_ == PasteEnds.size())
            state_ = State::Text;
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
    if (!isRestOfLineEnd && (*character >= L' ' || character == L'\n'))
        keys_.push_back({false, *character, 0, true});
}

} // namespace device
