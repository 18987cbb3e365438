#pragma once

#include <cwchar>
#include <deque>
#include <functional>
#include <optional>
#include <string>

namespace device {

/// A key as the terminal tells it: a character, or one of the library's codes.
struct TerminalKey {
    bool isCode = false;
    wchar_t character = 0;
    int code = 0;
    bool isPasted = false; ///< a character of a text that was pasted; its line ends are L'\n'
};

/// Makes keys of the bytes that a terminal sends, in the encoding of the process's locale. A sequence that no key is
/// known for is swallowed whole, in however many pieces it comes.
class TerminalInput {
public:
    /// The code of a whole sequence of bytes; 0 or less: no key's.
    using CodeOf = std::function<int(const std::string&)>;
    explicit TerminalInput(CodeOf codeOf)
        : codeOf_(std::move(codeOf)) { }

    void Feed(char byte);
    /// The next whole key.
    std::optional<TerminalKey> Take();

    /// How many milliseconds of silence end what has begun; -1: nothing has.
    int Patience() const;
    /// They are over: an Escape alone was the key, anything else is given up.
    void PauseIsOver();

private:
    enum class State { Text, Escape, Control, Single, String, StringEscape, Modified, Paste };

    void FeedText(char byte);
    void FeedEscape(char byte);
    void FeedControl(char byte);
    void FeedString(char byte);
    void FeedPaste(char byte);
    void Begin();
    void Complete();
    void Abandon(char byte);
    std::optional<wchar_t> Decode(char byte);

    CodeOf codeOf_;
    State state_ = State::Text;
    std::string sequence_;
    bool isModified_ = false; ///< two Escapes begin the sequence: a key with Alt
    std::size_t matched_ = 0; ///< of what ends a paste
    bool lineEnded_ = false; ///< a return was pasted: a line feed behind it belongs to it
    std::mbstate_t shift_{};
    std::deque<TerminalKey> keys_;
};

} // namespace device
