#include "tally/open_log.h"

#include "platform/files.h"
#include "platform/utf8.h"
#include "resources/load_text.h"
#include "resources/string_ids.h"
#include "settings/app_settings.h"
#include "tally/failure.h"
#include "units/record_text.h"

#include <sysexits.h>

namespace tally {
namespace {

std::wstring DefaultPath() {
    wchar_t folder[MAX_PATH + 1] = {};
    SHGetSpecialFolderPath(nullptr, folder, CSIDL_PERSONAL, FALSE);
    return std::wstring(folder) + L"\\" + LoadText(strings::DataFileName);
}

[[noreturn]] void Refuse(CDataLayer::ConnectStatus status, const std::string& path) {
    switch (status) {
    case CDataLayer::ConnectNotFound:
        throw Failure(EX_NOINPUT, path + ": there is no such file");
    case CDataLayer::ConnectReadOnly:
        throw Failure(EX_NOINPUT, path + ": the log may only be read; allow yourself to write to it");
    case CDataLayer::ConnectInvalid:
        throw Failure(EX_DATAERR, path + ": this is no log, one of another version, or damaged");
    default:
        break;
    }
    if (theDataLayer.LastFailure() == StoreFailure::Locked)
        throw Failure(EX_TEMPFAIL, path + ": another program keeps the log locked");
    throw Failure(EX_NOINPUT, path + ": the log cannot be opened");
}

bool IsCalled(const CVehicle& vehicle, const std::wstring& name) {
    return vehicle.GetName() == name || VehicleTitleText(&vehicle) == name;
}

} // namespace

std::string PathOfLog(const std::string& given) {
    if (!given.empty())
        return given;
    const std::wstring path = theSettings.DBPath[0] != L'\0' ? theSettings.DBPath : DefaultPath();
    const std::optional<std::string> hostPath = HostPathOf(path);
    if (!hostPath)
        throw Failure(EX_CONFIG, device::ToUtf8(path) + ": the settings name a log that is nowhere on this device");
    return *hostPath;
}

OpenLog::OpenLog(const std::string& path) {
    const CDataLayer::ConnectStatus status = theDataLayer.ConnectHostFile(path);
    if (status != CDataLayer::ConnectOK)
        Refuse(status, path);
    RequireLoaded(theDataLayer.Load(&vehicles_));
}

std::vector<const CVehicle*> OpenLog::Chosen(const std::string& name) const {
    std::vector<const CVehicle*> chosen;
    const std::wstring wanted = device::FromUtf8(name);
    for (int i = 0; i < vehicles_.GetCount(); ++i)
        if (name.empty() || IsCalled(*vehicles_.Get(i), wanted))
            chosen.push_back(vehicles_.Get(i));
    if (!name.empty() && chosen.empty())
        throw Failure(EX_USAGE, "there is no vehicle called \"" + name + '"');
    if (!name.empty() && chosen.size() > 1)
        throw Failure(EX_USAGE,
            "several vehicles are called \"" + name + "\"; name one with its year, as \""
                + device::ToUtf8(VehicleTitleText(chosen.front())) + '"');
    return chosen;
}

const CVehicle& OpenLog::TheOne(const std::string& name) const {
    const std::vector<const CVehicle*> chosen = Chosen(name);
    if (chosen.empty())
        throw Failure(EX_NOINPUT, "the log has no vehicle");
    if (chosen.size() > 1)
        throw Failure(EX_USAGE, "the log has several vehicles; name one with --vehicle");
    return *chosen.front();
}

void RequireLoaded(int succeeded) {
    if (succeeded)
        return;
    if (theDataLayer.LastFailure() == StoreFailure::Locked)
        throw Failure(EX_TEMPFAIL, "another program keeps the log locked");
    throw Failure(EX_IOERR, "the log cannot be read");
}

} // namespace tally
