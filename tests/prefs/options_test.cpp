#include "../lists/dialog_device.h"

#include "prefs/dlg_options.h"

#include <limits>

namespace {

const std::pair<UINT, int CAppSettings::*> Lists[]
    = {{controls::DistanceUnit, &CAppSettings::UnitDistance}, {controls::VolumeUnit, &CAppSettings::UnitVolume},
        {controls::EconomyUnit, &CAppSettings::UnitFuelEconomy}, {controls::SortColumn, &CAppSettings::LastColSorted},
        {controls::SortOrder, &CAppSettings::SortAscending}, {controls::TextSize, &CAppSettings::TextSize}};

class OptionsTest : public DialogDevice {
protected:
    OptionsTest() { Reset(); }
    ~OptionsTest() override { Reset(); }

    static void Reset() {
        for (const auto& [id, setting] : Lists)
            theSettings.*setting = 0;
        theSettings.MileageRate = 0.36F;
    }
    LONG_PTR Show(const std::vector<Step>& steps) {
        CDlgOptions dialog;
        return Run(dialog, steps);
    }

    const Step done = Done();
};

TEST_F(OptionsTest, ASettingOutOfRangeStaysUntilARowIsChosen) {
    for (const auto& [id, setting] : Lists)
        theSettings.*setting = std::numeric_limits<int>::min();
    const auto look = [&] {
        for (const auto& [id, setting] : Lists)
            EXPECT_EQ(SendMessageW(Item(id), LB_GETCURSEL, 0, 0), id == controls::SortOrder ? 0 : -1);
    };
    EXPECT_EQ(Show({look, done}), 1);
    for (const auto& [id, setting] : Lists)
        EXPECT_EQ(theSettings.*setting, id == controls::SortOrder ? 1 : std::numeric_limits<int>::min());
    EXPECT_EQ(Show({Focus(controls::VolumeUnit), Press({VK_RIGHT, VK_RIGHT, VK_TBACK}), done}), 1);
    EXPECT_EQ(theSettings.UnitVolume, 1);
}

TEST_F(OptionsTest, TheMileageRateIsReadStrictlyAndWithAPoint) {
    UseLocale("de_DE");
    const std::pair<const wchar_t*, float> accepted[] = {{L"0", 0.0F}, {L" \t0.36 \t", 0.36F},
        {L"0.36000000000000000000000000000x", 0.36F}}; // the 31 characters that are read end before the x
    for (const auto& [text, rate] : accepted) {
        theSettings.MileageRate = 7.0F;
        EXPECT_EQ(Show({Put(controls::OptionsMileageRate, text), done}), 1);
        EXPECT_EQ(theSettings.MileageRate, rate) << std::wstring(text).size();
    }
    for (const wchar_t* text : {L"", L"1,5", L"1e39"}) {
        theSettings.MileageRate = 7.0F;
        const auto refused = [&] {
            EXPECT_EQ(FocusedId(), controls::OptionsMileageRate);
            EXPECT_EQ(theSettings.UnitDistance, 0);
        };
        EXPECT_EQ(Show({Put(controls::OptionsMileageRate, text), Focus(controls::DistanceUnit),
                      Press({VK_RIGHT, VK_TSOFT1}), refused, Press({VK_TSOFT2})}),
            2);
        EXPECT_EQ(theSettings.MileageRate, 7.0F);
    }
}

} // namespace
