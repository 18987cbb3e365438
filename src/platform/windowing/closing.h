#pragma once

namespace device {

struct Window;

/// The end of the program from outside, whatever stands open: forms, messages and menus are left without what was
/// typed, then the frame is closed.
class Closing {
public:
    /// A person closes the window. Where something was typed a question comes first; asked for once more while it
    /// stands, the program ends.
    void Ask();
    /// The process is told to end: there is nobody to ask.
    void Order() { state_ = State::Ordered; }

    /// What is next to be done for it, while the device is idle. False when there is nothing. A program that does not
    /// end in a few hundred steps is ended with EXIT_FAILURE.
    bool Step();

private:
    enum class State { None, Asked, Asking, Ordered };
    void AskIfTyped();
    void Leave();

    State state_ = State::None;
    int steps_ = 0;
};

/// Whether a form stands open with a field that differs from what it opened with.
bool IsSomethingTyped();

/// Whether a window is to be left: a person is asked first where something was typed in it.
bool MayBeLeft(const Window& window);

} // namespace device
