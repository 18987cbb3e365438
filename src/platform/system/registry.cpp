#include "platform/registry.h"

#include "platform/system/environment.h"
#include "platform/system/handle_table.h"
#include "platform/system/host_file.h"
#include "platform/system/registry_file.h"
#include "platform/system/troubles.h"

#include <algorithm>
#include <cstring>

const HKEY HKEY_CURRENT_USER = reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(0x80000001U));

namespace {

using device::RegistryFile;
using device::RegistryValue;

constexpr DWORD QueryAccess = 1;
constexpr DWORD SetAccess = 2;

struct OpenKey {
    std::wstring path;
    DWORD access = 0;
};

/// The keys that are open, what was last read, and the changes that wait for their key to be closed or for
/// a file that takes them; one a value.
struct Registry {
    device::HandleTable<HKEY, OpenKey> keys;
    RegistryFile file{device::TheEnvironment().registryFile};
    std::vector<device::RegistryChange> changes;
};

Registry& TheRegistry() {
    return device::MadeForEnvironment<Registry>();
}

OpenKey* Find(HKEY key) {
    return TheRegistry().keys.Find(key);
}

/// The path of `name` below `parent`; nothing for a handle that is none.
std::optional<std::wstring> PathOf(HKEY parent, const wchar_t* name) {
    std::wstring path;
    if (parent != HKEY_CURRENT_USER) {
        const OpenKey* key = Find(parent);
        if (key == nullptr)
            return std::nullopt;
        path = key->path;
    }
    if (name != nullptr && *name != L'\0')
        path += (path.empty() ? L"" : L"\\") + std::wstring{name};
    return path;
}

std::optional<RegistryValue> ValueOf(const std::wstring& key, const std::wstring& name) {
    const auto& changes = TheRegistry().changes;
    const auto waiting = std::find_if(changes.begin(), changes.end(),
        [&](const device::RegistryChange& change) { return change.key == key && change.name == name; });
    return waiting == changes.end() ? TheRegistry().file.Get(key, name) : waiting->value;
}

void ReadAnew() {
    TheRegistry().file = RegistryFile{device::TheEnvironment().registryFile};
}

bool HasKey(const std::wstring& key) {
    const auto& changes = TheRegistry().changes;
    return TheRegistry().file.HasKey(key) || std::any_of(changes.begin(), changes.end(), [&](const auto& change) {
        return change.key == key && change.value;
    });
}

/// Notes for the end of the process whether what was to be stored could be.
LONG Settled(LONG error) {
    const std::string& file = device::TheEnvironment().registryFile;
    NoteTrouble(device::Trouble::Settings,
        error == ERROR_SUCCESS ? "" : "the settings could not be written to " + file + ": " + device::ReasonOf(error));
    return error;
}

} // namespace

LONG RegCreateKeyExW(HKEY parent, const wchar_t* name, DWORD /*reserved*/, const wchar_t* /*keyClass*/,
    DWORD /*options*/, DWORD access, const void* /*security*/, HKEY* key, DWORD* disposition) {
    const auto path = PathOf(parent, name);
    if (!path || key == nullptr)
        return path ? ERROR_INVALID_PARAMETER : ERROR_INVALID_HANDLE;
    if (const LONG error = device::MakeFolders(device::FolderOf(device::TheEnvironment().registryFile)))
        return Settled(error);
    static constexpr DWORD CreatedNew = 1;
    static constexpr DWORD OpenedExisting = 2;
    ReadAnew();
    if (disposition != nullptr)
        *disposition = HasKey(*path) ? OpenedExisting : CreatedNew;
    *key = TheRegistry().keys.Add({*path, access});
    return ERROR_SUCCESS;
}

LONG RegOpenKeyExW(HKEY parent, const wchar_t* name, DWORD /*options*/, DWORD access, HKEY* key) {
    const auto path = PathOf(parent, name);
    if (!path || key == nullptr)
        return path ? ERROR_INVALID_PARAMETER : ERROR_INVALID_HANDLE;
    ReadAnew();
    if (!HasKey(*path))
        return ERROR_FILE_NOT_FOUND;
    *key = TheRegistry().keys.Add({*path, access});
    return ERROR_SUCCESS;
}

LONG RegCloseKey(HKEY key) {
    if (key == HKEY_CURRENT_USER)
        return ERROR_SUCCESS;
    Registry& registry = TheRegistry();
    const OpenKey* open = Find(key);
    if (open == nullptr)
        return ERROR_INVALID_HANDLE;
    const bool writes = (open->access & SetAccess) != 0;
    registry.keys.Remove(key);
    if (!writes || registry.changes.empty())
        return ERROR_SUCCESS;
    const LONG error = Settled(RegistryFile::Change(device::TheEnvironment().registryFile, registry.changes));
    // What could not be written is known to this process, and goes with the next that can.
    if (error == ERROR_SUCCESS)
        registry.changes.clear();
    ReadAnew();
    return error;
}

LONG RegQueryValueExW(HKEY key, const wchar_t* name, DWORD* /*reserved*/, DWORD* type, BYTE* data, DWORD* size) {
    const OpenKey* open = Find(key);
    if (open == nullptr)
        return ERROR_INVALID_HANDLE;
    if ((open->access & QueryAccess) == 0)
        return ERROR_ACCESS_DENIED;
    if (data != nullptr && size == nullptr)
        return ERROR_INVALID_PARAMETER;
    const auto value = ValueOf(open->path, name == nullptr ? L"" : name);
    if (!value)
        return ERROR_FILE_NOT_FOUND;
    if (type != nullptr)
        *type = value->type;
    if (size == nullptr)
        return ERROR_SUCCESS;
    const DWORD room = *size;
    *size = static_cast<DWORD>(value->data.size());
    if (data == nullptr)
        return ERROR_SUCCESS;
    if (room < *size)
        return ERROR_MORE_DATA;
    std::copy(value->data.begin(), value->data.end(), data);
    return ERROR_SUCCESS;
}

LONG RegSetValueExW(HKEY key, const wchar_t* name, DWORD /*reserved*/, DWORD type, const BYTE* data, DWORD size) {
    const OpenKey* open = Find(key);
    if (open == nullptr)
        return ERROR_INVALID_HANDLE;
    if ((open->access & SetAccess) == 0)
        return ERROR_ACCESS_DENIED;
    const bool known
        = type == REG_SZ || type == REG_EXPAND_SZ || type == REG_BINARY || (type == REG_DWORD && size == sizeof(DWORD));
    if (!known || (data == nullptr && size != 0))
        return ERROR_INVALID_PARAMETER;
    RegistryValue value{type, std::vector<BYTE>(data, data + size)};
    if (type == REG_SZ || type == REG_EXPAND_SZ) {
        // What is stored ends at the NUL, and has one.
        value = RegistryValue::OfText(value.Text(), type);
    }
    device::RegistryChange change{open->path, name == nullptr ? L"" : name, std::move(value)};
    auto& changes = TheRegistry().changes;
    std::erase_if(changes, [&](const auto& older) { return older.key == change.key && older.name == change.name; });
    changes.push_back(std::move(change));
    return ERROR_SUCCESS;
}

std::vector<device::NamedRegistryValue> device::ListRegistryValues(const std::wstring& key) {
    return RegistryFile{TheEnvironment().registryFile}.List(key);
}

LONG device::SetRegistryValue(const std::wstring& key, const std::wstring& name, const RegistryValue& value) {
    return RegistryFile::Change(TheEnvironment().registryFile, {{key, name, value}});
}

LONG device::DeleteRegistryValue(const std::wstring& key, const std::wstring& name) {
    if (!RegistryFile{TheEnvironment().registryFile}.Get(key, name))
        return ERROR_FILE_NOT_FOUND;
    return RegistryFile::Change(TheEnvironment().registryFile, {{key, name, std::nullopt}});
}
