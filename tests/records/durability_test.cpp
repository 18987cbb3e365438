#include "faulty_disk.h"
#include "records/entry_filter.h"
#include "test_device.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class Durability : public TestLog {
protected:
    Durability() {
        ReconnectAfterPowerLoss();
        Vehicle.SetName(L"before");
        Layer.Save(&Vehicle, 0);
        for (int i = 0; i < 40; ++i) {
            CEntry entry;
            entry.SetVehicleID(Vehicle.GetRefID());
            entry.SetNotes(std::wstring(1500, L'n').c_str());
            Layer.Save(&entry, 0);
        }
    }
    ~Durability() override { Layer.Disconnect(); }

    void ReconnectAfterPowerLoss() {
        Layer.Disconnect();
        Disk.Mend();
        Reconnect();
    }
    /// The names of the vehicles, and how many entries the first of them has.
    std::wstring Summary() {
        std::wstring summary;
        const auto vehicles = LoadAll<CVehicle>();
        for (int i = 0; i < vehicles->GetCount(); ++i)
            summary += std::wstring(vehicles->Get(i)->GetName()) + L' ';
        CEntryFilter filter;
        filter.SetVehicleID(Vehicle.GetRefID());
        return summary + std::to_wstring(LoadAll<CEntry>(&filter)->GetCount());
    }
    /// Runs the operation with the disk failing ever later, until it succeeds; each failure must leave the log as it
    /// was.
    template <typename Operation> int FailAtEveryChange(Operation operation) {
        const std::wstring before = Summary();
        for (int change = 0; change < 1000; ++change) {
            Disk.FailFrom(change);
            if (operation()) {
                EXPECT_FALSE(Disk.HasFailed());
                ReconnectAfterPowerLoss();
                return change;
            }
            EXPECT_TRUE(Disk.HasFailed());
            ReconnectAfterPowerLoss();
            EXPECT_EQ(Summary(), before) << change;
        }
        ADD_FAILURE() << "never succeeds";
        return 0;
    }

    FaultyDisk Disk;
    CVehicle Vehicle;
};

TEST_F(Durability, AFailedSaveChangesNothing) {
    CVehicle added;
    added.SetName(L"added");
    const int changes = FailAtEveryChange([&] {
        const bool saved = Layer.Save(&added, 0) != 0;
        EXPECT_EQ(added.GetID() != 0, saved);
        EXPECT_EQ(added.IsDirty() == 0, saved);
        return saved;
    });
    EXPECT_GT(changes, 4); // journal, its sync, pages, their sync, end of the journal
    EXPECT_EQ(Summary(), L"before added 40");

    Vehicle.SetName(L"after");
    FailAtEveryChange([&] { return Layer.Save(&Vehicle, 0); });
    EXPECT_EQ(Summary(), L"after added 40");
}

TEST_F(Durability, AVehicleGoesWithAllItsEntriesOrNotAtAll) {
    FailAtEveryChange([&] { return Layer.Delete(&Vehicle); });
    EXPECT_EQ(Summary(), L"0");
}

TEST_F(Durability, WorksAgainOnceTheDiskDoes) {
    Disk.FailFrom(0);
    Vehicle.SetName(L"after");
    EXPECT_FALSE(Layer.Save(&Vehicle, 0));
    EXPECT_EQ(Summary(), L"before 40");
    Disk.Mend();
    EXPECT_TRUE(Layer.Save(&Vehicle, 0));
    EXPECT_EQ(Summary(), L"after 40");
}

TEST_F(TestLog, WhatWasSavedOutlivesAKill) {
    Layer.Disconnect();
    int channel[2];
    ASSERT_EQ(pipe(channel), 0);
    const pid_t child = fork();
    if (child == 0) {
        CDataLayer own;
        own.Connect(Path);
        for (;;) {
            CKeyword keyword;
            keyword.SetType(CKeyword::KeywordRepair);
            const LONG id = own.Save(&keyword, 0) ? keyword.GetID() : -1;
            if (write(channel[1], &id, sizeof id) != sizeof id)
                _exit(1);
        }
    }
    close(channel[1]);
    LONG last = 0;
    for (int i = 0; i < 50; ++i)
        ASSERT_EQ(read(channel[0], &last, sizeof last), static_cast<ssize_t>(sizeof last));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    while (read(channel[0], &last, sizeof last) == static_cast<ssize_t>(sizeof last)) { }
    close(channel[0]);
    ASSERT_GE(last, 50);
    Reconnect();
    const auto keywords = LoadAll<CKeyword>(CKeyword::KeywordRepair);
    EXPECT_GE(keywords->GetCount(), last);
    EXPECT_LE(keywords->GetCount(), last + 1); // one may have been stored and not yet told
}

} // namespace
