#pragma once

#include "../platform/windowing/scripted_host.h"
#include "../records/log_file.h"
#include "../records/test_device.h"
#include "lists/app_fonts.h"
#include "resources/ids.h"
#include "resources/load_text.h"
#include "resources/module.h"
#include "settings/app_settings.h"
#include "shell/main_frame.h"

/// The whole program, open on a log that statements make.
class FrameDevice : public TestDevice {
protected:
    explicit FrameDevice(const char* log) {
        device::SetModule(OdoledgerModule());
        CreateAppFonts();
        RegisterFrameMessages();
        EXPECT_TRUE(CDataFile::Create(HostPath()));
        LogFile(HostPath()).Run(log);
        std::wcscpy(theSettings.DBPath, Path);
        EXPECT_TRUE(Frame.CreateFrame());
        ShowWindow(Frame.GetHandle(), SW_SHOW);
        EXPECT_TRUE(Frame.OpenDatabase());
    }
    ~FrameDevice() override {
        DestroyWindow(Frame.GetHandle());
        theDataLayer.Disconnect();
        theSettings.LastActiveVehicle = 0;
        DeleteAppFonts();
        device::SetModule(nullptr);
    }

    ScriptedHost Host;
    CMessageLoop Loop;
    CMainFrame Frame{Loop};
};
