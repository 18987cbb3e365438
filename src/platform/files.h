#pragma once

#include "platform/types.h"

#include <optional>
#include <string>

inline constexpr DWORD FILE_ATTRIBUTE_READONLY = 1;
inline constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 16;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 128;
inline constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;
inline constexpr int CSIDL_PERSONAL = 5;

/// Device paths ("\My Documents\My Vehicles.dat"). All fail with FALSE and GetLastError.
/// Copies the whole file, synced to the disk before it returns; with failIfExists it never touches a target that
/// exists, and a copy that fails half-way leaves the target as it was. A new file is the user's alone; one that is
/// replaced keeps its access rights.
BOOL CopyFileW(const wchar_t* source, const wchar_t* target, BOOL failIfExists);
/// Renames; fails when the target exists.
BOOL MoveFileW(const wchar_t* source, const wchar_t* target);
/// Removes a file; fails for a folder.
BOOL DeleteFileW(const wchar_t* path);
DWORD GetFileAttributesW(const wchar_t* path);
/// Whether there is anything of that name, be it a link to a place where nothing is, which has no attributes.
bool IsNameTaken(const wchar_t* path);
/// The path of a special folder (CSIDL_...) without a trailing backslash; the folder is made if `create` is TRUE. Where
/// that fails the path is given all the same.
BOOL SHGetSpecialFolderPath(HWND owner, wchar_t* path, int folder, BOOL create);
/// The device path of the running program's file. `module` is null. Returns the length, 0 on failure.
DWORD GetModuleFileNameW(HINSTANCE module, wchar_t* buffer, DWORD size);

DWORD GetLastError();
void SetLastError(DWORD error);

/// For the data layer alone: where a device path lies on the host, in UTF-8. Nothing for a path that leaves the
/// mapped folders.
std::optional<std::string> HostPathOf(const std::wstring& devicePath);
/// Likewise: the file at this host path is in use. The documents folder stays where that is for as long as the file is
/// there, wherever the desktop puts its documents from now on.
void KeepDocumentsFolderOf(const std::string& hostPath);
