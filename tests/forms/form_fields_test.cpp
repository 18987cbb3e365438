#include "../lists/dialog_device.h"

#include "forms/dlg_expense.h"
#include "forms/dlg_fuel_entry.h"
#include "forms/dlg_repair.h"
#include "forms/dlg_trip.h"
#include "forms/dlg_vehicle.h"

using namespace controls;

class FormFields : public DialogDevice {
protected:
    template <typename Form> using Texts = std::vector<std::pair<std::wstring Form::*, UINT>>;

    /// Each text shows in its control and comes back from it; a control that is left alone keeps every character.
    template <typename Form> void CheckTexts(Form& form, const Texts<Form>& texts) {
        const std::wstring awkward = std::wstring(300, L'\u00c9') + L"E\u0301 \U0001F527 ";
        for (const auto& [field, id] : texts)
            form.*field = std::to_wstring(id) + awkward;
        EXPECT_EQ(Run(form, {Done()}), 1);
        const auto change = [&] {
            for (const auto& [field, id] : texts) {
                EXPECT_EQ(TextOf(id), std::to_wstring(id) + awkward);
                Put(id, L"U" + std::to_wstring(id))();
            }
        };
        EXPECT_EQ(Run(form, {change, Done()}), 1);
        for (const auto& [field, id] : texts)
            EXPECT_EQ(form.*field, L"U" + std::to_wstring(id));
    }
    template <typename Form> void CheckPaid() {
        Form form;
        form.Date = 39467.75;
        form.Odometer = 2147483647;
        CheckTexts<Form>(form, {{&Form::Description, FirstText}, {&Form::Vendor, Vendor}, {&Form::Notes, Notes}});
        EXPECT_EQ(Run(form, {Put(Money, L"-12.345678"), Done()}), 1);
        EXPECT_EQ(form.Date, 39467.75) << "a time of day";
        EXPECT_EQ(form.Odometer, 2147483647);
        EXPECT_EQ(form.Amount, -12.345678F);
    }
};

TEST_F(FormFields, OfARepairAndAnExpense) {
    CheckPaid<CDlgRepair>();
    CheckPaid<CDlgExpense>();
}

TEST_F(FormFields, OfAFill) {
    CDlgFuelEntry form;
    form.Date = 39467.75;
    form.Odometer = -12;
    form.Volume = 0.1F;
    form.UnitPrice = 3.4590001F;
    CheckTexts<CDlgFuelEntry>(form, {{&CDlgFuelEntry::Vendor, FirstText}, {&CDlgFuelEntry::Notes, Notes}});
    EXPECT_EQ(form.Date, 39467.75);
    EXPECT_EQ(form.Odometer, -12);
    EXPECT_EQ(form.Volume, 0.1F);
    EXPECT_EQ(form.UnitPrice, 3.459F) << "as the six digits have it";
    EXPECT_EQ(form.TotalCost, 0.0F);
}

TEST_F(FormFields, OfATrip) {
    CDlgTrip form;
    form.Date = 39467.25;
    form.StartOdometer = 5000;
    form.EndOdometer = 5100;
    form.TotalCost = 36.5F;
    CheckTexts<CDlgTrip>(
        form, {{&CDlgTrip::Description, FirstText}, {&CDlgTrip::Category, Category}, {&CDlgTrip::Notes, Notes}});
    EXPECT_EQ(form.Date, 39467.25);
    EXPECT_EQ(form.StartOdometer, 5000);
    EXPECT_EQ(form.EndOdometer, 5100);
    EXPECT_EQ(form.TotalCost, 36.5F);
}

TEST_F(FormFields, OfAVehicle) {
    CDlgVehicle form;
    form.CurrentOdometer = -5;
    form.ExpirationDate = 39500.5;
    CheckTexts<CDlgVehicle>(form,
        {{&CDlgVehicle::Name, FirstText}, {&CDlgVehicle::LicensePlate, LicensePlate}, {&CDlgVehicle::VIN, VIN},
            {&CDlgVehicle::PolicyNumber, PolicyNumber}, {&CDlgVehicle::AgentName, AgentName},
            {&CDlgVehicle::AgentPhone, AgentPhone}, {&CDlgVehicle::Coverage, Coverage},
            {&CDlgVehicle::DealerName, DealerName}, {&CDlgVehicle::DealerPhone, DealerPhone},
            {&CDlgVehicle::DealerAddress, DealerAddress}, {&CDlgVehicle::Notes, Notes}});
    EXPECT_EQ(form.CurrentOdometer, -5);
    EXPECT_EQ(form.ExpirationDate, 39500.5);
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
