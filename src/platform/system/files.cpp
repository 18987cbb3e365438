#include "platform/files.h"

#include "platform/registry.h"
#include "platform/system/device_paths.h"
#include "platform/system/environment.h"
#include "platform/system/host_file.h"
#include "platform/system/utf8.h"

#include <cerrno>
#include <cstdio>
#include <cwchar>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using device::FileDescriptor;

thread_local DWORD lastError = 0;

constexpr mode_t NewFileMode = 0644;

/// Notes how an operation went, as its callers ask for it.
BOOL Done(LONG error) {
    SetLastError(static_cast<DWORD>(error));
    return error == ERROR_SUCCESS ? TRUE : FALSE;
}

std::optional<std::string> HostPath(const wchar_t* path) {
    return path == nullptr ? std::nullopt : HostPathOf(path);
}

LONG RequireFolder(const std::string& path) {
    return device::FolderOf(path) == device::TheEnvironment().documentsFolder ? device::MakeDocumentsFolder()
                                                                              : ERROR_SUCCESS;
}

/// A new file that nobody knows yet, beside `path`; it goes away again unless it was given a name.
class NewFile {
public:
    explicit NewFile(const std::string& path)
        : target_(path) {
        for (int attempt = 0; attempt < MostAttempts && !file_.IsOpen(); ++attempt) {
            name_ = device::FolderOf(path) + "/.odoledger-" + std::to_string(getpid()) + '-' + std::to_string(attempt);
            const int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
            file_ = FileDescriptor{open(name_.c_str(), flags, NewFileMode)};
            if (!file_.IsOpen() && errno != EEXIST) {
                break;
            }
        }
        error_ = file_.IsOpen() ? ERROR_SUCCESS : device::ErrorOf(errno);
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile() {
        if (file_.IsOpen() && !named_) {
            unlink(name_.c_str());
        }
    }

    LONG Error() const { return error_; }
    const FileDescriptor& File() const { return file_; }

    /// Gives the file the name that it was made for.
    LONG Name(bool mustBeNew) {
        if (mustBeNew) {
            error_ = device::RenameToNew(name_, target_);
        } else {
            error_ = std::rename(name_.c_str(), target_.c_str()) == 0 ? ERROR_SUCCESS : device::ErrorOf(errno);
        }
        named_ = error_ == ERROR_SUCCESS;
        return error_;
    }

private:
    static constexpr int MostAttempts = 100;

    std::string target_;
    std::string name_;
    FileDescriptor file_;
    LONG error_;
    bool named_ = false;
};

LONG CopyHostFile(const std::string& source, const std::string& target, bool mustBeNew) {
    FileDescriptor original;
    if (const LONG error = device::OpenToRead(source, original)) {
        return error;
    }
    struct stat found { };
    if (lstat(target.c_str(), &found) == 0) {
        if (mustBeNew) {
            return ERROR_FILE_EXISTS;
        }
        if (!S_ISREG(found.st_mode) || device::IsReadOnlyMode(found.st_mode)) {
            return ERROR_ACCESS_DENIED;
        }
    }
    if (const LONG error = RequireFolder(target)) {
        return error;
    }
    NewFile copy{target};
    LONG error = copy.Error();
    error = error == ERROR_SUCCESS ? device::CopyContents(original, copy.File()) : error;
    error = error == ERROR_SUCCESS ? device::Sync(copy.File()) : error;
    error = error == ERROR_SUCCESS ? copy.Name(mustBeNew) : error;
    if (error != ERROR_SUCCESS) {
        return error == ERROR_ALREADY_EXISTS ? ERROR_FILE_EXISTS : error;
    }
    error = device::SyncFolder(device::FolderOf(target));
    if (error != ERROR_SUCCESS && mustBeNew) {
        unlink(target.c_str());
    }
    return error;
}

LONG MoveHostFile(const std::string& source, const std::string& target) {
    LONG error = RequireFolder(target);
    error = error == ERROR_SUCCESS ? device::RenameToNew(source, target) : error;
    error = error == ERROR_SUCCESS ? device::SyncFolder(device::FolderOf(target)) : error;
    const bool sameFolder = device::FolderOf(source) == device::FolderOf(target);
    return error == ERROR_SUCCESS && !sameFolder ? device::SyncFolder(device::FolderOf(source)) : error;
}

} // namespace

BOOL CopyFileW(const wchar_t* source, const wchar_t* target, BOOL failIfExists) {
    const auto from = HostPath(source);
    const auto to = HostPath(target);
    return Done(from && to ? CopyHostFile(*from, *to, failIfExists != FALSE) : ERROR_PATH_NOT_FOUND);
}

BOOL MoveFileW(const wchar_t* source, const wchar_t* target) {
    const auto from = HostPath(source);
    const auto to = HostPath(target);
    return Done(from && to ? MoveHostFile(*from, *to) : ERROR_PATH_NOT_FOUND);
}

BOOL DeleteFileW(const wchar_t* path) {
    const auto file = HostPath(path);
    if (!file) {
        return Done(ERROR_PATH_NOT_FOUND);
    }
    return Done(unlink(file->c_str()) == 0 ? ERROR_SUCCESS : device::ErrorOf(errno));
}

DWORD GetFileAttributesW(const wchar_t* path) {
    const auto file = HostPath(path);
    struct stat found { };
    if (!file || stat(file->c_str(), &found) != 0) {
        Done(file ? device::ErrorOf(errno) : ERROR_PATH_NOT_FOUND);
        return INVALID_FILE_ATTRIBUTES;
    }
    Done(ERROR_SUCCESS);
    const DWORD attributes = (S_ISDIR(found.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : 0)
        | (device::IsReadOnlyMode(found.st_mode) ? FILE_ATTRIBUTE_READONLY : 0);
    return attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
}

BOOL SHGetSpecialFolderPath(HWND /*owner*/, wchar_t* path, int folder, BOOL create) {
    if (path == nullptr || folder != CSIDL_PERSONAL) {
        return Done(ERROR_INVALID_PARAMETER);
    }
    const LONG error = create != FALSE ? device::MakeDocumentsFolder() : ERROR_SUCCESS;
    if (error == ERROR_SUCCESS) {
        std::wcscpy(path, device::DocumentsPath);
    }
    return Done(error);
}

DWORD GetModuleFileNameW(HINSTANCE /*module*/, wchar_t* buffer, DWORD size) {
    const std::string& file = device::ProgramFile();
    const std::wstring path
        = device::ProgramPath + std::wstring{L'\\'} + device::FromUtf8(file.substr(file.rfind('/') + 1));
    if (buffer == nullptr || path.size() >= size) {
        Done(device::ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::wcscpy(buffer, path.c_str());
    Done(ERROR_SUCCESS);
    return static_cast<DWORD>(path.size());
}

DWORD GetLastError() {
    return lastError;
}

void SetLastError(DWORD error) {
    lastError = error;
}
