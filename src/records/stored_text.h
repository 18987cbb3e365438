#pragma once

#include <memory>
#include <string_view>

/// A text that a record owns: NUL-terminated, and one pointer wide, since a log holds hundreds of thousands of them
/// and most are empty.
class CStoredText {
public:
    /// Never null; valid until the next change.
    const wchar_t* Get() const { return text_ ? text_.get() : L""; }
    /// Copies `text`; null counts as empty. True when that changed the text. Without memory the old text stays.
    bool Set(const wchar_t* text);
    /// The same for a text whose length is known, without the comparison.
    void Assign(std::wstring_view text);

private:
    std::unique_ptr<wchar_t[]> text_; ///< null for an empty text
};
