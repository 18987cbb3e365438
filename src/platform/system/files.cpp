#include "platform/files.h"

#include "platform/registry.h"
#include "platform/system/device_paths.h"
#include "platform/system/environment.h"
#include "platform/system/fresh_file.h"
#include "platform/utf8.h"

#include <cerrno>
#include <cwchar>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using device::FileDescriptor;
using device::FreshFile;

thread_local DWORD lastError = 0;

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

LONG CopyHostFile(const std::string& source, const std::string& target, FreshFile::Kind kind) {
    FileDescriptor original;
    LONG error = device::OpenToRead(source, original);
    error = error == ERROR_SUCCESS ? RequireFolder(target) : error;
    if (error != ERROR_SUCCESS)
        return error;
    FreshFile copy{target, kind};
    error = copy.Error();
    error = error == ERROR_SUCCESS ? device::CopyContents(original, copy.File()) : error;
    error = error == ERROR_SUCCESS ? copy.TakeName() : error;
    return error == ERROR_ALREADY_EXISTS ? ERROR_FILE_EXISTS : error;
}

LONG MoveHostFile(const std::string& source, const std::string& target) {
    LONG error = RequireFolder(target);
    error = error == ERROR_SUCCESS ? device::RenameToNew(source, target) : error;
    if (error != ERROR_SUCCESS)
        return error;
    device::SyncNamesIn(device::FolderOf(target));
    if (device::FolderOf(source) != device::FolderOf(target))
        device::SyncNamesIn(device::FolderOf(source));
    return ERROR_SUCCESS;
}

} // namespace

BOOL CopyFileW(const wchar_t* source, const wchar_t* target, BOOL failIfExists) {
    const auto from = HostPath(source);
    const auto to = HostPath(target);
    const auto kind = failIfExists != FALSE ? FreshFile::Kind::New : FreshFile::Kind::Replacement;
    return Done(from && to ? CopyHostFile(*from, *to, kind) : ERROR_PATH_NOT_FOUND);
}

BOOL MoveFileW(const wchar_t* source, const wchar_t* target) {
    const auto from = HostPath(source);
    const auto to = HostPath(target);
    return Done(from && to ? MoveHostFile(*from, *to) : ERROR_PATH_NOT_FOUND);
}

BOOL DeleteFileW(const wchar_t* path) {
    const auto file = HostPath(path);
    if (!file)
        return Done(ERROR_PATH_NOT_FOUND);
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

bool IsNameTaken(const wchar_t* path) {
    const auto file = HostPath(path);
    struct stat found { };
    return file && lstat(file->c_str(), &found) == 0;
}

BOOL SHGetSpecialFolderPath(HWND /*owner*/, wchar_t* path, int folder, BOOL create) {
    if (path == nullptr || folder != CSIDL_PERSONAL)
        return Done(ERROR_INVALID_PARAMETER);
    std::wcscpy(path, device::DocumentsPath);
    return Done(create != FALSE ? device::MakeDocumentsFolder() : ERROR_SUCCESS);
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
