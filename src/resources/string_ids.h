#pragma once

#include "platform/types.h"

/// Texts of the string table.
namespace strings {
inline constexpr UINT AppName = 128; ///< also the name of the mutex and of the window class
inline constexpr UINT SupportText = 900;

inline constexpr UINT MyVehicles = 32774;
inline constexpr UINT NoActiveVehicle = 32777;
inline constexpr UINT ColumnName = 32779;
inline constexpr UINT ColumnDate = 32780;
inline constexpr UINT ColumnDescription = 32781;
inline constexpr UINT ColumnOdometer = 32782;
inline constexpr UINT ColumnAmount = 32783;

inline constexpr UINT InvalidDataFile = 32784; ///< takes the path
inline constexpr UINT ReadOnlyDataFile = 32785; ///< takes the path
inline constexpr UINT DataFileName = 32786;
inline constexpr UINT TemplateFileName = 32825;
inline constexpr UINT CannotCreateDataFile = 32826; ///< takes the path

inline constexpr UINT NameRequired = 32812;
inline constexpr UINT ReminderCreated = 32814;
inline constexpr UINT EntryProperties = 32816;
inline constexpr UINT DescriptionRequired = 32817;
inline constexpr UINT EndOdometerBelowStart = 32818;
inline constexpr UINT ConfirmDeleteEntry = 32819;
inline constexpr UINT ConfirmDeleteEntries = 32820;
inline constexpr UINT ConfirmDeleteVehicle = 32822;
inline constexpr UINT EmptyList = 32823;
inline constexpr UINT EndDateBeforeStart = 32827;

inline constexpr UINT TripCategories = 32828;
inline constexpr UINT RepairKeywords = 32830;
inline constexpr UINT ExpenseKeywords = 32831;
inline constexpr UINT FuelVendors = 32833;

inline constexpr UINT StatsAverageEconomy = 32834;
inline constexpr UINT StatsRecentEconomy = 32835;
inline constexpr UINT StatsDistance = 32836;
inline constexpr UINT StatsFuelConsumed = 32837;
inline constexpr UINT StatsConsumptionRate = 32838;
inline constexpr UINT StatsTotalExpense = 32840;
inline constexpr UINT StatsCostOfOwnership = 32841;
inline constexpr UINT AllDates = 32842;
inline constexpr UINT NotAvailable = 32843;
inline constexpr UINT StatsDateRange = 32844;
inline constexpr UINT StatsAverageFuelCost = 32888;
inline constexpr UINT StatsFuelExpense = 32889;

inline constexpr UINT SortAscending = 32845;
inline constexpr UINT SortDescending = 32846;
inline constexpr UINT TextSizeAutomatic = 32847;
inline constexpr UINT TextSizeSmall = 32848;
inline constexpr UINT TextSizeMedium = 32849;
inline constexpr UINT TextSizeLarge = 32856;
inline constexpr UINT SyncConnected = 32857;

inline constexpr UINT NumGallons = 32864;
inline constexpr UINT NumLitres = 32865;
inline constexpr UINT CostPerGallon = 32866;
inline constexpr UINT CostPerLitre = 32867;
inline constexpr UINT GallonsUS = 32868;
inline constexpr UINT GallonsUSShort = 32869;
inline constexpr UINT GallonsUK = 32870;
inline constexpr UINT GallonsUKShort = 32871;
inline constexpr UINT Litres = 32873;
inline constexpr UINT LitresShort = 32874;
inline constexpr UINT Miles = 32875;
inline constexpr UINT MilesShort = 32876;
inline constexpr UINT Kilometres = 32877;
inline constexpr UINT KilometresShort = 32878;
inline constexpr UINT MilesPerGallonUS = 32879;
inline constexpr UINT MilesPerGallonUK = 32880;
inline constexpr UINT KilometresPerLitre = 32881;
inline constexpr UINT MilesPerLitre = 32882;
inline constexpr UINT CheckUnits = 32883;

inline constexpr UINT ChangeNotStored = 33001;
inline constexpr UINT NoSpaceCause = 33002;
inline constexpr UINT ReadOnlyCause = 33003;
inline constexpr UINT LockedCause = 33004;
inline constexpr UINT ReplacedCause = 33005;
inline constexpr UINT GoneCause = 33006;
inline constexpr UINT NoMemoryCause = 33007;
inline constexpr UINT OtherCause = 33008;
inline constexpr UINT NotEnoughMemory = 33009;
} // namespace strings
