#pragma once

#include "platform/types.h"

// The program's message boxes. Styles and answers are those of MessageBoxW.

namespace messages {
inline constexpr UINT NoticeStyle = 64; ///< a notice, or a rule of a form that was broken
inline constexpr UINT QuestionStyle = 52; ///< the question before a deletion; 7 (No) stops it
inline constexpr UINT FailureStyle = 48; ///< the data file failed
} // namespace messages

/// A text or caption below 0x10000 is the number of a string, else a pointer to the text; a caption of 0 shows the
/// device's own. Returns what MessageBoxW returns, 0 if memory ran out.
int ShowMessage(HWND owner, std::uintptr_t text, std::uintptr_t caption, UINT style);
int ShowMessage(HWND owner, const wchar_t* text, std::uintptr_t caption, UINT style);

/// The data layer has just failed to store or delete a record, and says why: silence would be data lost without a word.
void ShowStoreFailure();
