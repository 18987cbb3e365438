#pragma once

#include "platform/types.h"

/// The device's registry, one file per user. All results are 0 (ERROR_SUCCESS) or an error number.
extern const HKEY HKEY_CURRENT_USER;

inline constexpr LONG ERROR_SUCCESS = 0;
inline constexpr LONG ERROR_FILE_NOT_FOUND = 2;
inline constexpr LONG ERROR_PATH_NOT_FOUND = 3;
inline constexpr LONG ERROR_ACCESS_DENIED = 5;
inline constexpr LONG ERROR_INVALID_HANDLE = 6;
inline constexpr LONG ERROR_WRITE_FAULT = 29;
inline constexpr LONG ERROR_FILE_EXISTS = 80;
inline constexpr LONG ERROR_INVALID_PARAMETER = 87;
inline constexpr LONG ERROR_ALREADY_EXISTS = 183;
inline constexpr LONG ERROR_MORE_DATA = 234;

inline constexpr DWORD REG_SZ = 1;
inline constexpr DWORD REG_EXPAND_SZ = 2;
inline constexpr DWORD REG_BINARY = 3;
inline constexpr DWORD REG_DWORD = 4;

inline constexpr DWORD KEY_READ = 0x20019;
inline constexpr DWORD KEY_WRITE = 0x20006;

LONG RegCreateKeyExW(HKEY parent, const wchar_t* name, DWORD reserved, const wchar_t* keyClass, DWORD options,
    DWORD access, const void* security, HKEY* key, DWORD* disposition);
LONG RegOpenKeyExW(HKEY parent, const wchar_t* name, DWORD options, DWORD access, HKEY* key);
LONG RegCloseKey(HKEY key);
/// `size` is in bytes: in, the room of `data`; out, the size of the value (strings with their NUL, four bytes a
/// character). ERROR_MORE_DATA when there is too little room. `data` and `type` may be null.
LONG RegQueryValueExW(HKEY key, const wchar_t* name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size);
LONG RegSetValueExW(HKEY key, const wchar_t* name, DWORD reserved, DWORD type, const BYTE* data, DWORD size);
