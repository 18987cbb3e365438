#pragma once

#include "hosts/terminal/terminal_key.h"

#include <cwchar>
#include <deque>
#include <functional>
#include <optional>
#include <string>

namespace device {

/// Makes keys of the bytes that a terminal sends, in the encoding of the process's locale. A sequence that no key is
/// known for is swallowed whole, in however many pieces it comes.
class TerminalInput {
public:
    /// The key of a whole sequence of bytes.
    using KeyOf = std::function<std::optional<TerminalKey>(const std::string&)>;
    explicit TerminalInput(KeyOf keyOf)
        : keyOf_(std::move(keyOf)) { }

    void Feed(char byte);
    /// The next whole key.
    std::optional<TerminalKey> Take();

    /// How many milliseconds of silence end what has begun; -1: nothing has.
    int Patience() const;
    /// They are over: what had begun is a key, a paste, or given up; or there is still some patience for it.
    void PauseIsOver();

private:
    enum class State {
        Text,
        Escape,
        LateEscape, ///< a moment after it: nothing but a soft key's digit belongs to it any more
        Control,
        Single,
        Pointer, ///< told in the old way, in three bytes of any kind
        String,
        StringEscape,
        Modified,
        Paste
    };

    void FeedText(char byte);
    void FeedEscape(char byte);
    void FeedLateEscape(char byte);
    void FeedControl(char byte);
    void FeedString(char byte);
    void FeedPaste(char byte);
    void EndPaste();
    void Begin();
    void Complete();
    void Abandon(char byte);
    std::optional<wchar_t> Decode(char byte);

    KeyOf keyOf_;
    State state_ = State::Text;
    std::string sequence_;
    bool isModified_ = false; ///< two Escapes begin the sequence: a key with Alt
    std::wstring pasted_;
    std::size_t matched_ = 0; ///< of what ends a paste
    bool lineEnded_ = false; ///< a return was pasted: a line feed behind it belongs to it
    std::mbstate_t shift_{};
    std::deque<TerminalKey> keys_;
};

} // namespace device
