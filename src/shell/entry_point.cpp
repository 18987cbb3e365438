#include "shell/entry_point.h"

#include "lists/app_fonts.h"
#include "messages/show_message.h"
#include "platform/dialog.h"
#include "platform/registry.h"
#include "platform/resources.h"
#include "platform/system_libraries.h"
#include "records/copy_of_the_day.h"
#include "resources/ids.h"
#include "resources/load_text.h"
#include "settings/app_settings.h"
#include "shell/instance_guard.h"
#include "shell/main_frame.h"
#include "shell/message_loop.h"

namespace {

void ShowUnitSetupMessage(HWND frame) {
    if (theSettings.UnitSetupMsgShown)
        return;
    const std::wstring title = LoadText(strings::AppName);
    MessageBoxW(frame, LoadText(strings::CheckUnits).c_str(), title.c_str(), messages::NoticeStyle);
    theSettings.UnitSetupMsgShown = 1;
}

int Run(int showCommand) {
    CMessageLoop theMessageLoop;
    theSettings.LoadSettings();
    CreateAppFonts();
    CMainFrame theMainFrame(theMessageLoop);
    if (!theMainFrame.CreateFrame()) {
        DeleteAppFonts();
        return 0;
    }
    ShowWindow(theMainFrame.GetHandle(), showCommand);
    if (IsSyncConnected()) {
        ShowMessage(theMainFrame.GetHandle(), strings::SyncConnected, strings::AppName, messages::NoticeStyle);
        DestroyWindow(theMainFrame.GetHandle());
        DeleteAppFonts();
        return 0;
    }
    if (!theMainFrame.OpenDatabase()) {
        DestroyWindow(theMainFrame.GetHandle());
        DeleteAppFonts();
        return 0;
    }
    ShowUnitSetupMessage(theMainFrame.GetHandle());
    const CCopyOfTheDay copyOfTheDay(theSettings.DBPath);
    const int result = theMessageLoop.Run();
    theDataLayer.Disconnect();
    DeleteAppFonts();
    return result;
}

} // namespace

int WinMain(HINSTANCE instance, HINSTANCE /*previousInstance*/, wchar_t* /*commandLine*/, int showCommand) {
    RegisterFrameMessages();
    const HRESULT activation = ActivatePreviousInstance(instance);
    if (activation < 0 || activation == 1)
        return activation;
    CoInitializeEx(nullptr, 0);
    const INITCOMMONCONTROLSEX dateControls{sizeof(INITCOMMONCONTROLSEX), ICC_DATE_CLASSES};
    InitCommonControlsEx(&dateControls);
    SHInitExtraControls();
    const int result = Run(showCommand);
    CoUninitialize();
    return result;
}
