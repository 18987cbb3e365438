#pragma once

#include "platform/types.h"

inline constexpr LCID LOCALE_USER_DEFAULT = 0x400;
inline constexpr DWORD LOCALE_SDECIMAL = 14;
inline constexpr DWORD DATE_SHORTDATE = 1;

/// The texts of the device's locale (HANDSET_LOCALE). The `format` argument is always null here: the locale's own
/// format is the only one. Each takes a buffer of `size` characters and returns the characters written with the NUL;
/// with a size of 0 it returns the size needed. 0 on failure (no number, a buffer too small).
/// `value` is a plain number: an optional minus, digits, an optional point and fraction.
int GetNumberFormatW(LCID locale, DWORD flags, const wchar_t* value, const void* format, wchar_t* buffer, int size);
int GetCurrencyFormatW(LCID locale, DWORD flags, const wchar_t* value, const void* format, wchar_t* buffer, int size);
/// The short date with a four-digit year in the locale's order. `picture` is always null.
int GetDateFormatW(LCID locale, DWORD flags, const SYSTEMTIME* date, const wchar_t* picture, wchar_t* buffer, int size);
int GetLocaleInfoW(LCID locale, DWORD type, wchar_t* buffer, int size);

/// In place, character by character (simple case mapping). Return their argument.
wchar_t* CharLowerW(wchar_t* text);
wchar_t* CharUpperW(wchar_t* text);
