#pragma once

#include "platform/types.h"

#include <string>

// The units that the settings name. A unit is a label and says what the stored numbers mean; no stored number is ever
// rewritten.

enum UnitDistance : std::int32_t { DistanceMiles = 0, DistanceKilometres = 1 };

enum UnitVolume : std::int32_t { VolumeGallonsUS = 0, VolumeGallonsUK = 1, VolumeLitres = 2 };

enum UnitFuelEconomy : std::int32_t {
    EconomyMilesPerGallonUS = 0,
    EconomyMilesPerGallonUK = 1,
    EconomyKilometresPerLitre = 2,
    EconomyMilesPerLitre = 3,
};

/// The names of the current units, empty for a setting out of range.
std::wstring DistanceUnitName(bool abbreviated, bool lowerCase);
std::wstring VolumeUnitName(bool abbreviated, bool lowerCase);
/// Such as "mi/gal".
std::wstring FuelEconomyUnitLabel();

/// From the current unit into the named one, in single precision and with factors that are rounded on purpose: a figure
/// must come out the same on every device. A volume unit out of range gives 0.
float ToMiles(float distance);
float ToKilometres(float distance);
float ToUSGallons(float volume);
float ToUKGallons(float volume);
float ToLitres(float volume);

/// What FuelEconomy gives where there is no figure.
inline constexpr float NoFuelEconomy = -1.0F;
/// Distance and volume in the current units, the result in the current unit of fuel economy.
float FuelEconomy(LONG distance, float volume);
