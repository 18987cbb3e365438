#include "../lists/dialog_device.h"

#include "forms/dlg_expense.h"
#include "forms/dlg_repair.h"
#include "forms/dlg_vehicle.h"
#include "lists/app_fonts.h"
#include "prefs/dlg_options.h"
#include "shell/record_editing.h"

using namespace controls;

class FormFields : public DialogDevice {
protected:
    template <typename Record>
    using Texts = std::vector<std::tuple<UINT, void (Record::*)(const wchar_t*), const wchar_t* (Record::*)() const>>;
    template <typename Record> using Numbers = std::vector<std::tuple<UINT, int, std::function<double(const Record&)>>>;

    auto Stored(const CEntry& /*kind*/) { return LoadAll<CEntry>(&Filter); }
    auto Stored(const CVehicle& /*kind*/) { return LoadAll<CVehicle>(); }

    /// Each value of a record shows in its control and goes from there to the file; a form that is left alone changes
    /// nothing.
    template <typename Record>
    void Check(int (*edit)(Record*), Record& record, double (Record::*date)() const, const Texts<Record>& texts,
        const Numbers<Record>& numbers) {
        const std::wstring awkward = std::wstring(300, L'\u00c9') + L"E\u0301 \U0001F527 ";
        for (const auto& [id, set, get] : texts)
            (record.*set)((std::to_wstring(id) + awkward).c_str());
        ASSERT_TRUE(Layer.Save(&record, 0));
        const auto run = [&] { return edit(&record); };
        EXPECT_EQ(Run(run, {Done()}), 0);
        EXPECT_FALSE(record.IsDirty());
        const auto change = [&] {
            for (const auto& [id, set, get] : texts) {
                EXPECT_EQ(TextOf(id), std::to_wstring(id) + awkward);
                Put(id, L"U" + std::to_wstring(id))();
            }
            for (const auto& [id, number, get] : numbers)
                Put(id, std::to_wstring(number))();
            SetFocus(Item(Date));
            Host.Type(L"2"); // the month
        };
        EXPECT_NE(Run(run, {change, Done()}), 0);
        Reconnect();
        const auto all = Stored(record);
        const Record& stored = *all->Get(all->GetCount() - 1);
        EXPECT_TRUE(stored.GetRefID() == record.GetRefID() && !stored.IsDirty());
        for (const auto& [id, set, get] : texts)
            EXPECT_EQ((stored.*get)(), L"U" + std::to_wstring(id));
        for (const auto& [id, number, get] : numbers)
            EXPECT_EQ(get(stored), number) << id;
        EXPECT_EQ((stored.*date)(), -313.75) << "a time of day, before days were counted";
    }
    void CheckEntry(CEntry& entry, const Texts<CEntry>& texts, const Numbers<CEntry>& numbers) {
        auto notes = texts;
        notes.emplace_back(Notes, &CEntry::SetNotes, &CEntry::GetNotes);
        Check(&EditEntry, entry, &CEntry::GetDate, notes, numbers);
    }
};

TEST_F(FormFields, OfARepairAndAnExpense) {
    for (const auto type : {CEntry::EntryTypeRepair, CEntry::EntryTypeExpense}) {
        const auto entry = Store(-344.75, type, L"", 2147483647, -12.5F);
        CheckEntry(*entry,
            {{FirstText, &CEntry::SetName, &CEntry::GetName}, {Vendor, &CEntry::SetVendor, &CEntry::GetVendor}},
            {{Odometer, 6, &CEntry::GetOdometer}, {Money, 7, &CEntry::GetAmount}});
    }
}

TEST_F(FormFields, OfAFill) {
    const auto entry = Store(-344.75, CEntry::EntryTypeFuel, L"", -12, 36.5F);
    entry->SetCustom1(0.1F);
    entry->SetCustom2(3.459F);
    CheckEntry(*entry, {{FirstText, &CEntry::SetVendor, &CEntry::GetVendor}},
        {{Odometer, 6, &CEntry::GetOdometer}, {Volume, 7, &CEntry::GetCustom1}, {UnitPrice, 8, &CEntry::GetCustom2},
            {Money, 9, &CEntry::GetAmount}});
}

TEST_F(FormFields, OfATrip) {
    const auto entry = Store(-344.75, CEntry::EntryTypeTrip, L"", 5100, 36.5F);
    entry->SetCustom1(5000);
    entry->SetCustom2(5100);
    CheckEntry(*entry,
        {{FirstText, &CEntry::SetName, &CEntry::GetName}, {Category, &CEntry::SetVendor, &CEntry::GetVendor}},
        {{StartOdometer, 6, &CEntry::GetCustom1}, {EndOdometer, 7, &CEntry::GetCustom2},
            {EndOdometer, 7, &CEntry::GetOdometer}, {Money, 8, &CEntry::GetAmount}});
}

TEST_F(FormFields, OfAVehicle) {
    CVehicle vehicle;
    vehicle.SetYear(1999);
    vehicle.SetCurrentOdometer(-5);
    vehicle.SetInsuranceExpirationDate(-344.75);
    Check(&EditVehicle, vehicle, &CVehicle::GetInsuranceExpirationDate,
        {{FirstText, &CVehicle::SetName, &CVehicle::GetName}, {VIN, &CVehicle::SetVIN, &CVehicle::GetVIN},
            {LicensePlate, &CVehicle::SetLicensePlate, &CVehicle::GetLicensePlate},
            {PolicyNumber, &CVehicle::SetInsurancePolicyNumber, &CVehicle::GetInsurancePolicyNumber},
            {AgentName, &CVehicle::SetInsuranceAgentName, &CVehicle::GetInsuranceAgentName},
            {AgentPhone, &CVehicle::SetInsuranceAgentPhone, &CVehicle::GetInsuranceAgentPhone},
            {Coverage, &CVehicle::SetInsuranceCoverage, &CVehicle::GetInsuranceCoverage},
            {DealerName, &CVehicle::SetDealerName, &CVehicle::GetDealerName},
            {DealerPhone, &CVehicle::SetDealerPhone, &CVehicle::GetDealerPhone},
            {DealerAddress, &CVehicle::SetDealerAddress, &CVehicle::GetDealerAddress},
            {Notes, &CVehicle::SetNotes, &CVehicle::GetNotes}},
        {{Year, 6, &CVehicle::GetYear}, {Odometer, 7, &CVehicle::GetCurrentOdometer}});
}

TEST_F(FormFields, AreReadInTheOrderOfTheirForm) {
    const auto failAtTheOdometer = [&](CPaidEntryForm&& form) {
        Run(form,
            {Put(FirstText, L"Wash"), Put(Vendor, L"Pit"), Put(Odometer, L""), Done(), Press({VK_RETURN}),
                CancelByMenu()});
        return form.Description + form.Vendor;
    };
    EXPECT_EQ(failAtTheOdometer(CDlgRepair()), L"") << "the odometer comes first";
    EXPECT_EQ(failAtTheOdometer(CDlgExpense()), L"WashPit");
    CDlgVehicle vehicle;
    const auto yearFirst = [&] {
        EXPECT_EQ(FocusedId(), Year);
        Put(Year, L"1999")();
        Press({VK_RETURN})(); // Action is Done in this form
    };
    const auto nameThen = [&] {
        EXPECT_EQ(Message(), L"A name is required.");
        Press({VK_RETURN})();
    };
    const auto atTheName = [] { EXPECT_EQ(FocusedId(), FirstText); };
    EXPECT_EQ(
        Run(vehicle, {Put(Year, L""), Done(), yearFirst, nameThen, atTheName, Put(FirstText, L"Enc\u00f3re"), Done()}),
        1);
    EXPECT_EQ(vehicle.Year, 1999);
}

TEST_F(FormFields, CancelWithoutASenderIsIgnoredByTheRepairFormAlone) {
    const auto send = [](UINT command) {
        return [command] {
            const HWND form = GetActiveWindow();
            SendMessageW(form, WM_COMMAND, command, 0);
            PostMessageW(form, WM_NULL, 0, 0);
        };
    };
    CDlgRepair repair;
    CDlgExpense expense;
    expense.Description = repair.Description = L"Oil";
    EXPECT_EQ(Run(repair, {send(commands::Done), send(commands::Cancel), Done()}), 1);
    EXPECT_EQ(Run(expense, {send(commands::Done), send(commands::Cancel)}), 2);
}

TEST_F(FormFields, StandUnderLabelsInTheLabelFont) {
    const auto check = [](std::vector<UINT> labels, UINT field) {
        return [labels, field] {
            const auto isLabelFont = [](UINT id) {
                return SendMessageW(Item(id), WM_GETFONT, 0, 0) == reinterpret_cast<LRESULT>(LabelFont);
            };
            for (const UINT id : labels)
                EXPECT_TRUE(isLabelFont(id)) << id;
            EXPECT_FALSE(isLabelFont(field));
        };
    };
    CDlgExpense form;
    CDlgOptions options; // opens as all dialogs do that are no record forms
    Run(form, {check({FirstLabel, FirstLabel + 5}, Money), CancelByMenu()});
    Run(options, {check({FirstLabel, EconomyUnitLabel}, OptionsMileageRate), Press({VK_TSOFT2})});
}
