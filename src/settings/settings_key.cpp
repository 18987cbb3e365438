#include "settings/settings_key.h"

#include "settings/app_settings.h"

#include <cmath>
#include <cstring>
#include <cwchar>
#include <string>

CSettingsKey::CSettingsKey(Access access) {
    HKEY key = nullptr;
    const LONG result = access == Access::Read
        ? RegOpenKeyExW(HKEY_CURRENT_USER, CAppSettings::RegistryKey, 0, KEY_READ, &key)
        : RegCreateKeyExW(
            HKEY_CURRENT_USER, CAppSettings::RegistryKey, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    if (result == ERROR_SUCCESS)
        key_ = key;
}

CSettingsKey::~CSettingsKey() {
    if (key_)
        RegCloseKey(key_);
}

bool CSettingsKey::ReadBytes(const wchar_t* name, DWORD type, void* value, DWORD size) const {
    BYTE bytes[sizeof(DWORD)] = {};
    DWORD foundType = 0;
    DWORD foundSize = sizeof bytes;
    if (RegQueryValueExW(key_, name, nullptr, &foundType, bytes, &foundSize) != ERROR_SUCCESS)
        return false;
    if (foundType != type || foundSize != size)
        return false;
    std::memcpy(value, bytes, size);
    return true;
}

void CSettingsKey::Read(const wchar_t* name, int* value) const {
    static_assert(sizeof *value == sizeof(DWORD));
    ReadBytes(name, REG_DWORD, value, sizeof *value);
}

void CSettingsKey::Read(const wchar_t* name, ULONG* value) const {
    ReadBytes(name, REG_DWORD, value, sizeof *value);
}

void CSettingsKey::Read(const wchar_t* name, float* value) const {
    static_assert(sizeof *value == sizeof(DWORD));
    float found = 0.0F;
    // What is no number would spoil every sum, and no field could take it back: it counts as missing.
    if (ReadBytes(name, REG_BINARY, &found, sizeof found) && std::isfinite(found))
        *value = found;
}

void CSettingsKey::ReadText(const wchar_t* name, wchar_t* text, DWORD capacity) const {
    std::wstring found(capacity + 1, L'\0');
    DWORD type = 0;
    auto size = static_cast<DWORD>(found.size() * sizeof(wchar_t));
    if (RegQueryValueExW(key_, name, nullptr, &type, reinterpret_cast<BYTE*>(found.data()), &size) != ERROR_SUCCESS)
        return;
    // The stored text need not end in a NUL.
    const std::size_t length = wcsnlen(found.c_str(), size / sizeof(wchar_t));
    if ((type != REG_SZ && type != REG_EXPAND_SZ) || length > capacity)
        return;
    text[found.copy(text, length)] = L'\0';
}

void CSettingsKey::Write(const wchar_t* name, int value) const {
    Write(name, static_cast<ULONG>(value));
}

void CSettingsKey::Write(const wchar_t* name, ULONG value) const {
    RegSetValueExW(key_, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
}

void CSettingsKey::Write(const wchar_t* name, float value) const {
    RegSetValueExW(key_, name, 0, REG_BINARY, reinterpret_cast<const BYTE*>(&value), sizeof value);
}

void CSettingsKey::WriteText(const wchar_t* name, const wchar_t* text) const {
    const auto size = static_cast<DWORD>((std::wcslen(text) + 1) * sizeof(wchar_t));
    RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text), size);
}
