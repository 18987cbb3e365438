#pragma once

#include "platform/registry.h"

/// The open registry key of the settings, closed with the object. Reads leave their target alone unless the value is
/// there and of the right type and size.
class CSettingsKey {
public:
    enum class Access { Read, Write };

    /// Writing makes the key if there is none.
    explicit CSettingsKey(Access access);
    CSettingsKey(const CSettingsKey&) = delete;
    CSettingsKey& operator=(const CSettingsKey&) = delete;
    ~CSettingsKey();

    bool IsOpen() const { return key_ != nullptr; }

    void Read(const wchar_t* name, int* value) const;
    void Read(const wchar_t* name, ULONG* value) const;
    void Read(const wchar_t* name, float* value) const;
    /// Text of at most `capacity` characters; `text` has room for one more.
    void ReadText(const wchar_t* name, wchar_t* text, DWORD capacity) const;

    void Write(const wchar_t* name, int value) const;
    void Write(const wchar_t* name, ULONG value) const;
    void Write(const wchar_t* name, float value) const;
    void WriteText(const wchar_t* name, const wchar_t* text) const;

private:
    bool ReadBytes(const wchar_t* name, DWORD type, void* value, DWORD size) const;

    HKEY key_ = nullptr;
};
