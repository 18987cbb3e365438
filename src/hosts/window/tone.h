#pragma once

#include <cstdint>

namespace device {

/// A short quiet tone. The sound device is open only while it sounds, so that an idle program costs nothing.
class Tone {
public:
    Tone() = default;
    ~Tone();
    Tone(const Tone&) = delete;
    Tone& operator=(const Tone&) = delete;

    /// Silent without a sound device.
    void Play();
    bool IsOpen() const { return device_ != 0; }
    /// Closes the sound device once the tone is over.
    void CloseWhenOver();

private:
    void Close();

    std::uint32_t device_ = 0;
    std::uint32_t endTicks_ = 0;
    bool failed_ = false;
};

} // namespace device
