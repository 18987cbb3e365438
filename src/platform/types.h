#pragma once

// The handset's basic types. Widths are the handset's, not the host's: LONG is 32 bits everywhere.

#include <cstddef>
#include <cstdint>

using BOOL = std::int32_t;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using HRESULT = std::int32_t;
using ATOM = WORD;
using COLORREF = DWORD;
using LCID = DWORD;
/// The three message types hold a pointer of the host.
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using LONG_PTR = std::intptr_t;

inline constexpr BOOL TRUE = 1;
inline constexpr BOOL FALSE = 0;
inline constexpr std::size_t MAX_PATH = 260;

// Handles are opaque; the value is never the address of anything.
using HANDLE = void*;
using HWND = struct HWND__*;
using HMENU = struct HMENU__*;
using HACCEL = struct HACCEL__*;
using HDC = struct HDC__*;
using HGDIOBJ = struct HGDIOBJ__*;
using HFONT = HGDIOBJ;
using HPEN = HGDIOBJ;
using HBRUSH = HGDIOBJ;
using HICON = struct HICON__*;
using HCURSOR = struct HCURSOR__*;
using HIMAGELIST = struct HIMAGELIST__*;
using HKEY = struct HKEY__*;
/// A module: its strings, menus, templates and icons (resources.h).
struct Module;
using HINSTANCE = const Module*;

struct POINT {
    LONG x = 0;
    LONG y = 0;
};

struct SIZE {
    LONG cx = 0;
    LONG cy = 0;
};

struct RECT {
    LONG left = 0;
    LONG top = 0;
    LONG right = 0;
    LONG bottom = 0;

    bool operator==(const RECT&) const = default;
};

/// A calendar time, UTC or local as its source says.
struct SYSTEMTIME {
    WORD wYear = 0;
    WORD wMonth = 0;
    WORD wDayOfWeek = 0; ///< 0 is Sunday
    WORD wDay = 0;
    WORD wHour = 0;
    WORD wMinute = 0;
    WORD wSecond = 0;
    WORD wMilliseconds = 0;
};

/// 100-nanosecond ticks since 1 January 1601, in two halves.
struct FILETIME {
    DWORD dwLowDateTime = 0;
    DWORD dwHighDateTime = 0;
};

constexpr WORD LOWORD(std::uintptr_t value) {
    return static_cast<WORD>(value & 0xFFFFU);
}

constexpr WORD HIWORD(std::uintptr_t value) {
    return static_cast<WORD>((value >> 16U) & 0xFFFFU);
}

constexpr LPARAM MAKELPARAM(unsigned low, unsigned high) {
    return static_cast<LPARAM>((low & 0xFFFFU) | ((high & 0xFFFFU) << 16U));
}

constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue) {
    return (red & 0xFFU) | ((green & 0xFFU) << 8U) | ((blue & 0xFFU) << 16U);
}
