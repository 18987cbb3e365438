#pragma once

/// A disk that can be told to fail, under every data file that is opened while it is there. From the Nth change on
/// (a write, a sync, a truncation, the removal of a file) every change fails, as when the power goes.
class FaultyDisk {
public:
    FaultyDisk();
    FaultyDisk(const FaultyDisk&) = delete;
    FaultyDisk& operator=(const FaultyDisk&) = delete;
    ~FaultyDisk();

    void FailFrom(int change);
    void Mend();
    /// Whether anything has failed since FailFrom.
    bool HasFailed() const;
};
