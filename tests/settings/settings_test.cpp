#include "../records/test_device.h"
#include "platform/registry.h"
#include "platform/resources.h"
#include "platform/system/registry_file.h"
#include "resources/load_text.h"
#include "settings/app_settings.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

using device::RegistryValue;

class Settings : public TestDevice {
protected:
    static void Store(const wchar_t* name, DWORD type, const void* data, std::size_t size) {
        RegistryValue value{type, {}};
        value.data.resize(size);
        std::memcpy(value.data.data(), data, size);
        ASSERT_EQ(device::SetRegistryValue(CAppSettings::RegistryKey, name, value), ERROR_SUCCESS);
    }
    static bool HasValue(const std::wstring& name) {
        const auto values = device::ListRegistryValues(CAppSettings::RegistryKey);
        return std::any_of(values.begin(), values.end(), [&](const auto& each) { return each.name == name; });
    }
};

TEST_F(Settings, SurviveARestart) {
    const std::pair<int CAppSettings::*, int> values[] = {{&CAppSettings::TextSize, 0},
        {&CAppSettings::LastColSorted, -1}, {&CAppSettings::SortAscending, 0}, {&CAppSettings::UnitSetupMsgShown, 1},
        {&CAppSettings::ViewEntryType, 4}, {&CAppSettings::ViewDateRangeType, 3}, {&CAppSettings::UnitDistance, 1},
        {&CAppSettings::UnitVolume, 2}, {&CAppSettings::UnitFuelEconomy, 3}};
    const float rate = std::nextafter(0.45F, 1.0F);
    const wchar_t* path = L"\\My Documents\\Zoës \U0001F697.dat";
    {
        CAppSettings settings;
        settings.LoadSettings();
        for (const auto& [field, value] : values)
            settings.*field = value;
        settings.LastActiveVehicle = 0xFFFFFFFF;
        settings.MileageRate = rate;
        settings.RowColorOdd = 1;
        std::wcscpy(settings.DBPath, path);
    }
    {
        CAppSettings settings;
        settings.LoadSettings();
        settings.ViewDateRangeType = 5; // a custom range is not stored
    }
    CAppSettings settings;
    settings.LoadSettings();
    for (const auto& [field, value] : values)
        EXPECT_EQ(settings.*field, value);
    EXPECT_EQ(settings.LastActiveVehicle, 0xFFFFFFFF);
    EXPECT_EQ(settings.MileageRate, rate);
    EXPECT_EQ(settings.RowColorOdd, 0x00A5EFCEU);
    EXPECT_STREQ(settings.DBPath, path);
}

TEST_F(Settings, PassOverValuesOfAnotherKind) {
    const DWORD number = 7;
    const float rate = 2;
    const auto load = [] {
        CAppSettings settings;
        settings.LoadSettings();
        EXPECT_EQ(settings.MileageRate, 0.36F);
        return std::pair(settings.TextSize, std::wstring(settings.DBPath));
    };
    Store(L"MileageRate", REG_DWORD, &number, sizeof number);
    Store(L"TextSize", REG_BINARY, &rate, sizeof rate);
    Store(L"DBPath", REG_DWORD, &number, sizeof number);
    EXPECT_EQ(load(), std::pair(2, std::wstring()));
    const float notANumber = std::numeric_limits<float>::quiet_NaN();
    Store(L"MileageRate", REG_BINARY, &notANumber, sizeof notANumber);
    EXPECT_EQ(load().first, 2);
    Store(L"MileageRate", REG_BINARY, &rate, 3);
    Store(L"DBPath", REG_EXPAND_SZ, L"\\x", 3 * sizeof(wchar_t));
    Store(L"TextSize", REG_DWORD, &number, sizeof number);
    EXPECT_EQ(load(), std::pair(7, std::wstring(L"\\x"))) << "there is no check of ranges";
}

TEST_F(Settings, APathMayFillItsRoomAndNoMore) {
    for (const std::size_t length : {std::size_t{260}, std::size_t{261}}) {
        const std::wstring path(length, L'p');
        Store(L"DBPath", REG_SZ, path.c_str(), (length + 1) * sizeof(wchar_t));
        CAppSettings settings;
        settings.LoadSettings();
        EXPECT_EQ(std::wcslen(settings.DBPath), length == 260 ? length : 0U);
    }
}

TEST_F(Settings, AreNotSavedByAProcessThatNeverLoadedThem) {
    EXPECT_EXIT(std::exit(0), testing::ExitedWithCode(0), "");
    EXPECT_FALSE(HasValue(L"TextSize"));
}

TEST(LoadText, GivesTextsOfAnyLength) {
    const std::wstring longest(5000, L'b');
    const StringResource texts[] = {{1, L"short"}, {3, longest.c_str()}};
    const Module own{texts, {}, {}, {}};
    device::SetModule(&own);
    EXPECT_EQ(LoadText(1), L"short");
    EXPECT_EQ(LoadText(3), longest);
    EXPECT_EQ(LoadText(4), L"");
    device::SetModule(nullptr);
}

} // namespace
