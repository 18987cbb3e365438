#include "settings/app_settings.h"

#include "platform/metrics.h"
#include "records/entry_filter.h"
#include "settings/settings_key.h"

CAppSettings::CAppSettings()
    : RowColorEven(GetSysColor(COLOR_WINDOW)) {
    constexpr LONG TallestSmallScreen = 200;
    constexpr int LargeIconSize = 32;
    RECT workArea;
    if (SystemParametersInfoW(SPI_GETWORKAREA, 0, &workArea, 0) && workArea.bottom > TallestSmallScreen)
        SmallIconSize = LargeIconSize;
}

CAppSettings::~CAppSettings() {
    if (loaded_)
        SaveSettings();
}

void CAppSettings::LoadSettings() {
    loaded_ = true;
    const CSettingsKey key(CSettingsKey::Access::Read);
    if (!key.IsOpen())
        return;
    key.ReadText(L"DBPath", DBPath, MAX_PATH);
    key.Read(L"LastActiveVehicle", &LastActiveVehicle);
    key.Read(L"SortAscending", &SortAscending);
    key.Read(L"LastColSorted", &LastColSorted);
    key.Read(L"ViewEntryType", &ViewEntryType);
    key.Read(L"ViewDateRangeType", &ViewDateRangeType);
    key.Read(L"UnitDistance", &UnitDistance);
    key.Read(L"UnitVolume", &UnitVolume);
    key.Read(L"UnitFuelEconomy", &UnitFuelEconomy);
    key.Read(L"UnitSetupMsgShown", &UnitSetupMsgShown);
    key.Read(L"MileageRate", &MileageRate);
    key.Read(L"TextSize", &TextSize);
}

void CAppSettings::SaveSettings() const {
    const CSettingsKey key(CSettingsKey::Access::Write);
    if (!key.IsOpen())
        return;
    key.WriteText(L"DBPath", DBPath);
    key.Write(L"LastActiveVehicle", LastActiveVehicle);
    key.Write(L"SortAscending", SortAscending);
    key.Write(L"LastColSorted", LastColSorted);
    key.Write(L"ViewEntryType", ViewEntryType);
    key.Write(L"UnitDistance", UnitDistance);
    key.Write(L"UnitVolume", UnitVolume);
    key.Write(L"UnitFuelEconomy", UnitFuelEconomy);
    key.Write(L"UnitSetupMsgShown", UnitSetupMsgShown);
    key.Write(L"MileageRate", MileageRate);
    // The dates of a custom range are stored nowhere, so the next run begins with the last other type.
    if (ViewDateRangeType != CEntryFilter::DateRangeCustom)
        key.Write(L"ViewDateRangeType", ViewDateRangeType);
    key.Write(L"TextSize", TextSize);
}

void CAppSettings::SaveDBPath() const {
    const CSettingsKey key(CSettingsKey::Access::Write);
    if (key.IsOpen())
        key.WriteText(L"DBPath", DBPath);
}
