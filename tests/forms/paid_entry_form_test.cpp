#include "../lists/dialog_device.h"

#include "forms/dlg_expense.h"
#include "forms/dlg_repair.h"

using namespace controls;

class PaidEntryFormTest : public DialogDevice {
protected:
    CDlgRepair repair;
    CDlgExpense expense;
};

TEST_F(PaidEntryFormTest, NumbersAreLookedAtBeforeTheDescription) {
    constexpr struct {
        const wchar_t *odometer, *amount, *description;
        UINT failed; ///< FirstText: the rule
    } Rows[] = {{L"", L"", L"", Odometer}, {L"4294967296", L"1", L"Oil", Odometer}, {L"-5", L"1.2.3", L"Oil", Money},
        {L"0", L"0", L"", FirstText}};
    const auto check = [&](CPaidEntryForm& form, bool says) {
        std::vector<Step> script;
        int beeps = 0;
        for (const auto& row : Rows) {
            const bool rule = row.failed == FirstText;
            script.emplace_back([&, this] {
                Put(Odometer, row.odometer)();
                Put(Money, row.amount)();
                Put(FirstText, row.description)();
                SetFocus(Item(Date));
                beeps = Beeps();
                Done()();
            });
            script.emplace_back([&, rule, says, this] {
                EXPECT_EQ(Beeps(), beeps + (rule ? 0 : 1));
                EXPECT_EQ(Shows(L"An error occured, please double check your inputs."), says && !rule) << row.odometer;
                EXPECT_EQ(Shows(L"A description is required."), rule);
                Press({VK_TSOFT1})(); // without a message this is another Done, which fails in the same way
            });
            script.emplace_back([&] { EXPECT_EQ(FocusedId(), row.failed); });
        }
        script.push_back(CancelByMenu());
        EXPECT_EQ(Run(form, script), 2);
    };
    check(repair, true);
    check(expense, false);
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

TEST_F(PaidEntryFormTest, FieldsComeBackAndLabelsDiffer) {
    const std::wstring description = std::wstring(1000, L'\u00e9') + L"e\u0301 \U0001F527 ";
    const auto check = [&](CPaidEntryForm& form, const std::vector<std::wstring>& labels) {
        form.Date = 39467.75;
        form.Odometer = 2147483647;
        form.Description = description;
        form.Vendor = L"\u0141\u00f3d\u017a";
        form.Notes = L"one\ntwo";
        const auto look = [&] {
            for (UINT number = 0; number < labels.size(); ++number)
                EXPECT_EQ(TextOf(FirstLabel + number), labels[number]);
        };
        EXPECT_EQ(Run(form, {look, Put(Money, L"-12.345678"), Done()}), 1);
        EXPECT_EQ(form.Date, 39467.75);
        EXPECT_EQ(form.Odometer, 2147483647);
        EXPECT_EQ(form.Amount, -12.345678F);
        EXPECT_EQ(form.Description, description);
        EXPECT_EQ(form.Vendor, L"\u0141\u00f3d\u017a");
        EXPECT_EQ(form.Notes, L"one\ntwo");
    };
    check(repair, {L"Date:", L"Odometer:", L"Description:", L"Location/Vendor:", L"Amount paid:", L"Notes"});
    check(expense, {L"Date:", L"Odometer:", L"Description:", L"Vendor:", L"Amt. paid:", L"Notes:"});
}
