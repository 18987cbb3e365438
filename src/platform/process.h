#pragma once

#include "platform/types.h"

/// A named mutex across the processes of one storage place. The handle is good for CloseHandle alone; GetLastError is
/// ERROR_ALREADY_EXISTS when some living process has it open. Null and ERROR_INVALID_HANDLE or another error when it
/// cannot be made.
HANDLE CreateMutexW(const void* security, BOOL initiallyOwned, const wchar_t* name);
BOOL CloseHandle(HANDLE handle);
/// The mutex of whatever keeps the device in step with a desktop; it exists while the two are connected.
inline constexpr const wchar_t* DesktopSyncMutex = L"{7E734BFE-168E-46bb-81BF-C6D0F0C0FAF6}";
void Sleep(DWORD milliseconds);

/// The fixed part of a version record: four 16-bit numbers in two double words.
struct VS_FIXEDFILEINFO {
    DWORD dwSignature = 0xFEEF04BD;
    DWORD dwFileVersionMS = 0;
    DWORD dwFileVersionLS = 0;
};

DWORD GetFileVersionInfoSizeW(const wchar_t* path, DWORD* handle);
BOOL GetFileVersionInfoW(const wchar_t* path, DWORD handle, DWORD size, void* data);
BOOL VerQueryValueW(const void* block, const wchar_t* subBlock, void** buffer, UINT* length);
