#include "platform/system/device_paths.h"
#include "fuzz_device.h"
#include "platform/files.h"
#include "platform/system/host_file.h"
#include "platform/utf8.h"

#include <cstring>

namespace {

bool IsBelow(const std::string& path, const std::string& folder) {
    return path == folder || path.rfind(folder + '/', 0) == 0;
}

void Check(const std::wstring& devicePath) {
    const auto mapped = HostPathOf(devicePath);
    if (!mapped)
        return;
    Require(IsBelow(*mapped, device::TheEnvironment().documentsFolder)
            || IsBelow(*mapped, device::FolderOf(device::ProgramFile())),
        "a mapped path lies below its folder");
    Require(std::filesystem::path(*mapped).lexically_normal() == *mapped, "and has no way out of it");
    Require(mapped->find('\0') == std::string::npos, "and is whole for the host");
}

} // namespace

/// The input as bare characters, surrogates and all, and as a text behind each of the mapped folders.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static FuzzDevice device;
    std::wstring characters(size / sizeof(wchar_t), L'\0');
    std::memcpy(characters.data(), data, characters.size() * sizeof(wchar_t));
    const std::wstring text = device::FromUtf8(std::string(data, data + size));
    for (const std::wstring& tail : {characters, text}) {
        Check(tail);
        for (const wchar_t* folder : {device::DocumentsPath, device::ProgramPath})
            Check(folder + tail);
    }
    return 0;
}
