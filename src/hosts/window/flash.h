#pragma once

#include <cstdint>

namespace device {

/// A beep as it is seen: something is there, gone and there again, a tenth of a second each. Times are in milliseconds.
class Flash {
public:
    static constexpr int Over = -1;

    void Begin(std::uint64_t now) {
        begin_ = now;
        isRunning_ = true;
    }
    void End() { isRunning_ = false; }
    bool IsOn(std::uint64_t now) const { return UntilChange(now) != Over && (now - begin_) / Part % 2 == 0; }
    /// How long it stays as it is.
    int UntilChange(std::uint64_t now) const {
        const std::uint64_t passed = now - begin_;
        return isRunning_ && passed < Parts * Part ? static_cast<int>(Part - passed % Part) : Over;
    }

private:
    static constexpr std::uint64_t Part = 100;
    static constexpr std::uint64_t Parts = 3;

    std::uint64_t begin_ = 0;
    bool isRunning_ = false;
};

} // namespace device
