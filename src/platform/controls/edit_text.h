#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace device {

/// What an edit holds: a text, a caret, and the selection between the caret and its anchor. The caret stands only
/// where a text may be cut, so that a base character and what combines with it are one step.
class EditText {
public:
    /// What typing may add.
    struct Rules {
        bool digitsOnly = false;
        bool upperCase = false;
        bool lines = false; ///< line ends may be inserted
        std::size_t limit = 0; ///< characters; 0: as many as there is room for
    };

    const std::wstring& Text() const { return text_; }
    std::size_t Caret() const { return caret_; }
    std::size_t Start() const { return caret_ < anchor_ ? caret_ : anchor_; }
    std::size_t End() const { return caret_ < anchor_ ? anchor_ : caret_; }
    bool HasSelection() const { return caret_ != anchor_; }

    /// Replaces everything, whatever the rules say but for capitals; the caret goes to the start.
    void Set(std::wstring text, const Rules& rules);
    /// As EM_SETSEL says: an end of -1 is the end of the text, a start of -1 removes the selection.
    void Select(std::ptrdiff_t start, std::ptrdiff_t end);
    /// The word at `index`, or the blanks there.
    void SelectWord(std::size_t index);
    /// Moves the caret; without `extend` the selection goes.
    void MoveTo(std::size_t index, bool extend);
    /// One step. Without `extend` a selection collapses to the side that the step points to.
    void Step(bool forward, bool extend);

    /// Types a character over the selection. False when the rules refuse it; then nothing has changed.
    bool Type(wchar_t character, const Rules& rules);
    enum class Pasted { Nothing, Part, Whole };
    /// Puts a text in place of the selection as far as the rules take it: of a field of digits its digits; line ends
    /// within a text of one line become blanks, those around it go. Nothing: then nothing has changed.
    Pasted Paste(std::wstring_view text, const Rules& rules);
    /// Deletes the selection or, without one, a step before or behind the caret. False when there is nothing.
    bool Delete(bool forward);

private:
    std::size_t Next(std::size_t index) const;
    std::size_t Previous(std::size_t index) const;
    bool IsStop(std::size_t index) const;
    std::size_t Snap(std::size_t index) const;
    void Insert(std::wstring_view text, const Rules& rules);

    std::wstring text_;
    std::size_t caret_ = 0;
    std::size_t anchor_ = 0;
};

} // namespace device
