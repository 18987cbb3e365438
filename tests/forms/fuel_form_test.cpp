#include "../lists/dialog_device.h"

#include "forms/dlg_fuel_entry.h"
#include "forms/last_price.h"
#include "platform/registry.h"
#include "platform/system/console_registry.h"

#include <cstring>
#include <limits>

using namespace controls;

class FuelFormTest : public DialogDevice {
protected:
    ~FuelFormTest() override { theSettings.UnitVolume = 0; }

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

TEST_F(FuelFormTest, AStoredPriceThatIsNoNumberIsPassedOver) {
    const float notANumber = std::numeric_limits<float>::quiet_NaN();
    for (const auto& [type, size] : {std::pair{REG_BINARY, 4U}, {REG_BINARY, 3U}, {REG_BINARY, 5U}, {REG_DWORD, 4U}}) {
        device::RegistryValue value{type, std::vector<BYTE>(5)};
        std::memcpy(value.data.data(), &notANumber, sizeof notANumber);
        value.data.resize(size);
        ASSERT_EQ(device::SetRegistryValue(CAppSettings::RegistryKey, L"LastPrice", value), ERROR_SUCCESS);
        EXPECT_EQ(LastPrice(), -1.0F);
    }
}

TEST_F(FuelFormTest, UnitsAndNumbersAreThoseOfTheUser) {
    UseLocale("de_DE");
    theSettings.UnitVolume = 2;
    form.UnitPrice = 3.459F;
    EXPECT_EQ(Run(form,
                  {[&] {
                       EXPECT_EQ(TextOf(VolumeLabel), L"Num litres:");
                       EXPECT_EQ(TextOf(UnitPriceLabel), L"Cost per litre:");
                       EXPECT_EQ(TextOf(UnitPrice), L"3,459");
                       SetNumbers(L"1", L"3,459", L"2,5", L"1.5");
                   },
                      Done()}),
        1);
    EXPECT_EQ(form.Volume, 2.5F);
    EXPECT_EQ(form.TotalCost, 1.5F) << "a point is taken as well";
}
