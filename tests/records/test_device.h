#pragma once

#include "../platform/system/device_fixture.h"
#include "platform/files.h"
#include "platform/system/clock.h"
#include "records/data_file.h"
#include "records/data_layer.h"

#include <ctime>

/// A device of its own for each test: empty storage, American, and a clock that stands still.
class TestDevice : public DeviceTest {
protected:
    static constexpr const wchar_t* Path = L"\\My Documents\\My Vehicles.dat";

    TestDevice() {
        UseLocale("en_US");
        SetZone("UTC");
        SetClock("2026-03-15T10:00:00.250Z");
        std::filesystem::create_directories(Documents());
    }

    void UseLocale(const char* name) { Set("HANDSET_LOCALE", name); }
    static void SetZone(const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
    }
    static void SetClock(const char* utc) { device::StopClock(*device::ParseUtcTime(utc)); }
    static std::string HostPath() { return *HostPathOf(Path); }
};

/// With an empty data file, and a data layer that is connected to it.
class TestLog : public TestDevice {
protected:
    TestLog() {
        CDataFile::Create(HostPath());
        Reconnect();
    }
    ~TestLog() override { Layer.Disconnect(); }

    void Reconnect() { ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK); }
    template <typename Record, typename... Keys> auto LoadAll(Keys... keys) {
        auto records = std::make_unique<CObjectListT<Record>>();
        EXPECT_TRUE(Layer.Load(records.get(), keys...));
        return records;
    }
    /// Of records that belong to something: a vehicle's reminders, the keywords of a kind.
    template <typename Record, typename Key> std::vector<std::wstring> NamesOf(Key key) {
        std::vector<std::wstring> names;
        const auto records = LoadAll<Record>(key);
        for (int index = 0; index < records->GetCount(); ++index)
            names.emplace_back(records->Get(index)->GetName());
        return names;
    }

    CDataLayer& Layer = theDataLayer;
};
