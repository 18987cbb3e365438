#include "../lists/dialog_device.h"

#include "prefs/about_dlg.h"

namespace {

using AboutTest = DialogDevice;

TEST_F(AboutTest, TheVersionIsThatOfTheProgramFile) {
    const VersionResource older{2, 40, 9, 87};
    const std::pair<const VersionResource*, const wchar_t*> cases[]
        = {{&older, L"Version 2.40 build 87"}, {nullptr, L"Version no version build 0"}};
    for (const auto& [version, line] : cases) {
        Module module = *OdoledgerModule();
        module.version = version;
        device::SetModule(&module);
        CAboutDlg dialog;
        Run(dialog, {[expected = line] { EXPECT_EQ(TextOf(controls::AboutVersion), expected); }, Done()});
        device::SetModule(OdoledgerModule());
    }
}

TEST_F(AboutTest, TheNameIsBoldInAFontOfItsOwn) {
    HFONT font = nullptr;
    LOGFONTW bold;
    const auto look = [&] {
        font = reinterpret_cast<HFONT>(SendMessageW(Item(controls::AboutName), WM_GETFONT, 0, 0));
        ASSERT_NE(GetObjectW(font, sizeof bold, &bold), 0);
        EXPECT_EQ(bold.lfWeight, FW_BOLD);
    };
    EXPECT_EQ(Run(*std::make_unique<CAboutDlg>(), {look, Done()}), 1);
    EXPECT_EQ(GetObjectW(font, sizeof bold, &bold), 0) << "freed with the dialog";
}

TEST_F(AboutTest, EachWayOut) {
    const auto post = [](UINT message, UINT wParam, LPARAM lParam) {
        return [=] { PostMessageW(GetActiveWindow(), message, wParam, lParam); };
    };
    const std::pair<Step, LONG_PTR> ways[]
        = {{Press({VK_RETURN}), 1}, {Press({VK_TBACK}), 2}, {post(WM_COMMAND, commands::AboutDone, 0), 1},
            {post(WM_COMMAND, commands::AboutCancel, 0), 2}, {post(WM_HOTKEY, 0, MAKELPARAM(MOD_KEYUP, VK_TBACK)), 2}};
    for (const auto& [step, result] : ways) {
        CAboutDlg dialog;
        EXPECT_EQ(Run(dialog, {post(WM_HOTKEY, 0, MAKELPARAM(0, VK_TBACK)), step}), result);
    }
}

} // namespace
