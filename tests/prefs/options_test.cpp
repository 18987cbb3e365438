#include "../lists/dialog_device.h"

#include "prefs/dlg_options.h"

#include <limits>

namespace {

struct ListCase {
    UINT id;
    int CAppSettings::*setting;
    std::vector<std::wstring> rows;
};

const std::vector<ListCase> Lists = {
    {controls::DistanceUnit, &CAppSettings::UnitDistance, {L"Miles", L"Kilometres"}},
    {controls::VolumeUnit, &CAppSettings::UnitVolume, {L"Gallons (US)", L"Gallons (UK)", L"Litres"}},
    {controls::EconomyUnit, &CAppSettings::UnitFuelEconomy,
        {L"Miles per gallon (US)", L"Miles per gallon (UK)", L"Kilometres per litre", L"Miles per litre"}},
    {controls::SortColumn, &CAppSettings::LastColSorted, {L"Date", L"Description", L"Odometer", L"Amount"}},
    {controls::SortOrder, &CAppSettings::SortAscending, {L"Ascending", L"Descending"}},
    {controls::TextSize, &CAppSettings::TextSize,
        {L"(Automatic)", L"Small (10 pt)", L"Medium (12 pt)", L"Large (14 pt)"}},
};

class OptionsTest : public DialogDevice {
protected:
    OptionsTest() { Reset(); }
    ~OptionsTest() override { Reset(); }

    static void Reset() {
        for (const ListCase& each : Lists)
            theSettings.*each.setting = 0;
        theSettings.MileageRate = 0.36F;
    }
    LONG_PTR Show(const std::vector<Step>& steps) {
        CDlgOptions dialog;
        return Run(dialog, steps);
    }
    static std::vector<std::wstring> RowsOf(UINT id) {
        std::vector<std::wstring> rows(static_cast<std::size_t>(SendMessageW(Item(id), LB_GETCOUNT, 0, 0)));
        for (std::size_t row = 0; row < rows.size(); ++row) {
            rows[row].resize(static_cast<std::size_t>(SendMessageW(Item(id), LB_GETTEXTLEN, row, 0)));
            SendMessageW(Item(id), LB_GETTEXT, row, reinterpret_cast<LPARAM>(rows[row].data()));
        }
        return rows;
    }
    static LRESULT RowOf(UINT id) { return SendMessageW(Item(id), LB_GETCURSEL, 0, 0); }

    const Step done = Done();
};

TEST_F(OptionsTest, EachListChangesItsOwnSetting) {
    for (const ListCase& tested : Lists) {
        Reset();
        theSettings.SortAscending = 1; // each list on its first row
        const auto choose = [&] {
            EXPECT_EQ(RowsOf(tested.id), tested.rows);
            EXPECT_EQ(RowOf(tested.id), 0);
            SetFocus(Item(tested.id));
            Press({VK_LEFT})(); // round to the last row
        };
        EXPECT_EQ(Show({choose, Press({VK_RETURN})}), 1) << "the Action key is Done";
        const int last = tested.setting == &CAppSettings::SortAscending ? 0 : static_cast<int>(tested.rows.size()) - 1;
        for (const ListCase& each : Lists) {
            const int first = each.setting == &CAppSettings::SortAscending ? 1 : 0;
            EXPECT_EQ(theSettings.*each.setting, each.id == tested.id ? last : first);
        }
        const auto reopened = [&] {
            EXPECT_EQ(RowOf(tested.id), static_cast<LRESULT>(tested.rows.size()) - 1);
            Press({VK_RIGHT, VK_TSOFT2})();
        };
        EXPECT_EQ(Show({reopened}), 2);
        EXPECT_EQ(theSettings.*tested.setting, last);
    }
}

TEST_F(OptionsTest, ASettingOutOfRangeStaysUntilARowIsChosen) {
    for (const ListCase& each : Lists)
        theSettings.*each.setting = std::numeric_limits<int>::min();
    const auto look = [&] {
        for (const ListCase& each : Lists)
            EXPECT_EQ(RowOf(each.id), each.id == controls::SortOrder ? 0 : -1);
    };
    EXPECT_EQ(Show({look, done}), 1);
    for (const ListCase& each : Lists)
        EXPECT_EQ(theSettings.*each.setting, each.id == controls::SortOrder ? 1 : std::numeric_limits<int>::min());
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
