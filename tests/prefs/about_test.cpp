#include "../lists/dialog_device.h"

#include "prefs/about_dlg.h"

using AboutTest = DialogDevice;

TEST_F(AboutTest, EachWayOut) {
    const auto post = [](UINT message, UINT wParam, LPARAM lParam) {
        return [=] { PostMessageW(GetActiveWindow(), message, wParam, lParam); };
    };
    const std::pair<Step, LONG_PTR> ways[]
        = {{Done(), 1}, {Press({VK_TBACK}), 2}, {post(WM_COMMAND, commands::AboutDone, 0), 1},
            {post(WM_COMMAND, commands::AboutCancel, 0), 2}, {post(WM_HOTKEY, 0, MAKELPARAM(MOD_KEYUP, VK_TBACK)), 2}};
    for (const auto& [step, result] : ways) {
        CAboutDlg dialog;
        EXPECT_EQ(Run(dialog, {post(WM_HOTKEY, 0, MAKELPARAM(0, VK_TBACK)), step}), result);
    }
}
