#pragma once

#include "platform/types.h"

#include <string>

namespace device {

/// A text that goes into the full-screen editor and comes out of it.
struct FullScreenText {
    std::wstring text;
    std::size_t caret = 0;
    bool taken = false; ///< the user ended with Done
};

/// Opens a nested dialog with nothing but the text of `edit`, under the same rules of typing, and waits for its end.
FullScreenText EditFullScreen(HWND edit, FullScreenText text, std::size_t limit);

} // namespace device
