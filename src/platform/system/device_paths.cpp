#include "platform/system/device_paths.h"

#include "platform/files.h"
#include "platform/registry.h"
#include "platform/system/environment.h"
#include "platform/system/fresh_file.h"
#include "platform/system/key_file.h"
#include "platform/system/troubles.h"
#include "platform/utf8.h"

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>
#include <tuple>

namespace device {
namespace {

constexpr std::size_t LongestPath = 65536;

using Components = std::vector<std::wstring>;

bool IsSeparator(wchar_t character) {
    return character == L'\\' || character == L'/';
}

bool IsPlainName(const std::wstring& name) {
    return name != L"." && name != L".." && name.find(L'\0') == std::wstring::npos && FromUtf8(ToUtf8(name)) == name;
}

/// The names in a path that begins at the root; nothing for a path with a name that may lead elsewhere.
std::optional<Components> Split(const std::wstring& path) {
    if (path.empty() || !IsSeparator(path.front()))
        return std::nullopt;
    Components components;
    for (auto from = path.begin(); from != path.end();) {
        const auto begin = std::find_if_not(from, path.end(), IsSeparator);
        from = std::find_if(begin, path.end(), IsSeparator);
        std::wstring name{begin, from};
        if (!IsPlainName(name))
            return std::nullopt;
        if (!name.empty())
            components.push_back(std::move(name));
    }
    return components;
}

bool SameName(const std::wstring& first, const std::wstring& second) {
    return SameKeyName(ToUtf8(first), ToUtf8(second));
}

std::optional<std::string> PathBelow(const Components& path, const wchar_t* folder, const std::string& hostFolder) {
    const Components head = *Split(folder);
    if (path.size() < head.size() || !std::equal(head.begin(), head.end(), path.begin(), SameName))
        return std::nullopt;
    std::string result = hostFolder;
    for (auto name = path.begin() + static_cast<std::ptrdiff_t>(head.size()); name != path.end(); ++name)
        result += '/' + ToUtf8(*name);
    return result;
}

} // namespace

const std::string& ProgramFile() {
    static const auto* file = [] {
        std::error_code error;
        return new std::string(std::filesystem::read_symlink("/proc/self/exe", error).string());
    }();
    return *file;
}

std::int32_t MakeDocumentsFolder() {
    return MakeFolders(TheEnvironment().documentsFolder);
}

bool IsReadOnlyMode(unsigned mode) {
    return (mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

std::vector<DocumentFile> ListDocuments() {
    std::vector<DocumentFile> files;
    std::error_code error;
    std::filesystem::directory_iterator place{TheEnvironment().documentsFolder, error};
    for (; !error && place != std::filesystem::directory_iterator{}; place.increment(error)) {
        struct stat found { };
        if (stat(place->path().c_str(), &found) == 0 && S_ISREG(found.st_mode)) {
            files.push_back({ToUtf8(FromUtf8(place->path().filename().string())),
                static_cast<std::uint64_t>(found.st_size), IsReadOnlyMode(found.st_mode)});
        }
    }
    std::sort(files.begin(), files.end(),
        [](const DocumentFile& left, const DocumentFile& right) { return left.name < right.name; });
    return files;
}

} // namespace device

void KeepDocumentsFolderOf(const std::string& hostPath) {
    using namespace device;
    const auto& [note, folder] = std::tie(TheEnvironment().documentsNote, TheEnvironment().documentsFolder);
    if (note.empty() || hostPath.rfind(folder + '/', 0) != 0)
        return;
    FileDescriptor file;
    std::string before;
    if (OpenToRead(note, file) == ERROR_SUCCESS)
        ReadWhole(file, LongestPath, before);
    const std::string now = folder + '\n' + hostPath;
    if (before == now)
        return;
    std::error_code error;
    const std::string former = before.substr(before.find('\n') + 1);
    if (!former.empty() && !std::filesystem::exists(former, error))
        NoteTrouble(Trouble::Documents, former + " is gone; the log is " + hostPath + " from now on");
    if (const LONG failure = ReplaceFile(note, now))
        NoteTrouble(Trouble::Documents, "where the log is could not be noted in " + note + ": " + ReasonOf(failure));
}

std::optional<std::string> HostPathOf(const std::wstring& devicePath) {
    const auto path = device::Split(devicePath);
    if (!path)
        return std::nullopt;
    if (auto document = device::PathBelow(*path, device::DocumentsPath, device::TheEnvironment().documentsFolder))
        return document;
    return device::PathBelow(*path, device::ProgramPath, device::FolderOf(device::ProgramFile()));
}
