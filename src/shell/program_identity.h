#pragma once

/// What other programs of the device, and a host that stands in for them, know of this one.
namespace identity {
inline constexpr const wchar_t* WindowClass = L"Odoledger"; ///< the text of string 128
inline constexpr const wchar_t* ReloadMessage = L"{5E75CC96-F6A3-4ebd-BB10-3F30C53EAC89}";
inline constexpr const wchar_t* CloseMessage = L"{1980404D-5E7C-4f1f-9641-474A74208036}";
} // namespace identity
