#include "prefs_fixture.h"

#include "prefs/about_dlg.h"

namespace {

class AboutTest : public PrefsTest {
protected:
    LONG_PTR Show(const std::vector<Step>& steps) {
        CAboutDlg dialog;
        return RunDialog(dialog, steps);
    }
    static RECT Place(UINT id) {
        RECT place;
        GetWindowRect(Item(id), &place);
        POINT corner{place.left, place.top};
        ScreenToClient(GetActiveWindow(), &corner);
        return {corner.x, corner.y, corner.x + place.right - place.left, corner.y + place.bottom - place.top};
    }
    static void Size(int width, int height) {
        device::SetScreenSize({width, height});
        SHInitDialog(GetActiveWindow(), SHIDIF_SIZEDLGFULLSCREEN);
    }
    const Step ok = Press({VK_TSOFT1});
};

TEST_F(AboutTest, TheVersionIsThatOfTheProgramFile) {
    const VersionResource older{2, 40, 9, 87};
    const VersionResource four{2, 4, 0, 65535};
    const std::pair<const VersionResource*, const wchar_t*> cases[] = {{&older, L"Version 2.40 build 87"},
        {&four, L"Version 2.4 build 65535"}, {nullptr, L"Version no version build 0"}};
    for (const auto& [version, line] : cases) {
        Module module = *OdoledgerModule();
        module.version = version;
        device::SetModule(&module);
        Show({[&, expected = line] {
            EXPECT_EQ(TextOf(controls::AboutName), L"Odoledger");
            EXPECT_EQ(TextOf(controls::AboutVersion), expected);
            ok();
        }});
        device::SetModule(OdoledgerModule());
    }
}

TEST_F(AboutTest, TheNameIsBoldInAFontOfItsOwn) {
    HFONT font = nullptr;
    LOGFONTW bold;
    const auto look = [&] {
        font = reinterpret_cast<HFONT>(SendMessageW(Item(controls::AboutName), WM_GETFONT, 0, 0));
        const auto plain = reinterpret_cast<HFONT>(SendMessageW(Item(controls::AboutVersion), WM_GETFONT, 0, 0));
        LOGFONTW other;
        ASSERT_NE(GetObjectW(font, sizeof bold, &bold), 0);
        ASSERT_NE(GetObjectW(plain, sizeof other, &other), 0);
        EXPECT_EQ(bold.lfWeight, FW_BOLD);
        EXPECT_EQ(other.lfWeight, FW_NORMAL);
        EXPECT_EQ(bold.lfHeight, other.lfHeight);
        ok();
    };
    EXPECT_EQ(Show({look}), 1);
    EXPECT_EQ(GetObjectW(font, sizeof bold, &bold), 0) << "freed with the dialog";
}

TEST_F(AboutTest, ThePictureStandsInTheMiddleAndTheTextsBelow) {
    const auto look = [&] {
        const LONG distance = Place(controls::AboutVersion).top - Place(controls::AboutName).top;
        for (const auto& [width, height] : {std::pair{320, 480}, {176, 220}, {800, 300}}) {
            Size(width, height);
            RECT client;
            GetClientRect(GetActiveWindow(), &client);
            const RECT picture = Place(controls::AboutPicture);
            EXPECT_EQ(picture.top, 0);
            EXPECT_EQ(picture.left, (client.right - (picture.right - picture.left)) / 2);
            EXPECT_EQ(Place(controls::AboutName).top, picture.bottom + 5);
            EXPECT_EQ(Place(controls::AboutVersion).top - Place(controls::AboutName).top, distance);
        }
        Size(320, 480);
        ok();
    };
    Show({look});
}

TEST_F(AboutTest, EachWayOutAndTheSupportText) {
    const auto post = [](UINT message, WPARAM wParam, LPARAM lParam) {
        return [=] { PostMessageW(GetActiveWindow(), message, wParam, lParam); };
    };
    EXPECT_EQ(Show({Press({VK_RETURN})}), 1);
    EXPECT_EQ(Show({Press({VK_TBACK})}), 2);
    EXPECT_EQ(Show({post(WM_COMMAND, commands::AboutDone, 0)}), 1);
    EXPECT_EQ(Show({post(WM_COMMAND, commands::AboutCancel, 0)}), 2);
    EXPECT_EQ(Show({post(WM_HOTKEY, 0, MAKELPARAM(0, VK_TBACK)), post(WM_HOTKEY, 0, MAKELPARAM(MOD_KEYUP, VK_TACTION)),
                  post(WM_HOTKEY, 0, MAKELPARAM(MOD_KEYUP, VK_TBACK))}),
        2);
    const auto support = [&] {
        EXPECT_TRUE(Message().starts_with(L"1. "));
        EXPECT_NE(Message().find(L"\n3. "), std::wstring::npos);
        EXPECT_EQ(TextOf(GetActiveWindow()), L"");
        Press({VK_RETURN})();
    };
    EXPECT_EQ(Show({Press({VK_TSOFT2}), support, ok}), 1);
}

} // namespace
