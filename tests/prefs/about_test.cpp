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

} // namespace
