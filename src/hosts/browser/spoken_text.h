#pragma once

#include "platform/drawing/recording_canvas.h"

#include <string>

namespace device {

/// Puts into words, for a person who does not see the screen, what has changed on it.
class Speaker {
public:
    /// The window or message in front where it is another one, then what has the focus, with its label and its state;
    /// within a field of parts the part alone. Empty: nothing that is to be told has changed.
    std::wstring News(const RecordingCanvas& canvas);

private:
    struct Told {
        HWND front = nullptr;
        HWND focus = nullptr; ///< none while a menu is open
        std::wstring text;
        std::wstring part;
        bool isField = false;

        bool operator==(const Told&) const = default;
    };

    Told Look(const RecordingCanvas& canvas) const;

    Told told_;
};

} // namespace device
