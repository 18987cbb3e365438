#pragma once

namespace device {

/// Gives the terminal back in every way out of the process: an ordinary end, std::exit, a crash.
class TerminalRescue {
public:
    /// Before the terminal is changed: notes how it is.
    static void Prepare();
    /// After it was changed: it is asked to tell pastes and, with `pointer`, what that does; from now on a crash or
    /// std::exit gives it back.
    static void Arm(bool pointer);
    /// Asks it to tell each key without doubt. For a terminal that answered that it can, once its screen is shown.
    static void AskForKeys();
    /// Gives it back, once for each Arm.
    static void Restore();
};

} // namespace device
