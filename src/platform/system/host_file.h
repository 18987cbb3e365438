#pragma once

#include "platform/types.h"

#include <chrono>
#include <string>
#include <string_view>
#include <utility>

namespace device {
inline constexpr LONG ERROR_LOCK_VIOLATION = 33;
inline constexpr LONG ERROR_DISK_FULL = 112;
inline constexpr LONG ERROR_INSUFFICIENT_BUFFER = 122;

/// Owns a descriptor of the host.
class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor = -1)
        : descriptor_(descriptor) { }
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1)) { }
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor();

    int Get() const { return descriptor_; }
    bool IsOpen() const { return descriptor_ >= 0; }

private:
    int descriptor_;
};

// Results are the device's error numbers, 0 for success.

/// The device's number for an errno.
LONG ErrorOf(int hostError);
/// What one of the device's numbers means, for a line on standard error.
const char* ReasonOf(LONG error);
/// The path up to the last slash.
std::string FolderOf(const std::string& path);
/// Makes a folder and those above it that are missing, for the user alone, and makes them last.
LONG MakeFolders(const std::string& folder);
/// Opens a file for reading; what is no regular file is refused.
LONG OpenToRead(const std::string& path, FileDescriptor& file);
/// Everything that can still be read from `file`, which may not be more than `limit` bytes.
LONG ReadWhole(const FileDescriptor& file, std::size_t limit, std::string& contents);
LONG CopyContents(const FileDescriptor& source, const FileDescriptor& target);
LONG WriteAll(const FileDescriptor& file, std::string_view bytes);
LONG Sync(const FileDescriptor& file);
/// Makes the names in a folder last. What has its name has been done, and doing it again would be wrong: a failure is
/// told at the end of the process and nowhere else.
void SyncNamesIn(const std::string& folder);
/// `held` is open for as long as this process alone, of all that hold the folder, may change what lies there.
/// ERROR_LOCK_VIOLATION when another one did not let go of it in time.
LONG HoldFolder(const std::string& folder, std::chrono::milliseconds patience, FileDescriptor& held);
/// Renames within one file system; ERROR_ALREADY_EXISTS when there is anything at `target`, at whatever moment it came
/// there.
LONG RenameToNew(const std::string& source, const std::string& target);
} // namespace device
