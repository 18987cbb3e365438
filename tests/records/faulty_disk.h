#pragma once

/// A disk that can be told to fail, under every data file that is opened while it is there. A write that fails leaves
/// half of its bytes behind.
class FaultyDisk {
public:
    FaultyDisk();
    FaultyDisk(const FaultyDisk&) = delete;
    FaultyDisk& operator=(const FaultyDisk&) = delete;
    ~FaultyDisk();

    /// From the Nth change on (a write, a sync, a truncation, the removal of a file) every change fails, as when the
    /// power goes. Reading goes on.
    void FailFrom(int change);

    enum class Span { Once, FromThenOn };
    enum class Error { Io, Full };
    /// Counts whatever can fail: opening, locking and reading a file too.
    void FailAt(int operation, Span span, Error error);
    void Mend();
    /// Whether anything has failed since it was told to.
    bool HasFailed() const;
};
