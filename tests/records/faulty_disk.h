#pragma once

/// A disk that can be told to fail, under every data file that is opened while it is there. A write that fails leaves
/// half of its bytes behind.
class FaultyDisk {
public:
    FaultyDisk();
    FaultyDisk(const FaultyDisk&) = delete;
    FaultyDisk& operator=(const FaultyDisk&) = delete;
    ~FaultyDisk();

    enum class Span { Once, FromThenOn };
    enum class Error { Io, Full };
    /// The Nth operation fails of whatever can fail: opening, locking and reading a file too, unless only changes
    /// count.
    void FailAt(int operation, Span span, Error error, bool countsReading = true);
    /// Every change from the Nth on fails, as when the power goes. Reading goes on.
    void FailFrom(int change) { FailAt(change, Span::FromThenOn, Error::Full, false); }
    void Mend();
    /// Whether anything has failed since it was told to.
    bool HasFailed() const;
};
