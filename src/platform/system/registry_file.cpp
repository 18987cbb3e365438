#include "platform/system/registry_file.h"

#include "platform/registry.h"
#include "platform/system/fresh_file.h"
#include "platform/system/registry_text.h"
#include "platform/system/utf8.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <glib.h>
#include <unistd.h>

namespace device {
namespace {

constexpr std::size_t LargestFile = 16U << 20U;
/// Somebody waits for the command that stores something.
constexpr std::chrono::seconds LockPatience{1};
constexpr const char* AllowedInGroups = "\\ ";
constexpr const char* AllowedInNames = "";
constexpr auto ReadFlags = static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);

struct FreeKeyFile {
    void operator()(GKeyFile* file) const { g_key_file_free(file); }
};
using KeyFile = std::unique_ptr<GKeyFile, FreeKeyFile>;

struct FreeText {
    void operator()(char* text) const { g_free(text); }
};
using OwnedText = std::unique_ptr<char, FreeText>;

std::vector<std::string> Taken(char** list, std::size_t count) {
    std::vector<std::string> result{list, list + (list == nullptr ? 0 : count)};
    g_strfreev(list);
    return result;
}

std::vector<std::string> Groups(GKeyFile* file) {
    gsize count = 0;
    char** list = g_key_file_get_groups(file, &count);
    return Taken(list, count);
}

std::vector<std::string> Names(GKeyFile* file, const std::string& group) {
    gsize count = 0;
    char** list = g_key_file_get_keys(file, group.c_str(), &count, nullptr);
    return Taken(list, count);
}

std::vector<std::string>::const_iterator FindName(const std::vector<std::string>& names, const std::string& wanted) {
    return std::find_if(
        names.begin(), names.end(), [&](const std::string& name) { return SameEscapedName(name, wanted); });
}

/// The name as the file spells it, `wanted` itself if the file has none.
std::string SpellingIn(const std::vector<std::string>& names, const std::string& wanted) {
    const auto found = FindName(names, wanted);
    return found == names.end() ? wanted : *found;
}

std::string GroupFor(GKeyFile* file, const std::wstring& key) {
    return SpellingIn(Groups(file), EscapedName(key, AllowedInGroups));
}

bool Parse(GKeyFile* file, const std::string& text) {
    return g_key_file_load_from_data(file, text.data(), text.size(), ReadFlags, nullptr) != FALSE;
}

/// Through a link to the file that it stands for, so that a linked registry stays linked.
std::string Resolved(const std::string& path) {
    std::error_code error;
    const auto target = std::filesystem::canonical(path, error);
    return error ? path : target.string();
}

/// Puts a second name to the file: the first free one of NAME.bad, NAME.bad2, ...
LONG KeepAside(const std::string& path) {
    for (int number = 1; number < 10000; ++number) {
        const std::string name = path + ".bad" + (number == 1 ? "" : std::to_string(number));
        if (link(path.c_str(), name.c_str()) == 0) {
            return ERROR_SUCCESS;
        }
        if (errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS) {
            // No second names on this file system; the file moves, and the new one takes its place at once.
            const LONG moved = RenameToNew(path, name);
            if (moved != ERROR_ALREADY_EXISTS) {
                return moved;
            }
        } else if (errno != EEXIST) {
            return ErrorOf(errno);
        }
    }
    return ERROR_WRITE_FAULT;
}

} // namespace

struct RegistryFile::Contents {
    KeyFile file{g_key_file_new()};
};

RegistryFile::RegistryFile(const std::string& path)
    : path_(Resolved(path))
    , contents_(std::make_unique<Contents>()) {
    FileDescriptor file;
    std::string text;
    error_ = OpenToRead(path_, file);
    if (error_ == ERROR_SUCCESS) {
        error_ = ReadWhole(file, LargestFile, text);
    }
    // A line with a NUL would be read to there, and something else be written back.
    const bool hasNul = text.find('\0') != std::string::npos;
    if (error_ == ERROR_SUCCESS && !text.empty() && (hasNul || !Parse(contents_->file.get(), text))) {
        Salvage(text);
    }
    if (error_ == ERROR_MORE_DATA) {
        damaged_ = true;
    }
    if (error_ == ERROR_FILE_NOT_FOUND || damaged_) {
        error_ = ERROR_SUCCESS;
    }
}

RegistryFile::RegistryFile(RegistryFile&&) noexcept = default;
RegistryFile& RegistryFile::operator=(RegistryFile&&) noexcept = default;
RegistryFile::~RegistryFile() = default;

void RegistryFile::Salvage(const std::string& text) {
    damaged_ = true;
    contents_->file.reset(g_key_file_new());
    std::string good;
    std::string group;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string line = text.substr(begin, end - begin);
        begin = end + 1;
        if (line.find('\0') != std::string::npos || g_utf8_validate(line.data(), -1, nullptr) == FALSE) {
            continue;
        }
        // Each line is tried by itself, a value under the header that stands before it.
        const KeyFile trial{g_key_file_new()};
        const bool header = !line.empty() && line.front() == '[';
        std::string tried = header || group.empty() ? std::string() : group + '\n';
        tried += line;
        tried += '\n';
        if (Parse(trial.get(), tried)) {
            good += line + '\n';
            group = header ? line : group;
        } else if (header) {
            group.clear();
        }
    }
    if (!Parse(contents_->file.get(), good)) {
        contents_->file.reset(g_key_file_new());
    }
}

bool RegistryFile::HasKey(const std::wstring& key) const {
    const std::string wanted = EscapedName(key, AllowedInGroups);
    const std::vector<std::string> groups = Groups(contents_->file.get());
    return std::any_of(groups.begin(), groups.end(), [&](const std::string& group) {
        return SameEscapedName(group, wanted) || SameEscapedName(group.substr(0, wanted.size() + 1), wanted + '\\');
    });
}

std::optional<RegistryValue> RegistryFile::Get(const std::wstring& key, const std::wstring& name) const {
    GKeyFile* file = contents_->file.get();
    const std::string group = GroupFor(file, key);
    const std::string spelling = SpellingIn(Names(file, group), EscapedName(name, AllowedInNames));
    const OwnedText text{g_key_file_get_value(file, group.c_str(), spelling.c_str(), nullptr)};
    return text ? ValueFromText(text.get()) : std::nullopt;
}

std::vector<NamedRegistryValue> RegistryFile::List(const std::wstring& key) const {
    GKeyFile* file = contents_->file.get();
    const std::vector<std::string> names = Names(file, GroupFor(file, key));
    std::vector<NamedRegistryValue> values;
    for (auto place = names.begin(); place != names.end(); ++place) {
        const std::wstring name = NameFromEscaped(*place);
        // A name that a person wrote twice, in whatever spellings, is one value all the same: the one that is found.
        if (FindName(names, EscapedName(name, AllowedInNames)) != place) {
            continue;
        }
        if (auto value = Get(key, name)) {
            values.push_back({name, std::move(*value)});
        }
    }
    std::sort(values.begin(), values.end(),
        [](const NamedRegistryValue& left, const NamedRegistryValue& right) { return left.name < right.name; });
    return values;
}

void RegistryFile::Apply(const RegistryChange& change) {
    GKeyFile* file = contents_->file.get();
    const std::string group = GroupFor(file, change.key);
    const std::string name = SpellingIn(Names(file, group), EscapedName(change.name, AllowedInNames));
    const auto text = change.value ? ValueText(*change.value) : std::nullopt;
    if (text) {
        g_key_file_set_value(file, group.c_str(), name.c_str(), text->c_str());
    } else if (!change.value) {
        g_key_file_remove_key(file, group.c_str(), name.c_str(), nullptr);
    }
}

LONG RegistryFile::Write() const {
    gsize size = 0;
    const OwnedText text{g_key_file_to_data(contents_->file.get(), &size, nullptr)};
    FreshFile fresh{path_, FreshFile::Kind::Replacement};
    LONG error = fresh.Error();
    error = error == ERROR_SUCCESS ? WriteAll(fresh.File(), {text.get(), size}) : error;
    error = error == ERROR_SUCCESS && damaged_ ? KeepAside(path_) : error;
    return error == ERROR_SUCCESS ? fresh.TakeName() : error;
}

LONG RegistryFile::Change(const std::string& path, const std::vector<RegistryChange>& changes) {
    const auto isNews = [&changes](const RegistryFile& registry) {
        return std::any_of(changes.begin(), changes.end(), [&registry](const RegistryChange& change) {
            return registry.Get(change.key, change.name) != change.value;
        });
    };
    // A program that starts stores what it has just read: that needs no disk, and waits for nobody.
    if (RegistryFile registry{path}; registry.error_ != ERROR_SUCCESS || !isNews(registry)) {
        return registry.error_;
    }
    if (const LONG error = MakeFolders(FolderOf(path))) {
        return error;
    }
    // Held while this function runs: what two processes change at the same time is kept of both. Where a folder cannot
    // be locked, the later one wins.
    FileDescriptor held;
    if (HoldFolder(FolderOf(Resolved(path)), LockPatience, held) == ERROR_LOCK_VIOLATION) {
        return ERROR_LOCK_VIOLATION;
    }
    RegistryFile registry{path};
    if (registry.error_ != ERROR_SUCCESS) {
        return registry.error_;
    }
    for (const RegistryChange& change : changes) {
        registry.Apply(change);
    }
    return registry.Write();
}

} // namespace device
