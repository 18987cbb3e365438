#pragma once

#include "platform/types.h"

#include <optional>
#include <string>
#include <string_view>

namespace device {

/// How large the window was when it was last closed, kept in a small text file of the host's own.
struct RememberedSize {
    SIZE screen{}; ///< in device pixels
    double zoom = 1.0; ///< on top of the display's own
    bool isFixed = false; ///< a person chose the zoom; else it follows the window

    /// Nothing when any part of the text is damaged or out of range. A text of two lines is of a time when every zoom
    /// but the display's own was a person's choice.
    static std::optional<RememberedSize> Parse(std::string_view text);
    std::string ToText() const;

    /// Nothing when the file is missing, unreadable or damaged.
    static std::optional<RememberedSize> Load(const std::string& file);
    /// Replaces the file as a whole; false when that failed, and then the old one stands.
    bool Store(const std::string& file) const;

    bool operator==(const RememberedSize& other) const {
        return screen.cx == other.screen.cx && screen.cy == other.screen.cy && zoom == other.zoom
            && isFixed == other.isFixed;
    }
};

/// The next larger or smaller of the steps that a person can choose; the same at either end.
double LargerZoom(double zoom);
double SmallerZoom(double zoom);

} // namespace device
