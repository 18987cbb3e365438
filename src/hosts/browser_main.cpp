#include "hosts/browser/browser_host.h"
#include "hosts/browser/library.h"

#include "platform/files.h"
#include "platform/system/device_paths.h"
#include "platform/system/environment.h"
#include "platform/system/fresh_file.h"
#include "platform/system/host_file.h"
#include "platform/window.h"
#include "platform/windowing/desktop.h"
#include "records/data_file.h"
#include "records/file_header.h"
#include "records/template_file.h"
#include "resources/load_text.h"
#include "resources/module.h"
#include "resources/string_ids.h"
#include "settings/app_settings.h"
#include "shell/entry_point.h"
#include "shell/program_identity.h"

#include <cstdlib>
#include <cstring>
#include <emscripten.h>
#include <string>

namespace {

constexpr int CannotStart = 2;

device::BrowserHost* theHost = nullptr;

enum class Verdict { Usable, NotALog, Newer };

bool IsOfLaterVersion(const std::string& path) {
    device::FileDescriptor file;
    CFileHeader header;
    return device::OpenToRead(path, file) == 0 && header.Read(file.Get(), 0) == CFileHeader::Reading::Done
        && header.IsOfLaterVersion();
}

/// Looks at a file as the start does, and mends it as that would.
Verdict VerdictOn(const std::string& path) {
    if (IsOfLaterVersion(path))
        return Verdict::Newer;
    auto status = CDataFile::Status::Failed;
    return CDataFile::Open(path, &status) ? Verdict::Usable : Verdict::NotALog;
}

std::string LogFile() {
    // It may be asked for before the program has run.
    device::SetModule(OdoledgerModule());
    return HostPathOf(std::wstring(device::DocumentsPath) + L'\\' + LoadText(strings::DataFileName)).value_or("");
}

} // namespace

// For the worker, while the program waits or before it starts. None of these waits for anything.

extern "C" {

/// The lines that answer a command, each with a line end behind it; to be freed.
EMSCRIPTEN_KEEPALIVE char* odoledgerInspect(const char* command) {
    std::string text;
    if (theHost != nullptr)
        for (const std::string& line : theHost->AnswerTo(command))
            text.append(line).append("\n");
    return strdup(text.c_str());
}

EMSCRIPTEN_KEEPALIVE void odoledgerStoreSettings() {
    if (theHost != nullptr)
        theSettings.SaveSettings();
}

/// The path of the log; to be freed.
EMSCRIPTEN_KEEPALIVE char* odoledgerLogFile() {
    return strdup(LogFile().c_str());
}

/// 0: the file at `path` can be the log; 1: it is none, or damaged; 2: a later version of the program made it.
EMSCRIPTEN_KEEPALIVE int odoledgerVerdictOn(const char* path) {
    return static_cast<int>(VerdictOn(path));
}
}

namespace {

/// From the start of the program to its end: the status of the process.
int RunProgram() {
    device::SetModule(OdoledgerModule());
    if (const auto& error = device::EnvironmentError()) {
        odoledgerHostTell("refused", error->c_str());
        return CannotStart;
    }
    if (IsOfLaterVersion(LogFile())) {
        odoledgerHostTell("newer", "");
        return CannotStart;
    }
    device::ClearLeftovers();
    // The template lies beside the program file, in memory.
    MakeTemplateFile(device::FolderOf(device::ProgramFile()) + "/Default.ENU");
    device::BrowserHost host(
        {identity::WindowClass, CAppSettings::RegistryKey, identity::ReloadMessage, identity::CloseMessage});
    theHost = &host;
    device::Desktop::The().SwitchOn(host);
    const int result = WinMain(OdoledgerModule(), nullptr, nullptr, SW_SHOW);
    device::Desktop::The().SwitchOff();
    theHost = nullptr;
    return result & 0xFF;
}

} // namespace

/// The program. It goes back to its caller at once when it waits, and ends by an exit, which stores the settings.
extern "C" EMSCRIPTEN_KEEPALIVE void odoledgerRun() {
    std::exit(RunProgram());
}
