#include "platform/process.h"

#include "platform/files.h"
#include "platform/registry.h"
#include "platform/resources.h"
#include "platform/system/device_paths.h"
#include "platform/system/environment.h"
#include "platform/system/handle_table.h"
#include "platform/system/host_file.h"
#include "platform/system/named_mutex.h"

#include <chrono>
#include <cstring>
#include <cwchar>
#include <thread>

namespace {

using OpenMutexes = device::HandleTable<HANDLE, std::unique_ptr<device::NamedMutex>>;

OpenMutexes& TheMutexes() {
    return device::MadeForEnvironment<OpenMutexes>();
}

/// The version of the program's own file; null for every other file, and for a program without one.
const VersionResource* VersionOf(const wchar_t* path) {
    const HINSTANCE program = GetModuleHandleW(nullptr);
    const auto file = path == nullptr ? std::nullopt : HostPathOf(path);
    return program != nullptr && file == device::ProgramFile() ? program->version : nullptr;
}

DWORD Joined(WORD high, WORD low) {
    return (static_cast<DWORD>(high) << 16U) | low;
}

} // namespace

HANDLE CreateMutexW(const void* /*security*/, BOOL /*initiallyOwned*/, const wchar_t* name) {
    if (name == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto opened = device::NamedMutex::Open(name);
    if (opened.mutex == nullptr) {
        SetLastError(static_cast<DWORD>(opened.error));
        return nullptr;
    }
    SetLastError(opened.existed ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return TheMutexes().Add(std::move(opened.mutex));
}

BOOL CloseHandle(HANDLE handle) {
    const bool closed = TheMutexes().Remove(handle);
    SetLastError(closed ? ERROR_SUCCESS : ERROR_INVALID_HANDLE);
    return closed ? TRUE : FALSE;
}

void Sleep(DWORD milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds{milliseconds});
}

DWORD GetFileVersionInfoSizeW(const wchar_t* path, DWORD* handle) {
    if (handle != nullptr)
        *handle = 0;
    const bool found = VersionOf(path) != nullptr;
    SetLastError(found ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND);
    return found ? sizeof(VS_FIXEDFILEINFO) : 0;
}

BOOL GetFileVersionInfoW(const wchar_t* path, DWORD /*handle*/, DWORD size, void* data) {
    const VersionResource* version = VersionOf(path);
    if (version == nullptr || data == nullptr || size < sizeof(VS_FIXEDFILEINFO)) {
        SetLastError(version == nullptr ? ERROR_FILE_NOT_FOUND : device::ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    const VS_FIXEDFILEINFO record{.dwFileVersionMS = Joined(version->major, version->minor),
        .dwFileVersionLS = Joined(version->third, version->build)};
    std::memcpy(data, &record, sizeof record);
    return TRUE;
}

BOOL VerQueryValueW(const void* block, const wchar_t* subBlock, void** buffer, UINT* length) {
    DWORD signature = 0;
    if (block != nullptr)
        std::memcpy(&signature, block, sizeof signature);
    if (signature != VS_FIXEDFILEINFO{}.dwSignature || subBlock == nullptr || std::wcscmp(subBlock, L"\\") != 0
        || buffer == nullptr) {
        return FALSE;
    }
    *buffer = const_cast<void*>(block); // the interface takes constant and gives changeable
    if (length != nullptr)
        *length = sizeof(VS_FIXEDFILEINFO);
    return TRUE;
}
