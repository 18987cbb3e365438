#include "units/units.h"
#include "units_device.h"

#include <limits>

namespace {

using Units = UnitsDevice;

TEST_F(Units, AreNamed) {
    const struct {
        int distance, volume, economy;
        const wchar_t *distanceName, *distanceShort, *volumeName, *volumeShort, *label;
    } cases[] = {{0, 0, 0, L"Miles", L"mi", L"gallons (us)", L"Gal", L"mi/gal"},
        {1, 1, 1, L"Kilometres", L"km", L"gallons (uk)", L"Gal", L"mi/gal"},
        {0, 2, 2, L"Miles", L"mi", L"litres", L"Ltr", L"km/ltr"},
        {1, 2, 3, L"Kilometres", L"km", L"litres", L"Ltr", L"mi/ltr"}, {2, 3, 4, L"", L"", L"", L"", L""},
        {-1, -1, -1, L"", L"", L"", L"", L""}};
    for (const auto& row : cases) {
        UseUnits(row.distance, row.volume, row.economy);
        EXPECT_EQ(DistanceUnitName(false, false), row.distanceName);
        EXPECT_EQ(DistanceUnitName(true, true), row.distanceShort);
        EXPECT_EQ(VolumeUnitName(false, true), row.volumeName);
        EXPECT_EQ(VolumeUnitName(true, false), row.volumeShort);
        EXPECT_EQ(FuelEconomyUnitLabel(), row.label);
    }
}

TEST_F(Units, FuelEconomyConvertsOnlyWhatDiffers) {
    const struct {
        int distance, volume, economy;
        LONG travelled;
        float burnt, expected;
    } cases[] = {{0, 0, 0, 300, 10, 30}, {1, 2, 0, 100, 10, (100 * 0.621371F) / (10 * 0.2642F)},
        {7, 2, 2, 300, 10, 30}, // what is not miles counts as kilometres
        {0, 2, 1, 300, std::numeric_limits<float>::denorm_min(), -1}, // nothing is left of it
        {0, 0, 0, 16777217, 1, 16777216}};
    for (const auto& row : cases) {
        UseUnits(row.distance, row.volume, row.economy);
        EXPECT_EQ(FuelEconomy(row.travelled, row.burnt), row.expected) << row.travelled;
    }
}

} // namespace
