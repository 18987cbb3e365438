#include "faulty_disk.h"
#include "records/entry_filter.h"
#include "records/string_helper.h"
#include "test_device.h"

#include <cmath>
#include <set>

namespace {

class DataLayer : public TestLog {
protected:
    template <typename Record> ULONG Add(Record&& record) {
        EXPECT_TRUE(Layer.Save(&record, 0));
        return record.GetRefID();
    }
    LONG AddEntry(ULONG vehicle, double date, LONG odometer) {
        CEntry entry;
        entry.SetVehicleID(vehicle);
        entry.SetDate(date);
        entry.SetOdometer(odometer);
        Add(entry);
        return entry.GetID();
    }
    auto Entries(ULONG vehicle) {
        CEntryFilter filter;
        filter.SetVehicleID(vehicle);
        return LoadAll<CEntry>(&filter);
    }
    std::vector<LONG> EntryIds(ULONG vehicle) {
        std::vector<LONG> ids;
        const auto entries = Entries(vehicle);
        for (int i = 0; i < entries->GetCount(); ++i)
            ids.push_back(entries->Get(i)->GetID());
        return ids;
    }
};

TEST_F(DataLayer, WhatWasRefusedIsStillToBeSaved) {
    FaultyDisk disk;
    Reconnect();
    CVehicle stored;
    CVehicle added;
    Add(stored);
    stored.SetName(L"after");
    for (int change = 0; change < 14; ++change) { // also those that the end of the transaction makes
        disk.FailFrom(change);
        EXPECT_FALSE(Layer.Save(&added, 0) || Layer.Save(&stored, 0)) << change;
        EXPECT_TRUE(stored.IsDirty() && added.IsDirty() && added.GetID() == 0);
        disk.Mend();
    }
    EXPECT_TRUE(Layer.Save(&stored, 0) && Layer.Save(&added, 0));
    EXPECT_STREQ(LoadAll<CVehicle>()->Get(0)->GetName(), L"after");
    CEntry noNumber;
    noNumber.SetAmount(std::nanf(""));
    EXPECT_FALSE(Layer.Save(&noNumber, 0));
    EXPECT_TRUE(noNumber.IsDirty() && noNumber.GetRefID() == 0);
    Layer.Disconnect();
}

TEST_F(DataLayer, NeverGivesARefIdTwice) {
    std::set<ULONG> refs;
    for (int i = 0; i < 3; ++i) {
        CVehicle vehicle;
        CEntry entry;
        for (const ULONG ref : {Add(vehicle), Add(entry), Add(CKeyword())})
            EXPECT_TRUE(ref > 1000 && refs.insert(ref).second);
        ASSERT_TRUE(Layer.Delete(&vehicle) && Layer.Delete(&entry));
        Reconnect();
    }
}

TEST_F(DataLayer, ReplacesTheRecordWithTheId) {
    CKeyword keyword;
    keyword.SetType(CKeyword::KeywordRepair);
    keyword.SetName(L"Oil");
    Add(keyword);
    CKeyword renamed;
    renamed.SetID(keyword.GetID());
    renamed.SetType(CKeyword::KeywordRepair);
    renamed.SetName(L"Öl");
    ASSERT_TRUE(Layer.Save(&renamed, 0));
    EXPECT_EQ(renamed.GetRefID(), keyword.GetRefID());
    EXPECT_EQ(NamesOf<CKeyword>(CKeyword::KeywordRepair), std::vector<std::wstring>{L"Öl"});
    EXPECT_TRUE(NamesOf<CKeyword>(CKeyword::KeywordExpense).empty());

    CKeyword blank;
    blank.SetID(keyword.GetID());
    EXPECT_TRUE(Layer.Delete(&blank));
    EXPECT_FALSE(Layer.Delete(&blank) || Layer.Save(&renamed, 0)); // there is nothing left to replace
    CKeyword next;
    ASSERT_TRUE(Layer.Save(&next, 0));
    ASSERT_EQ(next.GetID(), renamed.GetID());
    EXPECT_FALSE(Layer.Save(&renamed, 0)); // it outlived its record, and must not reach the next one
}

TEST_F(DataLayer, AVehicleTakesItsOwnWithIt) {
    const ULONG vehicles[] = {Add(CVehicle()), Add(CVehicle())};
    for (const ULONG vehicle : vehicles) {
        AddEntry(vehicle, 40000, 100);
        for (const wchar_t* name : {L"first", L"second"}) {
            CNotification reminder;
            reminder.SetVehicleID(vehicle);
            reminder.SetName(name);
            Add(reminder);
        }
    }
    EXPECT_TRUE(Layer.Delete(LoadAll<CVehicle>()->Get(1)));
    EXPECT_EQ(EntryIds(vehicles[1]).size() + NamesOf<CNotification>(vehicles[1]).size(), 0U);
    EXPECT_EQ(EntryIds(vehicles[0]).size(), 1U);
    EXPECT_EQ(NamesOf<CNotification>(vehicles[0]), (std::vector<std::wstring>{L"first", L"second"}));
    EXPECT_EQ(LoadAll<CVehicle>()->GetCount(), 1);
}

TEST_F(DataLayer, TheOdometerFollowsTheEntries) {
    CVehicle vehicle;
    const ULONG ref = Add(vehicle);
    LONG odometer = 0;
    for (const LONG reading : {-70, -50, -60}) // the highest, not the last, and not 0
        AddEntry(ref, 40000, reading);
    AddEntry(ref + 1, 40000, 900);
    ASSERT_TRUE(Layer.GetMaxOdometer(ref, &odometer));
    EXPECT_EQ(odometer, -50);
    EXPECT_FALSE(Layer.GetMaxOdometer(static_cast<ULONG>(vehicle.GetID()), &odometer));

    vehicle.SetName(L"changed, but not saved");
    EXPECT_TRUE(Layer.UpdateCurrentOdometer(&vehicle, -50));
    EXPECT_TRUE(vehicle.GetCurrentOdometer() == -50 && vehicle.IsDirty());
    const auto vehicles = LoadAll<CVehicle>();
    EXPECT_EQ(vehicles->Get(0)->GetCurrentOdometer(), -50);
    EXPECT_STREQ(vehicles->Get(0)->GetName(), L"");
    CVehicle stranger;
    EXPECT_FALSE(Layer.UpdateCurrentOdometer(&stranger, 7));
    EXPECT_EQ(stranger.GetCurrentOdometer(), 0);
}

/// Stores a star in place of every text.
struct StarHelper : CDefaultStringHelper {
    const char* Encode(const wchar_t*) override { return "*"; }
};
struct StarFactory : CStringHelperFactory {
    std::unique_ptr<CStringHelper> Create() override { return std::make_unique<StarHelper>(); }
};

TEST_F(DataLayer, TextsGoThroughTheFactory) {
    CKeyword keyword;
    keyword.SetName(L"Zoë");
    Layer.SetStringHelperFactory(std::make_unique<StarFactory>());
    Add(keyword);
    EXPECT_EQ(NamesOf<CKeyword>(keyword.GetType()), std::vector<std::wstring>{L"*"});
    Layer.SetStringHelperFactory(nullptr);
    Add(keyword);
    EXPECT_EQ(NamesOf<CKeyword>(keyword.GetType()), std::vector<std::wstring>{L"Zoë"});
}

TEST_F(DataLayer, DeletesWhatIsStillThereOfManyEntries) {
    for (int day = 1; day <= 4; ++day)
        AddEntry(7, day, 0);
    const auto loaded = Entries(7);
    ASSERT_TRUE(Layer.Delete(loaded->Get(1))) << "somebody else was first";
    CObjectListT<CEntry> selected;
    selected.AllowAutoCleanup(0);
    for (const int index : {0, 1, 3})
        selected.Add(loaded->Get(index));
    EXPECT_TRUE(Layer.Delete(&selected));
    EXPECT_EQ(EntryIds(7), std::vector<LONG>{loaded->Get(2)->GetID()});
}

} // namespace
