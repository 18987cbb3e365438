#pragma once

#include "platform/types.h"
#include "records/data_layer.h"

#include <cstddef>

/// All that the program remembers outside the data file: the options, the state of the view, and a few measures of the
/// device. The fields are read and written directly; those marked "stored" lie in the registry.
class CAppSettings {
public:
    static constexpr const wchar_t* RegistryKey = L"Software\\Larkfield Software\\Odoledger";
    static constexpr std::size_t PathSize = MAX_PATH + 1;

    /// The defaults, some of them taken from the device.
    CAppSettings();
    CAppSettings(const CAppSettings&) = delete;
    CAppSettings& operator=(const CAppSettings&) = delete;
    /// Saves, but only in a process that has loaded: a second instance that gives way must not store its defaults.
    ~CAppSettings();

    /// A value that is missing or of another type leaves its field alone. There is no check of ranges.
    void LoadSettings();
    /// Failures are passed over. A custom date range lasts for the run only, so that type is not stored.
    void SaveSettings() const;
    void SaveDBPath() const;

    int TextSize = 2; ///< stored; 0 automatic, 1 small, 2 medium, 3 large
    ULONG LastActiveVehicle = 0; ///< stored; RefID of the active vehicle, 0 without one
    LONG ActiveVehicleOdometer = 0; ///< the run's copy of that vehicle's current odometer
    int SortAscending = 1; ///< stored
    int AlternateRowShading = 1;
    int UnitSetupMsgShown = 0; ///< stored
    COLORREF RowColorEven = 0;
    COLORREF RowColorOdd = 0x00A5EFCE;
    int ViewEntryType = 0; ///< stored; CEntry::Type
    int ViewDateRangeType = 0; ///< stored; CEntryFilter::DateRangeType
    wchar_t DBPath[PathSize] = {}; ///< stored; device path of the data file
    int LastColSorted = 0; ///< stored; 0 date, 1 description, 2 odometer, 3 amount
    int SmallIconSize = 16; ///< edge of the lists' icons in pixels
    float MileageRate = 0.36F; ///< stored; money per distance unit
    int UnitDistance = 0; ///< stored; the three units are those of units.h
    int UnitVolume = 0; ///< stored
    int UnitFuelEconomy = 0; ///< stored

private:
    bool loaded_ = false;
};

/// The program's settings: constructed after theDataLayer and destroyed before it, as this header includes that one's.
inline CAppSettings theSettings;
