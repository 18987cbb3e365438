#pragma once

#include "../records/test_device.h"
#include "resources/string_table.h"
#include "settings/app_settings.h"

/// With the program's texts, and with units that are put back after each test.
class UnitsDevice : public TestDevice {
protected:
    UnitsDevice() { device::SetModule(&Program); }
    ~UnitsDevice() override {
        UseUnits(0, 0, 0);
        device::SetModule(nullptr);
    }

    static void UseUnits(int distance, int volume, int economy) {
        theSettings.UnitDistance = distance;
        theSettings.UnitVolume = volume;
        theSettings.UnitFuelEconomy = economy;
    }

    const Module Program{StringTable(), {}, {}, {}};
};
