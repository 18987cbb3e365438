#pragma once

namespace device {

/// Gives the terminal back in every way out of the process: an ordinary end, std::exit, a crash.
class TerminalRescue {
public:
    /// Before the terminal is changed: notes how it is.
    static void Prepare();
    /// After it was changed: from now on a crash or std::exit gives it back.
    static void Arm();
    /// Gives it back, once.
    static void Restore();
};

} // namespace device
