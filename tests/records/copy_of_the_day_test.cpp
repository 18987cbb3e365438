#include "log_file.h"
#include "platform/system/environment.h"
#include "records/copy_of_the_day.h"
#include "test_device.h"

#include <set>

namespace {

class CopyOfTheDay : public TestLog {
protected:
    std::filesystem::path Copies() { return device::TheEnvironment().copiesFolder; }
    std::string Copied(const char* day) {
        SetClock((day + std::string("T23:30:00Z")).c_str());
        const CCopyOfTheDay copy(Path); // done when it is destroyed
        return day + std::string(".dat");
    }
    CopyOfTheDay() {
        LogFile(HostPath())
            .Run("INSERT INTO vehicles VALUES (1, 2001, 'A', '', '', '', 1, 2, '', '', '', '', 0, '', '', '')");
    }
    std::set<std::string> Names() {
        std::set<std::string> names;
        for (const auto& file : std::filesystem::directory_iterator(Copies()))
            names.insert(file.path().filename());
        return names;
    }
    void Change() { LogFile(HostPath()).Run("UPDATE sequence SET next_ref = next_ref + 1"); }
};

TEST_F(CopyOfTheDay, IsTheFileItselfAndMadeWhereItDiffersFromTheNewest) {
    const std::string first = Copied("2026-03-01");
    EXPECT_EQ(Read(Copies() / first), Read(HostPath()));
    const std::string before = Read(HostPath());
    Copied("2026-03-02");
    EXPECT_EQ(Names(), std::set<std::string>{first});
    Change();
    Copied("2026-03-02");
    EXPECT_EQ(Read(Copies() / first), before);
    Change();
    const std::string second = Copied("2026-03-02");
    EXPECT_EQ(Read(Copies() / second), Read(HostPath()));

    // What was made in the place of a log that was spoilt.
    const std::string records = Read(HostPath());
    Layer.Disconnect();
    std::filesystem::remove(HostPath());
    CDataFile::Create(HostPath());
    Copied("2026-03-02");
    EXPECT_EQ(Read(Copies() / second), records);
}

TEST_F(CopyOfTheDay, TenDaysAndTwelveMonthsStayAndNothingElseGoes) {
    const auto make = [&](const std::string& name) { Write(Copies() / name, "x"); };
    for (int month = 1; month <= 12; ++month)
        for (const char* day : {"01", "20"})
            make("2025-" + std::to_string(100 + month).substr(1) + '-' + day + ".dat");
    make("2026-01-05.dat");
    make("notes.dat");
    make("2025-01-01.data");
    Copied("2026-01-06");
    const std::set<std::string> kept = {"2026-01-06.dat", "2026-01-05.dat", "2025-12-20.dat", "2025-12-01.dat",
        "2025-11-20.dat", "2025-11-01.dat", "2025-10-20.dat", "2025-10-01.dat", "2025-09-20.dat", "2025-09-01.dat",
        "2025-08-20.dat", "2025-07-20.dat", "2025-06-20.dat", "2025-05-20.dat", "2025-04-20.dat", "2025-03-20.dat",
        "2025-02-20.dat", "notes.dat", "2025-01-01.data"};
    EXPECT_EQ(Names(), kept);
}

TEST_F(CopyOfTheDay, TogetherTheyHaveTwoHundredMegabytes) {
    for (const char* name : {"2026-02-01.dat", "2026-02-02.dat", "2026-02-03.dat"}) {
        Write(Copies() / name, "x");
        std::filesystem::resize_file(Copies() / name, 80'000'000);
    }
    const std::string newest = Copied("2026-03-01");
    EXPECT_EQ(Names(), (std::set<std::string>{newest, "2026-02-02.dat", "2026-02-03.dat"}));
}

// The documents folder gets another name while there is a log in it, and later the log goes.
TEST_F(CopyOfTheDay, TheLogStaysWhereItWasUntilItIsGone) {
    const std::filesystem::path home = folder_ / "home";
    Set("HANDSET_STORAGE", "");
    Set("HOME", home);
    Set("XDG_CONFIG_HOME", home / ".config");
    const auto first = home / "Documents" / "Cars" / "My Vehicles.dat";
    const wchar_t* path = L"\\My Documents\\Cars\\My Vehicles.dat";
    std::filesystem::create_directories(first.parent_path());
    ASSERT_TRUE(CDataFile::Create(first));
    EXPECT_EQ(HostPathOf(path), first);
    ASSERT_EQ(Layer.Connect(path), CDataLayer::ConnectOK);
    Layer.Disconnect();

    Write(home / ".config" / "user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
    Set("TZ", "UTC"); // reads the surroundings anew
    EXPECT_EQ(HostPathOf(path), first);
    std::filesystem::remove(first);
    Set("TZ", "UTC");
    EXPECT_EQ(HostPathOf(path), home / "Dokumente" / "Cars" / "My Vehicles.dat");
}

} // namespace
