#include "platform/controls/edit_text.h"

#include "platform/drawing/text_fit.h"
#include "platform/locale.h"

#include <algorithm>
#include <utility>

namespace device {

namespace {

bool IsDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

bool IsBlank(wchar_t character) {
    return character == L' ' || character == L'\t' || character == L'\n' || character == L'\r';
}

/// A paste makes no longer text where the field has no limit: whoever copied more meant another place.
constexpr std::size_t LongestText = 100'000;

/// What the rules leave of a text, line ends as L'\n'.
std::wstring Typable(std::wstring_view text, const EditText::Rules& rules) {
    std::wstring typable;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const bool isPair = text[index] == L'\r' && index + 1 < text.size() && text[index + 1] == L'\n';
        const bool isLineEnd = !isPair && (text[index] == L'\r' || text[index] == L'\n');
        const wchar_t character = isLineEnd ? L'\n' : text[index] == L'\t' ? L' ' : text[index];
        const bool fits = (isLineEnd && rules.lines) || IsDigit(character)
            || (!rules.digitsOnly && (isLineEnd || !IsControlCharacter(character)));
        if (fits)
            typable += character;
    }
    if (rules.lines)
        return typable;
    const std::size_t first = std::min(typable.find_first_not_of(L'\n'), typable.size());
    typable = typable.substr(first, typable.find_last_not_of(L'\n') + 1 - first);
    std::replace(typable.begin(), typable.end(), L'\n', L' ');
    return typable;
}

} // namespace

bool EditText::IsStop(std::size_t index) const {
    const bool insideLineEnd = index > 0 && index < text_.size() && text_[index - 1] == L'\r' && text_[index] == L'\n';
    return !insideLineEnd && IsTextBoundary(text_, index);
}

std::size_t EditText::Next(std::size_t index) const {
    do
        index = NextTextBoundary(text_, index);
    while (!IsStop(index));
    return index;
}

std::size_t EditText::Previous(std::size_t index) const {
    do
        index = PreviousTextBoundary(text_, index);
    while (!IsStop(index));
    return index;
}

std::size_t EditText::Snap(std::size_t index) const {
    index = std::min(index, text_.size());
    return IsStop(index) ? index : Previous(index);
}

void EditText::Set(std::wstring text, const Rules& rules) {
    text_ = std::move(text);
    if (rules.upperCase)
        CharUpperW(text_.data());
    caret_ = anchor_ = 0;
}

void EditText::Select(std::ptrdiff_t start, std::ptrdiff_t end) {
    if (start < 0) {
        anchor_ = caret_;
        return;
    }
    anchor_ = Snap(static_cast<std::size_t>(start));
    caret_ = end < 0 ? text_.size() : Snap(static_cast<std::size_t>(end));
}

void EditText::SelectWord(std::size_t index) {
    const std::size_t at = Snap(std::min(index, text_.empty() ? 0 : text_.size() - 1));
    if (text_.empty())
        return;
    const bool blank = IsBlank(text_[at]);
    anchor_ = caret_ = at;
    while (anchor_ > 0 && IsBlank(text_[anchor_ - 1]) == blank)
        --anchor_;
    while (caret_ < text_.size() && IsBlank(text_[caret_]) == blank)
        ++caret_;
}

void EditText::MoveTo(std::size_t index, bool extend) {
    caret_ = Snap(index);
    if (!extend)
        anchor_ = caret_;
}

void EditText::Step(bool forward, bool extend) {
    if (HasSelection() && !extend)
        MoveTo(forward ? End() : Start(), false);
    else if (forward ? caret_ < text_.size() : caret_ > 0)
        MoveTo(forward ? Next(caret_) : Previous(caret_), extend);
}

void EditText::Insert(std::wstring_view text, const Rules& rules) {
    std::wstring added(text);
    if (rules.upperCase)
        CharUpperW(added.data());
    const std::size_t start = Start();
    text_.replace(start, End() - start, added);
    // What combines with the text behind the caret makes one step with it: the caret goes behind that.
    caret_ = start + added.size();
    if (!IsStop(caret_))
        caret_ = Next(caret_);
    anchor_ = caret_;
}

bool EditText::Type(wchar_t character, const Rules& rules) {
    const bool isLineEnd = character == L'\n' && rules.lines;
    if (IsControlCharacter(character) && !isLineEnd)
        return false;
    if (rules.digitsOnly && !isLineEnd && !IsDigit(character))
        return false;
    if (rules.limit > 0 && text_.size() - (End() - Start()) >= rules.limit)
        return false;
    Insert({&character, 1}, rules);
    return true;
}

EditText::Pasted EditText::Paste(std::wstring_view text, const Rules& rules) {
    std::wstring added = Typable(text, rules);
    const std::size_t wanted = added.size();
    const std::size_t kept = text_.size() - (End() - Start());
    const std::size_t most = rules.limit > 0 ? rules.limit : std::max(kept, LongestText);
    const std::size_t room = most - std::min(most, kept);
    if (wanted > room)
        added.resize(PreviousTextBoundary(added, room + 1));
    if (added.empty())
        return Pasted::Nothing;
    Insert(added, rules);
    return added.size() < wanted ? Pasted::Part : Pasted::Whole;
}

bool EditText::Delete(bool forward) {
    if (!HasSelection())
        Step(forward, true);
    if (!HasSelection())
        return false;
    text_.erase(Start(), End() - Start());
    caret_ = anchor_ = Start();
    // What stood behind the gap may combine with what stands before it now.
    caret_ = anchor_ = Snap(caret_);
    return true;
}

} // namespace device
