#include "../lists/dialog_device.h"

#include "forms/dlg_expense.h"
#include "forms/dlg_repair.h"

using namespace controls;

class PaidEntryFormTest : public DialogDevice {
protected:
    CDlgRepair repair;
    CDlgExpense expense;
};

TEST_F(PaidEntryFormTest, ABadAmountTakesTheFocusBeforeTheDescriptionIsMissed) {
    int beeps = 0;
    for (CPaidEntryForm* form : {static_cast<CPaidEntryForm*>(&repair), static_cast<CPaidEntryForm*>(&expense)}) {
        const Step look = [&, says = form == &repair] {
            EXPECT_EQ(Beeps(), beeps + 1);
            EXPECT_EQ(Shows(L"An error occured, please double check your inputs."), says);
            Press({VK_RETURN})(); // without a message this does nothing
        };
        beeps = Beeps();
        Run(*form, {Put(Money, L"1.2.3"), Done(), look, [] { EXPECT_EQ(FocusedId(), Money); }, CancelByMenu()});
    }
}

TEST_F(PaidEntryFormTest, EachHasItsOwnOrderOfFields) {
    const auto failAtTheOdometer = [&](CPaidEntryForm& form) {
        Run(form,
            {Put(FirstText, L"Wash"), Put(Vendor, L"Pit"), Put(Odometer, L""), Done(), Press({VK_RETURN}),
                CancelByMenu()});
        return form.Description + form.Vendor;
    };
    EXPECT_EQ(failAtTheOdometer(repair), L"") << "the odometer comes first";
    EXPECT_EQ(failAtTheOdometer(expense), L"WashPit");
}

TEST_F(PaidEntryFormTest, CancelWithoutASenderIsIgnoredByTheRepairFormAlone) {
    const auto send = [](UINT command) {
        return [command] {
            const HWND form = GetActiveWindow();
            SendMessageW(form, WM_COMMAND, command, 0);
            PostMessageW(form, WM_NULL, 0, 0);
        };
    };
    expense.Description = repair.Description = L"Oil";
    EXPECT_EQ(Run(repair, {send(commands::Done), send(commands::Cancel), Done()}), 1);
    EXPECT_EQ(Run(expense, {send(commands::Done), send(commands::Cancel)}), 2);
}
