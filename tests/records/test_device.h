#pragma once

#include "platform/files.h"
#include "platform/system/clock.h"
#include "platform/system/environment.h"
#include "records/data_file.h"
#include "records/data_layer.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>

/// A device of its own for each test: empty storage, and a clock that stands still.
class TestDevice : public testing::Test {
protected:
    static constexpr const wchar_t* Path = L"\\My Documents\\My Vehicles.dat";

    TestDevice() {
        std::string pattern = (std::filesystem::temp_directory_path() / "odoledger.XXXXXX").string();
        Storage = mkdtemp(pattern.data());
        UseLocale("en_US");
        SetZone("UTC");
        SetClock("2026-03-15T10:00:00Z");
    }
    ~TestDevice() override { std::filesystem::remove_all(Storage); }

    void UseLocale(const std::string& name) const {
        device::ReplaceEnvironment({{"HANDSET_STORAGE", Storage.string()}, {"HANDSET_LOCALE", name}});
        std::filesystem::create_directories(*HostPathOf(L"\\My Documents"));
    }
    static void SetZone(const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
    }
    static void SetClock(const char* utc) { device::StopClock(*device::ParseUtcTime(utc)); }
    static std::string HostPath() { return *HostPathOf(Path); }

    std::filesystem::path Storage;
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

    CDataLayer& Layer = theDataLayer;
};
