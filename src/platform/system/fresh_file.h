#pragma once

#include "platform/system/host_file.h"

namespace device {
/// A new file beside `target` that nobody knows yet, for the user alone; it goes away again unless it takes the name of
/// the target. What a process leaves behind that is killed in between, ClearLeftovers takes away.
class FreshFile {
public:
    enum class Kind { New, Replacement };

    /// New: fails with ERROR_FILE_EXISTS where the target exists. Replacement: the target may exist, and a file that
    /// anybody may write to keeps its access rights; all else is refused.
    FreshFile(std::string target, Kind kind);
    FreshFile(const FreshFile&) = delete;
    FreshFile& operator=(const FreshFile&) = delete;
    ~FreshFile();

    LONG Error() const { return error_; }
    const FileDescriptor& File() const { return file_; }
    /// What it is called for the time being.
    const std::string& Name() const { return name_; }

    /// Puts the contents on the disk, then gives the file its name, and puts that on the disk as well.
    LONG TakeName();

private:
    LONG LookAtTarget();
    void Create();

    std::string target_;
    Kind kind_;
    unsigned mode_;
    std::string name_;
    FileDescriptor file_;
    LONG error_;
};

/// Makes a file, and the folders above it, or replaces it whole. 0 or an error number.
LONG ReplaceFile(const std::string& path, std::string_view contents);

/// Takes away the fresh files that processes which are gone have left in the device's folders.
void ClearLeftovers();
} // namespace device
