#include "shell/open_data_file.h"

#include "platform/files.h"
#include "platform/notice.h"
#include "records/data_layer.h"
#include "resources/ids.h"
#include "resources/load_text.h"

#include <algorithm>
#include <iterator>

namespace {

/// After so many copies in a row that failed there is no way to go on.
constexpr int CopiesInVain = 3;
/// What SQLite would take for parts of the file whose name they continue.
constexpr const wchar_t* JournalSuffixes[] = {L"-journal", L"-wal", L"-shm"};

bool Exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool HasJournals(const std::wstring& path) {
    return std::any_of(std::begin(JournalSuffixes), std::end(JournalSuffixes),
        [&](const wchar_t* suffix) { return IsNameTaken((path + suffix).c_str()); });
}

/// The first name of `path`.bad, `path`.bad2, ... that neither a file nor a journal has.
std::wstring FreeNameBeside(const std::wstring& path) {
    std::wstring name = path + L".bad";
    for (int number = 2; IsNameTaken(name.c_str()) || HasJournals(name); ++number)
        name = path + L".bad" + std::to_wstring(number);
    return name;
}

/// A file that is no data file gives way under another name, so that nothing of the user's is lost. Its journals go
/// first: beside a fresh file they would be mixed into that. A link that leads nowhere stays: the disk with the log may
/// be somewhere else.
void MoveAside(const std::wstring& path) {
    const std::wstring aside = FreeNameBeside(path);
    for (const wchar_t* suffix : JournalSuffixes)
        if (IsNameTaken((path + suffix).c_str()) && !MoveFileW((path + suffix).c_str(), (aside + suffix).c_str()))
            return;
    if (Exists(path) && MoveFileW(path.c_str(), aside.c_str()))
        TellOfFile(aside.c_str(),
            L"this file could not be read and was put aside; a new log took its place. The manual says how to put a "
            L"copy back");
}

std::wstring TemplatePath() {
    wchar_t program[MAX_PATH + 1] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring path = program;
    return path.substr(0, path.rfind(L'\\') + 1) + LoadText(strings::TemplateFileName);
}

UINT MessageOf(CDataLayer::ConnectStatus status) {
    if (status == CDataLayer::ConnectReadOnly)
        return strings::ReadOnlyDataFile;
    return status == CDataLayer::ConnectInvalid ? strings::InvalidDataFile : 0;
}

} // namespace

bool OpenDataFile(const std::wstring& path, const std::function<void(UINT text)>& tell) {
    const std::wstring templatePath = TemplatePath();
    bool isCopy = false;
    for (int failures = 0; failures < CopiesInVain;) {
        const CDataLayer::ConnectStatus status = theDataLayer.Connect(path.c_str());
        if (status == CDataLayer::ConnectOK)
            return true;
        // The template is no data file itself. Left there, its copy would be put aside at every start, and before the
        // user has seen a message the file cannot be anybody else's.
        const bool isSpoilt = isCopy && status == CDataLayer::ConnectInvalid;
        if (isSpoilt)
            DeleteFileW(path.c_str());
        if (const UINT message = MessageOf(status))
            tell(message);
        if (status == CDataLayer::ConnectReadOnly)
            TellOfFile(path.c_str(), L"the log may only be read; allow yourself to write to it, then start again");
        // Only where a fresh file can take its place: without a template the user's file stays as it is.
        const bool givesWay = status == CDataLayer::ConnectInvalid || status == CDataLayer::ConnectNotFound;
        if (givesWay && !isSpoilt && Exists(templatePath))
            MoveAside(path);
        isCopy = !isSpoilt && CopyFileW(templatePath.c_str(), path.c_str(), TRUE);
        if (!isCopy) {
            TellOfFile(path.c_str(),
                L"the log is not to be had here; see that its folder is there and that you may write to it",
                GetLastError());
            ++failures;
            tell(strings::CannotCreateDataFile);
        }
    }
    return false;
}
