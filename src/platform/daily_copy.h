#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace device {

/// The copy of a file for today, by the device's clock and zone, in the user's state folder or in that of
/// HANDSET_STORAGE. The ten newest days stay, and the newest copy of each of the twelve newest months; not more than
/// 200 MB of them. To be made where the clock is read, and to be used on any thread.
class DailyCopy {
public:
    static constexpr std::size_t MostBytes = 200'000'000;

    DailyCopy();

    /// Whether there is a copy of any day.
    bool HasFormer() const;
    /// Whether the newest copy holds these bytes.
    bool IsNewest(std::string_view bytes) const;
    /// Puts them in the place of a copy of the same day, and takes away what is too old. `isSound` looks at the
    /// finished file, at a host path, before it gets its name. Where that fails a line on standard error tells why at
    /// the end of the process.
    void Keep(std::string_view bytes, const std::function<bool(const std::string& hostPath)>& isSound) const;
    void Fail(const std::string& reason) const;

private:
    std::string TryToKeep(
        std::string_view bytes, const std::function<bool(const std::string& hostPath)>& isSound) const;
    void TakeAwayOld() const;

    std::string folder_;
    std::string name_;
};

/// Does something beside the program, on a thread of its own, and waits for its end when it is destroyed.
class BackgroundJob {
public:
    /// Where no thread is to be had the job is not done.
    explicit BackgroundJob(std::function<void()> job);
    BackgroundJob(const BackgroundJob&) = delete;
    BackgroundJob& operator=(const BackgroundJob&) = delete;
    ~BackgroundJob();

private:
    struct Thread;
    std::unique_ptr<Thread> thread_;
};

} // namespace device
