#pragma once

namespace device {

/// What a signal or another thread has to say to the loop that waits for keys. One a process.
class Signals {
public:
    enum class Kind { None, Wake, Resized, Interrupted, HungUp, Ended, Suspended };

    Signals();
    /// The signals are as they were before.
    ~Signals();
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

    /// Readable when Next has something to tell.
    int Descriptor() const;
    /// What came next; None when there is nothing.
    Kind Next();
    /// Stops the process and all of its job, as a terminal's Ctrl+Z does everywhere; returns when it goes on in the
    /// foreground. Nothing stops where nobody could make it go on. False when it was told to end meanwhile: the
    /// terminal is another's then.
    static bool Stop();
    /// From any thread.
    static void Tell(Kind kind);
};

} // namespace device
