#include "../lists/dialog_device.h"

#include "forms/dlg_fuel_entry.h"
#include "forms/last_price.h"

using namespace controls;

class FuelFormTest : public DialogDevice {
protected:
    static void SetNumbers(const wchar_t* odometer, const wchar_t* price, const wchar_t* volume, const wchar_t* total) {
        Put(Odometer, odometer)();
        Put(UnitPrice, price)();
        Put(Volume, volume)();
        Put(Money, total)();
    }
    static float LastPrice() {
        float price = -1.0F;
        LoadLastPrice(&price);
        return price;
    }

    CDlgFuelEntry form;
};

TEST_F(FuelFormTest, CalculateWorksOutOneOfThree) {
    constexpr struct {
        const wchar_t *volume, *price, *total;
        UINT computed;
        const wchar_t* result;
    } Rows[] = {{L"10", L"3", L"99", Money, L"30"}, {L"10", L"0", L"30", UnitPrice, L"3"},
        {L"0", L"3", L"30", Volume, L"10"}, {L"0", L"0", L"30", UnitPrice, L"0"}, {L"-5", L"0", L"30", UnitPrice, L"0"},
        {L"0", L"-3", L"30", Volume, L"0"}, {L"3", L"0", L"10", UnitPrice, L"3.33333"},
        {L"16777217", L"1", L"0", Money, L"1.67772e+07"}};
    std::vector<Step> script;
    for (const auto& row : Rows) {
        script.emplace_back([&, this] {
            SetNumbers(L"1", row.price, row.volume, row.total);
            Menu(2)();
        });
        script.emplace_back([&] {
            EXPECT_EQ(FocusedId(), row.computed);
            EXPECT_EQ(TextOf(row.computed), row.result);
        });
    }
    script.push_back(CancelByMenu());
    EXPECT_EQ(Run(form, script), 2);
}

TEST_F(FuelFormTest, TheFirstBadNumberInThePassTakesTheFocus) {
    constexpr struct {
        const wchar_t *odometer, *price, *volume, *total;
        UINT failed;
    } Rows[] = {{L"2147483648", L"x", L"", L"", Odometer}, {L"1", L"x", L"", L"", UnitPrice},
        {L"1", L"1", L"1,000", L"", Volume}, {L"1", L"1", L"1", L"1e99", Money}};
    std::vector<Step> script;
    for (const auto& row : Rows) {
        for (const Step& end : {Done(), Menu(2)}) {
            script.emplace_back([&, end] {
                SetNumbers(row.odometer, row.price, row.volume, row.total);
                SetFocus(Item(Date));
                end();
            });
            script.emplace_back([&] {
                EXPECT_EQ(FocusedId(), row.failed);
                EXPECT_EQ(TextOf(Money), row.total) << "nothing is computed";
            });
        }
    }
    script.push_back(CancelByMenu());
    EXPECT_EQ(Run(form, script), 2);
    EXPECT_EQ(LastPrice(), -1.0F) << "no form ended with Done";
}

TEST_F(FuelFormTest, LastPriceIsOfferedToNewEntriesAndStoredByDoneAlone) {
    form.IsNew = true;
    EXPECT_EQ(Run(form, {Put(UnitPrice, L"3.459"), CancelByMenu()}), 2);
    EXPECT_EQ(LastPrice(), -1.0F);
    EXPECT_EQ(Run(form, {Put(UnitPrice, L"3.459"), Done()}), 1);
    CDlgFuelEntry existing;
    existing.UnitPrice = 2.0F;
    EXPECT_EQ(Run(existing, {[&] { EXPECT_EQ(TextOf(UnitPrice), L"2"); }, Done()}), 1);
    EXPECT_EQ(LastPrice(), 2.0F) << "the last Done wins";
}
