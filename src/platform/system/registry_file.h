#pragma once

#include "platform/system/key_file.h"
#include "platform/types.h"

#include <optional>
#include <string>
#include <vector>

namespace device {
/// A value as it travels through the registry's calls: numbers four bytes with the lowest first, texts four bytes a
/// character with a NUL at the end.
struct RegistryValue {
    DWORD type; ///< REG_...
    std::vector<BYTE> data;

    static RegistryValue OfNumber(DWORD number);
    /// `type` is REG_SZ or REG_EXPAND_SZ.
    static RegistryValue OfText(const std::wstring& text, DWORD type);

    DWORD Number() const;
    std::wstring Text() const;
    bool operator==(const RegistryValue&) const = default;
};

struct NamedRegistryValue {
    std::wstring name;
    RegistryValue value;
};

/// One wanted change; no value: the value goes away.
struct RegistryChange {
    std::wstring key;
    std::wstring name;
    std::optional<RegistryValue> value;
};

/// The registry as the file holds it at one moment. Keys are paths below the current user, "Software\Maker\Program".
/// Names and keys are found in whatever case, of the basic letters, they are asked for.
class RegistryFile {
public:
    /// A file that is not there is an empty registry; of a damaged one all lines that can be read.
    explicit RegistryFile(const std::string& path);

    /// Whether there is a value in `key` or below it.
    bool HasKey(const std::wstring& key) const;
    /// Nothing for a value that is missing or cannot be read.
    std::optional<RegistryValue> Get(const std::wstring& key, const std::wstring& name) const;
    /// All values of a key that can be read, by name.
    std::vector<NamedRegistryValue> List(const std::wstring& key) const;

    /// Reads the file at `path` anew, changes it and puts it back whole; everything else in it stays, be it rubbish.
    /// When this returns 0 the changes are on the disk; otherwise the file is as it was. One that nobody may write to
    /// stays. Another process that holds the folder is waited for a second.
    static LONG Change(const std::string& path, const std::vector<RegistryChange>& changes);

private:
    void Apply(const RegistryChange& change);

    std::string path_;
    KeyFile contents_;
    LONG error_ = 0; ///< why the file could not be read
};

// The registry as whoever looks after the device sees it, past the program. Keys are paths below the current user.

/// The values of a key by name; none of a key that is not there.
std::vector<NamedRegistryValue> ListRegistryValues(const std::wstring& key);
/// Both are on the disk when they return 0. A value that is not there cannot be deleted (ERROR_FILE_NOT_FOUND).
LONG SetRegistryValue(const std::wstring& key, const std::wstring& name, const RegistryValue& value);
LONG DeleteRegistryValue(const std::wstring& key, const std::wstring& name);
} // namespace device
