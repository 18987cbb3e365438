#pragma once

#include "platform/types.h"

/// Controls of the dialogs, and the lists of the main frame.
namespace controls {
inline constexpr UINT VehicleList = 33769;
inline constexpr UINT EntryList = 33770;
/// The one list of the keyword, reminder and statistics dialogs.
inline constexpr UINT List = 1072;

/// The labels of a dialog count up from here; all of them take the label font, and so do those of the second row.
inline constexpr UINT FirstLabel = 216;
inline constexpr UINT LastLabel = 229;
inline constexpr UINT FirstExtraLabel = 32850;
inline constexpr UINT LastExtraLabel = 32855;

// Every form.
inline constexpr UINT FirstText = 1015;
inline constexpr UINT Odometer = 1019;
inline constexpr UINT Date = 1024;
inline constexpr UINT Notes = 1028;
inline constexpr UINT Money = 1036;
inline constexpr UINT NotesSpin = 1084;

// Fuel entry.
inline constexpr UINT UnitPrice = 1034;
inline constexpr UINT Volume = 1035;
inline constexpr UINT VolumeLabel = 218;
inline constexpr UINT UnitPriceLabel = 219;

// Repair and other expense.
inline constexpr UINT Vendor = 1061;

// Trip.
inline constexpr UINT StartOdometer = 1051;
inline constexpr UINT EndOdometer = 1052;
inline constexpr UINT ElapsedDistance = Odometer;
inline constexpr UINT TripMileageRate = 1054;
inline constexpr UINT Category = 1056;

// Vehicle.
inline constexpr UINT LicensePlate = 1016;
inline constexpr UINT VIN = 1017;
inline constexpr UINT Year = 1018;
inline constexpr UINT AgentName = 1020;
inline constexpr UINT AgentPhone = 1021;
inline constexpr UINT PolicyNumber = 1022;
inline constexpr UINT Coverage = 1023;
inline constexpr UINT DealerName = 1025;
inline constexpr UINT DealerPhone = 1026;
inline constexpr UINT DealerAddress = 1027;
inline constexpr UINT CoverageSpin = 1082;
inline constexpr UINT DealerAddressSpin = 1083;

// Due reminder.
inline constexpr UINT DueHeading = 9;
inline constexpr UINT DueVehicle = 1061;
inline constexpr UINT DueReminderOdometer = 1051;
inline constexpr UINT DueCurrentOdometer = 1052;
inline constexpr UINT DueReminderDate = 1053;
inline constexpr UINT DueCurrentDate = 1055;

// Options: each list has its spinner.
inline constexpr UINT DistanceUnit = 1079;
inline constexpr UINT DistanceUnitSpin = 1082;
inline constexpr UINT VolumeUnit = 1080;
inline constexpr UINT VolumeUnitSpin = 1083;
inline constexpr UINT EconomyUnit = 1087;
inline constexpr UINT EconomyUnitSpin = 1092;
inline constexpr UINT Currency = 1088;
inline constexpr UINT SortColumn = 1081;
inline constexpr UINT SortColumnSpin = 1084;
inline constexpr UINT SortOrder = 1090;
inline constexpr UINT SortOrderSpin = 1085;
inline constexpr UINT OptionsMileageRate = 1034;
inline constexpr UINT TextSize = 1091;
inline constexpr UINT TextSizeSpin = 1086;
inline constexpr UINT EconomyUnitLabel = FirstExtraLabel;

// Custom date range.
inline constexpr UINT StartDate = 1075;
inline constexpr UINT EndDate = 1076;

// About.
inline constexpr UINT AboutName = 1033;
inline constexpr UINT AboutVersion = 1034;
inline constexpr UINT AboutRights = 1037;
inline constexpr UINT AboutPicture = 1038;
} // namespace controls
