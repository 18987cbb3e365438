#pragma once

#include <optional>
#include <thread>

namespace device {

/// What the first screen needs beside a display, the device's fonts and the formats of the user's locale, made in a
/// thread of its own while the display is being opened. Nobody may ask for a text or a format until the object is gone,
/// which waits for the thread. Where there is no thread to be had, all is made when it is first asked for.
class Preparation {
public:
    Preparation();
    Preparation(const Preparation&) = delete;
    Preparation& operator=(const Preparation&) = delete;
    ~Preparation() = default;

private:
    std::optional<std::jthread> thread_;
};

} // namespace device
