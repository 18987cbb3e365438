#include "faulty_disk.h"
#include "records/entry_filter.h"
#include "records/string_helper.h"
#include "test_device.h"

#include <cmath>
#include <limits>
#include <set>

namespace {

class DataLayer : public TestLog {
protected:
    ULONG AddVehicle(const wchar_t* name) {
        CVehicle vehicle;
        vehicle.SetName(name);
        EXPECT_TRUE(Layer.Save(&vehicle, 0));
        return vehicle.GetRefID();
    }
    LONG AddEntry(ULONG vehicle, double date, LONG odometer, CEntry::Type type = CEntry::EntryTypeFuel) {
        CEntry entry;
        entry.SetVehicleID(vehicle);
        entry.SetDate(date);
        entry.SetOdometer(odometer);
        entry.SetType(type);
        EXPECT_TRUE(Layer.Save(&entry, 0));
        return entry.GetID();
    }
    void AddReminder(ULONG vehicle, const wchar_t* name) {
        CNotification reminder;
        reminder.SetVehicleID(vehicle);
        reminder.SetName(name);
        EXPECT_TRUE(Layer.Save(&reminder, 0));
    }
    std::vector<LONG> EntryIds(CEntryFilter filter) {
        std::vector<LONG> ids;
        const auto entries = LoadAll<CEntry>(&filter);
        for (int i = 0; i < entries->GetCount(); ++i)
            ids.push_back(entries->Get(i)->GetID());
        return ids;
    }
    static CEntryFilter AllOf(ULONG vehicle) {
        CEntryFilter filter;
        filter.SetVehicleID(vehicle);
        return filter;
    }
};

using TextAccess = std::pair<const wchar_t* (CVehicle::*)() const, void (CVehicle::*)(const wchar_t*)>;
#define TEXT(field) TextAccess(&CVehicle::Get##field, &CVehicle::Set##field)
const TextAccess vehicleTexts[]
    = {TEXT(Name), TEXT(Notes), TEXT(LicensePlate), TEXT(VIN), TEXT(InsurancePolicyNumber), TEXT(InsuranceAgentName),
        TEXT(InsuranceAgentPhone), TEXT(InsuranceCoverage), TEXT(DealerName), TEXT(DealerPhone), TEXT(DealerAddress)};

TEST_F(DataLayer, KeepsEveryFieldOfAVehicle) {
    CVehicle vehicle;
    int number = 0;
    for (const auto& [get, set] : vehicleTexts)
        (vehicle.*set)((L"\U0001F697 Zoë \u05E8\n" + std::to_wstring(number++)).c_str());
    vehicle.SetCurrentOdometer(std::numeric_limits<LONG>::max());
    vehicle.SetYear(-1);
    vehicle.SetInsuranceExpirationDate(-3.75); // 27 December 1899, 18:00
    ASSERT_TRUE(Layer.Save(&vehicle, 0));
    Reconnect();
    const auto vehicles = LoadAll<CVehicle>();
    ASSERT_EQ(vehicles->GetCount(), 1);
    const CVehicle& loaded = *vehicles->Get(0);
    for (const auto& [get, set] : vehicleTexts)
        EXPECT_STREQ((loaded.*get)(), (vehicle.*get)());
    EXPECT_EQ(loaded.GetCurrentOdometer(), std::numeric_limits<LONG>::max());
    EXPECT_EQ(loaded.GetYear(), -1);
    EXPECT_EQ(loaded.GetInsuranceExpirationDate(), -3.75);
    EXPECT_EQ(loaded.GetRefID(), vehicle.GetRefID());
    EXPECT_FALSE(loaded.IsDirty());
}

TEST_F(DataLayer, KeepsEveryBitOfAnEntry) {
    using Limits = std::numeric_limits<float>;
    for (const float value : {0.1F, -7.25F, 16777216.0F, Limits::max(), Limits::denorm_min(), Limits::infinity()}) {
        CEntry entry;
        entry.SetType(CEntry::EntryTypeTrip);
        entry.SetDate(39467.123456789);
        entry.SetOdometer(std::numeric_limits<LONG>::min());
        entry.SetAmount(value);
        entry.SetCustom1(value);
        entry.SetCustom2(value);
        entry.SetVendor(L"Bäcker & 'Söhne'; DROP TABLE entries");
        ASSERT_TRUE(Layer.Save(&entry, 0));
        CEntryFilter filter = AllOf(0);
        const auto entries = LoadAll<CEntry>(&filter);
        const CEntry& loaded = *entries->Get(entries->GetCount() - 1);
        EXPECT_TRUE(loaded.GetAmount() == value && loaded.GetCustom1() == value && loaded.GetCustom2() == value);
        EXPECT_EQ(loaded.GetDate(), entry.GetDate());
        EXPECT_EQ(loaded.GetOdometer(), entry.GetOdometer());
        EXPECT_EQ(loaded.GetType(), CEntry::EntryTypeTrip);
        EXPECT_STREQ(loaded.GetVendor(), entry.GetVendor());
    }
}

TEST_F(DataLayer, RefusesWhatIsNoNumber) {
    CEntry entry;
    entry.SetAmount(std::nanf(""));
    EXPECT_FALSE(Layer.Save(&entry, 0));
    EXPECT_EQ(entry.GetRefID(), 0U);
    EXPECT_TRUE(entry.IsDirty());
}

TEST_F(DataLayer, WhatTheDiskRefusedIsStillToBeSaved) {
    FaultyDisk disk;
    Reconnect();
    CVehicle stored;
    ASSERT_TRUE(Layer.Save(&stored, 0));
    stored.SetName(L"after");
    CVehicle added;
    disk.FailFrom(0);
    EXPECT_FALSE(Layer.Save(&stored, 0) || Layer.Save(&added, 0));
    EXPECT_TRUE(stored.IsDirty() && added.IsDirty() && added.GetID() == 0);
    disk.Mend();
    EXPECT_TRUE(Layer.Save(&stored, 0) && Layer.Save(&added, 0));
    EXPECT_STREQ(LoadAll<CVehicle>()->Get(0)->GetName(), L"after");
    Layer.Disconnect();
}

TEST_F(DataLayer, NeverGivesARefIdTwice) {
    std::set<ULONG> refs;
    for (int i = 0; i < 3; ++i) {
        CVehicle vehicle;
        CEntry entry;
        CNotification reminder;
        ASSERT_TRUE(Layer.Save(&vehicle, 0) && Layer.Save(&entry, 0) && Layer.Save(&reminder, 0));
        for (const CBaseObject* record : {static_cast<CBaseObject*>(&vehicle), static_cast<CBaseObject*>(&entry),
                 static_cast<CBaseObject*>(&reminder)}) {
            EXPECT_GT(record->GetRefID(), 1000U);
            EXPECT_TRUE(refs.insert(record->GetRefID()).second);
        }
        ASSERT_TRUE(Layer.Delete(&vehicle) && Layer.Delete(&entry) && Layer.Delete(&reminder));
        Reconnect();
    }
}

TEST_F(DataLayer, DeliversEntriesOldestFirst) {
    const ULONG vehicle = AddVehicle(L"A");
    const LONG late = AddEntry(vehicle, 40000.75, 1);
    const LONG secondOfDay = AddEntry(vehicle, 40000, 500);
    const LONG twin = AddEntry(vehicle, 40000, 500);
    const LONG firstOfDay = AddEntry(vehicle, 40000, -3);
    const LONG evening = AddEntry(vehicle, -1.75, 9); // the evening of a day before the count begins
    const LONG morning = AddEntry(vehicle, -1.25, 9);
    AddEntry(AddVehicle(L"B"), 40000, 500);
    EXPECT_EQ(EntryIds(AllOf(vehicle)), (std::vector<LONG>{morning, evening, firstOfDay, secondOfDay, twin, late}));
}

TEST_F(DataLayer, ReplacesTheRecordWithTheId) {
    CKeyword keyword;
    keyword.SetType(CKeyword::KeywordRepair);
    keyword.SetName(L"Oil");
    ASSERT_TRUE(Layer.Save(&keyword, 0));
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
    const ULONG kept = AddVehicle(L"A");
    const ULONG gone = AddVehicle(L"B");
    for (const ULONG vehicle : {kept, gone}) {
        AddEntry(vehicle, 40000, 100);
        AddReminder(vehicle, L"first");
        AddReminder(vehicle, L"second");
    }
    const auto vehicles = LoadAll<CVehicle>();
    EXPECT_TRUE(Layer.Delete(vehicles->Get(1)));
    EXPECT_EQ(EntryIds(AllOf(gone)).size(), 0U);
    EXPECT_EQ(LoadAll<CNotification>(gone)->GetCount(), 0);
    EXPECT_EQ(EntryIds(AllOf(kept)).size(), 1U);
    EXPECT_EQ(NamesOf<CNotification>(kept), (std::vector<std::wstring>{L"first", L"second"}));
    EXPECT_EQ(LoadAll<CVehicle>()->GetCount(), 1);
}

TEST_F(DataLayer, TheOdometerFollowsTheEntries) {
    CVehicle vehicle;
    vehicle.SetName(L"A");
    ASSERT_TRUE(Layer.Save(&vehicle, 0));
    LONG odometer = 0;
    for (const LONG reading : {-70, -50, -60}) // the highest, not the last, and not 0
        AddEntry(vehicle.GetRefID(), 40000, reading, CEntry::EntryTypeRepair);
    AddEntry(vehicle.GetRefID() + 1, 40000, 900);
    ASSERT_TRUE(Layer.GetMaxOdometer(vehicle.GetRefID(), &odometer));
    EXPECT_EQ(odometer, -50);
    EXPECT_FALSE(Layer.GetMaxOdometer(static_cast<ULONG>(vehicle.GetID()), &odometer));

    vehicle.SetName(L"changed, but not saved");
    EXPECT_TRUE(Layer.UpdateCurrentOdometer(&vehicle, -50));
    EXPECT_EQ(vehicle.GetCurrentOdometer(), -50);
    EXPECT_TRUE(vehicle.IsDirty());
    const auto vehicles = LoadAll<CVehicle>();
    EXPECT_EQ(vehicles->Get(0)->GetCurrentOdometer(), -50);
    EXPECT_STREQ(vehicles->Get(0)->GetName(), L"A");
    CVehicle stranger;
    EXPECT_FALSE(Layer.UpdateCurrentOdometer(&stranger, 7));
    EXPECT_EQ(stranger.GetCurrentOdometer(), 0);
}

/// Stores every text with a mark before it.
class MarkingHelper : public CDefaultStringHelper {
public:
    const char* Encode(const wchar_t* text) override {
        return CDefaultStringHelper::Encode((std::wstring(L"*") + text).c_str());
    }
    const wchar_t* Decode(const char* text) override { return CDefaultStringHelper::Decode(text + 1); }
};

class MarkingFactory : public CStringHelperFactory {
public:
    std::unique_ptr<CStringHelper> Create() override { return std::make_unique<MarkingHelper>(); }
};

TEST_F(DataLayer, TextsGoThroughTheFactory) {
    EXPECT_NE(Layer.GetStringHelperFactory(), nullptr);
    auto factory = std::make_unique<MarkingFactory>();
    CStringHelperFactory* replacement = factory.get();
    Layer.SetStringHelperFactory(std::move(factory));
    EXPECT_EQ(Layer.GetStringHelperFactory(), replacement);
    AddVehicle(L"Zoë");
    EXPECT_STREQ(LoadAll<CVehicle>()->Get(0)->GetName(), L"Zoë");
    Layer.SetStringHelperFactory(nullptr);
    EXPECT_STREQ(LoadAll<CVehicle>()->Get(0)->GetName(), L"*Zoë");
}

TEST_F(DataLayer, DeletesWhatIsStillThereOfManyEntries) {
    const ULONG vehicle = AddVehicle(L"Van");
    for (int day = 1; day <= 4; ++day)
        AddEntry(vehicle, day, 0);
    CEntryFilter filter = AllOf(vehicle);
    const auto loaded = LoadAll<CEntry>(&filter);
    ASSERT_TRUE(Layer.Delete(loaded->Get(1))) << "somebody else was first";
    CObjectListT<CEntry> selected;
    selected.AllowAutoCleanup(0);
    for (const int index : {0, 1, 3})
        selected.Add(loaded->Get(index));
    EXPECT_TRUE(Layer.Delete(&selected));
    EXPECT_EQ(EntryIds(filter), std::vector<LONG>{loaded->Get(2)->GetID()});
}

} // namespace
