#include "platform/system/registry_file.h"

#include "platform/registry.h"
#include "platform/system/fresh_file.h"
#include "platform/system/registry_text.h"

#include <algorithm>
#include <filesystem>

namespace device {
namespace {

constexpr std::size_t LargestFile = 16U << 20U;
/// Somebody waits for the command that stores something.
constexpr std::chrono::seconds LockPatience{1};
constexpr const char* AllowedInGroups = "\\ ";
constexpr const char* AllowedInNames = "";
/// Through a link to the file that it stands for, so that a linked registry stays linked.
std::string Resolved(const std::string& path) {
    std::error_code error;
    const auto target = std::filesystem::canonical(path, error);
    return error ? path : target.string();
}

} // namespace

RegistryFile::RegistryFile(const std::string& path)
    : path_(Resolved(path)) {
    FileDescriptor file;
    std::string text;
    error_ = OpenToRead(path_, file);
    if (error_ == ERROR_SUCCESS)
        error_ = ReadWhole(file, LargestFile, text);
    if (error_ == ERROR_SUCCESS)
        contents_ = KeyFile{text};
    else if (error_ == ERROR_FILE_NOT_FOUND)
        error_ = ERROR_SUCCESS;
}

bool RegistryFile::HasKey(const std::wstring& key) const {
    const std::string wanted = EscapedName(key, AllowedInGroups);
    const std::vector<std::string> groups = contents_.Groups();
    return std::any_of(groups.begin(), groups.end(), [&](const std::string& group) {
        return SameKeyName(group, wanted) || SameKeyName(group.substr(0, wanted.size() + 1), wanted + '\\');
    });
}

std::optional<RegistryValue> RegistryFile::Get(const std::wstring& key, const std::wstring& name) const {
    const std::string* text = contents_.Find(EscapedName(key, AllowedInGroups), EscapedName(name, AllowedInNames));
    return text != nullptr ? ValueFromText(*text) : std::nullopt;
}

std::vector<NamedRegistryValue> RegistryFile::List(const std::wstring& key) const {
    std::vector<NamedRegistryValue> values;
    for (const std::string& escaped : contents_.Names(EscapedName(key, AllowedInGroups))) {
        const std::wstring name = NameFromEscaped(escaped);
        // What a person wrote in a spelling that is not asked for is not found either.
        auto value = SameKeyName(EscapedName(name, AllowedInNames), escaped) ? Get(key, name) : std::nullopt;
        if (value)
            values.push_back({name, std::move(*value)});
    }
    std::sort(values.begin(), values.end(),
        [](const NamedRegistryValue& left, const NamedRegistryValue& right) { return left.name < right.name; });
    return values;
}

void RegistryFile::Apply(const RegistryChange& change) {
    const std::string group = EscapedName(change.key, AllowedInGroups);
    const std::string name = EscapedName(change.name, AllowedInNames);
    const auto text = change.value ? ValueText(*change.value) : std::nullopt;
    if (text)
        contents_.Set(group, name, *text);
    else if (!change.value)
        contents_.Remove(group, name);
}

LONG RegistryFile::Change(const std::string& path, const std::vector<RegistryChange>& changes) {
    const auto isNews = [&changes](const RegistryFile& registry) {
        return std::any_of(changes.begin(), changes.end(), [&registry](const RegistryChange& change) {
            return registry.Get(change.key, change.name) != change.value;
        });
    };
    // A program that starts stores what it has just read: that needs no disk, and waits for nobody.
    if (RegistryFile registry{path}; registry.error_ != ERROR_SUCCESS || !isNews(registry))
        return registry.error_;
    if (const LONG error = MakeFolders(FolderOf(path)))
        return error;
    // Held while this function runs: what two processes change at the same time is kept of both. Where a folder cannot
    // be locked, the later one wins.
    FileDescriptor held;
    if (HoldFolder(FolderOf(Resolved(path)), LockPatience, held) == ERROR_LOCK_VIOLATION)
        return ERROR_LOCK_VIOLATION;
    RegistryFile registry{path};
    if (registry.error_ != ERROR_SUCCESS)
        return registry.error_;
    for (const RegistryChange& change : changes)
        registry.Apply(change);
    return ReplaceFile(registry.path_, registry.contents_.Text());
}

} // namespace device
