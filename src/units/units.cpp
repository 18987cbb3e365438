#include "units/units.h"

#include "platform/locale.h"
#include "resources/load_text.h"
#include "resources/string_ids.h"
#include "settings/app_settings.h"

namespace {

std::wstring LowerCase(std::wstring text) {
    CharLowerW(text.data());
    return text;
}

std::wstring UnitText(UINT name, UINT shortName, bool abbreviated, bool lowerCase) {
    std::wstring text = LoadText(abbreviated ? shortName : name);
    return lowerCase ? LowerCase(std::move(text)) : text;
}

std::wstring EconomyLabel(UINT distance, UINT volume) {
    return LowerCase(LoadText(distance) + L"/" + LoadText(volume));
}

} // namespace

std::wstring DistanceUnitName(bool abbreviated, bool lowerCase) {
    switch (theSettings.UnitDistance) {
    case DistanceMiles:
        return UnitText(strings::Miles, strings::MilesShort, abbreviated, lowerCase);
    case DistanceKilometres:
        return UnitText(strings::Kilometres, strings::KilometresShort, abbreviated, lowerCase);
    default:
        return {};
    }
}

std::wstring VolumeUnitName(bool abbreviated, bool lowerCase) {
    switch (theSettings.UnitVolume) {
    case VolumeGallonsUS:
        return UnitText(strings::GallonsUS, strings::GallonsUSShort, abbreviated, lowerCase);
    case VolumeGallonsUK:
        return UnitText(strings::GallonsUK, strings::GallonsUKShort, abbreviated, lowerCase);
    case VolumeLitres:
        return UnitText(strings::Litres, strings::LitresShort, abbreviated, lowerCase);
    default:
        return {};
    }
}

std::wstring FuelEconomyUnitLabel() {
    switch (theSettings.UnitFuelEconomy) {
    case EconomyMilesPerGallonUS:
    case EconomyMilesPerGallonUK:
        return EconomyLabel(strings::MilesShort, strings::GallonsUKShort);
    case EconomyKilometresPerLitre:
        return EconomyLabel(strings::KilometresShort, strings::LitresShort);
    case EconomyMilesPerLitre:
        return EconomyLabel(strings::MilesShort, strings::LitresShort);
    default:
        return {};
    }
}

float ToMiles(float distance) {
    return theSettings.UnitDistance == DistanceMiles ? distance : distance * 0.621371F;
}

float ToKilometres(float distance) {
    return theSettings.UnitDistance == DistanceMiles ? distance * 1.609F : distance;
}

float ToUSGallons(float volume) {
    switch (theSettings.UnitVolume) {
    case VolumeGallonsUS:
        return volume;
    case VolumeGallonsUK:
        return volume * 1.20095F;
    case VolumeLitres:
        return volume * 0.2642F;
    default:
        return 0;
    }
}

float ToUKGallons(float volume) {
    switch (theSettings.UnitVolume) {
    case VolumeGallonsUS:
        return volume * 0.8327F;
    case VolumeGallonsUK:
        return volume;
    case VolumeLitres:
        return volume * 0.22F;
    default:
        return 0;
    }
}

float ToLitres(float volume) {
    switch (theSettings.UnitVolume) {
    case VolumeGallonsUS:
        return volume * 3.785F;
    case VolumeGallonsUK:
        return volume * 4.54609F;
    case VolumeLitres:
        return volume;
    default:
        return 0;
    }
}

float FuelEconomy(LONG distance, float volume) {
    if (distance < 1 || volume <= 0)
        return NoFuelEconomy;
    const auto travelled = static_cast<float>(distance);
    float converted = 0;
    float fuel = 0;
    switch (theSettings.UnitFuelEconomy) {
    case EconomyMilesPerGallonUS:
        converted = ToMiles(travelled);
        fuel = ToUSGallons(volume);
        break;
    case EconomyMilesPerGallonUK:
        converted = ToMiles(travelled);
        fuel = ToUKGallons(volume);
        break;
    case EconomyKilometresPerLitre:
        converted = ToKilometres(travelled);
        fuel = ToLitres(volume);
        break;
    case EconomyMilesPerLitre:
        converted = ToMiles(travelled);
        fuel = ToLitres(volume);
        break;
    default:
        return NoFuelEconomy;
    }
    return fuel == 0 ? NoFuelEconomy : converted / fuel;
}
