// The frame's start, from the path of the data file to the first screen.

#include "messages/show_message.h"
#include "platform/dialog.h"
#include "platform/files.h"
#include "resources/ids.h"
#include "resources/load_text.h"
#include "settings/app_settings.h"
#include "shell/main_frame.h"
#include "shell/open_data_file.h"

#include <string>

namespace {

void ShowFailure(UINT id, const std::wstring& path) {
    std::wstring text = LoadText(id);
    const std::size_t place = text.find(L"%s");
    if (place != std::wstring::npos)
        text.replace(place, 2, path);
    MessageBoxW(GetActiveWindow(), text.c_str(), nullptr, messages::FailureStyle);
}

void SetPath(const std::wstring& path) {
    theSettings.DBPath[path.copy(theSettings.DBPath, CAppSettings::PathSize - 1)] = 0;
}

std::wstring DefaultPath() {
    wchar_t folder[MAX_PATH + 1] = {};
    SHGetSpecialFolderPath(nullptr, folder, CSIDL_PERSONAL, TRUE);
    return std::wstring(folder) + L"\\" + LoadText(strings::DataFileName);
}

} // namespace

bool CMainFrame::OpenDatabase() {
    const std::wstring loadedPath = theSettings.DBPath;
    if (loadedPath.empty())
        SetPath(DefaultPath());
    const std::wstring path = theSettings.DBPath;
    if (!OpenDataFile(path, [&](UINT text) { ShowFailure(text, path); })) {
        SetPath(loadedPath);
        return false;
    }
    theSettings.SaveDBPath();
    ShowFirstScreen();
    return true;
}

void CMainFrame::ShowFirstScreen() {
    vehicleList_.InitColumns();
    entryList_.InitColumns();
    if (CVehicle* vehicle = vehicleList_.FindVehicle(theSettings.LastActiveVehicle)) {
        ActivateVehicle(vehicle);
        return;
    }
    ShowView(controls::VehicleList);
    InvalidateRect(vehicleList_.GetHandle(), nullptr, TRUE);
}
