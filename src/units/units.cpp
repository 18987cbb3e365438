#include "units/units.h"

#include "platform/locale.h"
#include "resources/load_text.h"
#include "resources/string_ids.h"
#include "settings/app_settings.h"

#include <cstddef>
#include <utility>

namespace {

struct UnitTexts {
    UINT name;
    UINT abbreviation;
};

// By the unit.
constexpr UnitTexts DistanceTexts[]
    = {{strings::Miles, strings::MilesShort}, {strings::Kilometres, strings::KilometresShort}};
constexpr UnitTexts VolumeTexts[] = {{strings::GallonsUS, strings::GallonsUSShort},
    {strings::GallonsUK, strings::GallonsUKShort}, {strings::Litres, strings::LitresShort}};

// From the unit.
constexpr float ToUSGallonsFactors[] = {1.0F, 1.20095F, 0.2642F};
constexpr float ToUKGallonsFactors[] = {0.8327F, 1.0F, 0.22F};
constexpr float ToLitresFactors[] = {3.785F, 4.54609F, 1.0F};

struct Economy {
    UINT distanceText;
    UINT volumeText;
    float (*toDistance)(float distance);
    float (*toVolume)(float volume);
};

constexpr Economy Economies[] = {
    {strings::MilesShort, strings::GallonsUKShort, ToMiles, ToUSGallons},
    {strings::MilesShort, strings::GallonsUKShort, ToMiles, ToUKGallons},
    {strings::KilometresShort, strings::LitresShort, ToKilometres, ToLitres},
    {strings::MilesShort, strings::LitresShort, ToMiles, ToLitres},
};

/// The setting's row of a table; null for a setting out of range.
template <typename Row, std::size_t Count> const Row* RowOf(int setting, const Row (&table)[Count]) {
    return setting >= 0 && setting < static_cast<int>(Count) ? &table[setting] : nullptr;
}

std::wstring LowerCase(std::wstring text) {
    CharLowerW(text.data());
    return text;
}

std::wstring UnitText(const UnitTexts* unit, bool abbreviated, bool lowerCase) {
    if (!unit)
        return {};
    std::wstring text = LoadText(abbreviated ? unit->abbreviation : unit->name);
    return lowerCase ? LowerCase(std::move(text)) : text;
}

float Converted(float volume, const float* factor) {
    return factor ? volume * *factor : 0;
}

} // namespace

std::wstring DistanceUnitName(bool abbreviated, bool lowerCase) {
    return UnitText(RowOf(theSettings.UnitDistance, DistanceTexts), abbreviated, lowerCase);
}

std::wstring VolumeUnitName(bool abbreviated, bool lowerCase) {
    return UnitText(RowOf(theSettings.UnitVolume, VolumeTexts), abbreviated, lowerCase);
}

std::wstring FuelEconomyUnitLabel() {
    const Economy* economy = RowOf(theSettings.UnitFuelEconomy, Economies);
    return economy ? LowerCase(LoadText(economy->distanceText) + L"/" + LoadText(economy->volumeText)) : std::wstring();
}

float ToMiles(float distance) {
    return theSettings.UnitDistance == DistanceMiles ? distance : distance * 0.621371F;
}

float ToKilometres(float distance) {
    return theSettings.UnitDistance == DistanceMiles ? distance * 1.609F : distance;
}

float ToUSGallons(float volume) {
    return Converted(volume, RowOf(theSettings.UnitVolume, ToUSGallonsFactors));
}

float ToUKGallons(float volume) {
    return Converted(volume, RowOf(theSettings.UnitVolume, ToUKGallonsFactors));
}

float ToLitres(float volume) {
    return Converted(volume, RowOf(theSettings.UnitVolume, ToLitresFactors));
}

float FuelEconomy(LONG distance, float volume) {
    const Economy* economy = RowOf(theSettings.UnitFuelEconomy, Economies);
    if (distance < 1 || volume <= 0 || !economy)
        return NoFuelEconomy;
    const float fuel = economy->toVolume(volume);
    return fuel == 0 ? NoFuelEconomy : economy->toDistance(static_cast<float>(distance)) / fuel;
}
