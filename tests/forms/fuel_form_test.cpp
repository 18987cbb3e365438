#include "form_fixture.h"

#include "forms/dlg_fuel_entry.h"
#include "forms/last_price.h"
#include "platform/registry.h"
#include "shell/common/app_settings.h"

#include <cmath>
#include <cstring>
#include <limits>

using namespace controls;

class FuelFormTest : public FormTest {
protected:
    ~FuelFormTest() override { theSettings.UnitVolume = 0; }

    void SetNumbers(const wchar_t* odometer, const wchar_t* price, const wchar_t* volume, const wchar_t* total) {
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
    struct Row {
        const wchar_t *volume, *price, *total;
        UINT computed;
        const wchar_t* result;
    };
    constexpr Row Rows[] = {
        {L"10", L"3", L"0", Money, L"30"},
        {L"10", L"0", L"30", UnitPrice, L"3"},
        {L"0", L"3", L"30", Volume, L"10"},
        {L"10", L"3", L"99", Money, L"30"},
        {L"0", L"0", L"0", Money, L"0"},
        {L"0", L"0", L"30", UnitPrice, L"0"},
        {L"-5", L"0", L"30", UnitPrice, L"0"},
        {L"0", L"-3", L"30", Volume, L"0"},
        {L"3", L"0", L"10", UnitPrice, L"3.33333"},
        {L"-2", L"3", L"0", Money, L"-6"},
        {L"16777217", L"1", L"0", Money, L"1.67772e+07"},
    };
    std::vector<Step> script;
    for (const Row& row : Rows) {
        script.emplace_back([&, this] {
            SetNumbers(L"1", row.price, row.volume, row.total);
            Calculate()();
        });
        script.emplace_back([&, this] {
            EXPECT_EQ(FocusedId(), row.computed);
            EXPECT_EQ(TextOf(row.computed), row.result);
            DWORD end = 0;
            SendMessageW(Item(row.computed), EM_GETSEL, 0, reinterpret_cast<LPARAM>(&end));
            EXPECT_EQ(end, TextOf(row.computed).size()) << "typing replaces the result";
        });
    }
    script.push_back(CancelByMenu());
    EXPECT_EQ(Run(form, script), 2);
}

TEST_F(FuelFormTest, TheFirstBadNumberInThePassTakesTheFocus) {
    struct Row {
        const wchar_t *odometer, *price, *volume, *total;
        UINT failed;
    };
    constexpr Row Rows[] = {
        {L"", L"", L"", L"", Odometer},
        {L"2147483648", L"1", L"1", L"1", Odometer},
        {L"1", L"x", L"", L"", UnitPrice},
        {L"1", L"1", L"1,000", L"", Volume},
        {L"1", L"1", L"1", L"", Money},
        {L"1", L"1", L"1", L"1e99", Money},
    };
    std::vector<Step> script;
    int beeps = 0;
    for (const Row& row : Rows) {
        for (const Step& end : {Done(), Calculate()}) {
            script.emplace_back([&, end, this] {
                SetNumbers(row.odometer, row.price, row.volume, row.total);
                SetFocus(Item(Date));
                beeps = Beeps();
                end();
            });
            script.emplace_back([&, this] {
                EXPECT_EQ(FocusedId(), row.failed);
                EXPECT_EQ(Beeps(), beeps + 1);
                EXPECT_EQ(TextOf(Money), row.total) << "nothing is computed";
            });
        }
    }
    script.push_back(CancelByMenu());
    EXPECT_EQ(Run(form, script), 2);
    EXPECT_EQ(LastPrice(), -1.0F) << "no form ended with Done";
}

TEST_F(FuelFormTest, FieldsComeBackAsTheyWere) {
    form.Date = 39467.75; // a time of day
    form.Odometer = -12;
    form.Volume = 0.1F;
    form.UnitPrice = 3.4590001F;
    form.Vendor = L"\u017b\u00f3\u0142w \U0001F697";
    form.Notes = std::wstring(70000, L'\u00e9') + L"\nend";
    const std::wstring notes = form.Notes;
    EXPECT_EQ(Run(form, {[&] { EXPECT_EQ(FocusedId(), Date); }, Done()}), 1);
    EXPECT_EQ(form.Date, 39467.75);
    EXPECT_EQ(form.Odometer, -12);
    EXPECT_EQ(form.Volume, 0.1F);
    EXPECT_EQ(form.UnitPrice, 3.459F) << "as the six digits have it";
    EXPECT_EQ(form.TotalCost, 0.0F);
    EXPECT_EQ(form.Vendor, L"\u017b\u00f3\u0142w \U0001F697");
    EXPECT_EQ(form.Notes, notes);
}

TEST_F(FuelFormTest, DatesBeyondTheCalendarAndLongNumbers) {
    form.Date = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Run(form, {Put(Money, L"1.50000000000000000000000000000x"), Done()}), 1);
    EXPECT_TRUE(std::isfinite(form.Date)) << "the picker always holds a date";
    EXPECT_EQ(form.TotalCost, 1.5F) << "31 characters are read";
}

TEST_F(FuelFormTest, ActionEndsNothing) {
    EXPECT_EQ(
        Run(form,
            {Press({VK_RETURN}), [&] { EXPECT_EQ(SendMessageW(Item(FirstText), WM_GETDLGCODE, 0, 0), DLGC_WANTTAB); },
                Focus(Money), Press({VK_RETURN}), [&] { SendMessageW(Form(), WM_COMMAND, commands::Done, 0); },
                Done()}),
        1);
}

TEST_F(FuelFormTest, BackDeletesInAnEditAndCancelsOnThePicker) {
    form.Vendor = L"Shop";
    EXPECT_EQ(Run(form,
                  {[&] {
                       SetFocus(Item(FirstText));
                       SendMessageW(Item(FirstText), EM_SETSEL, 4, 4);
                   },
                      Press({VK_TBACK, VK_TBACK}),
                      [&] {
                          EXPECT_EQ(TextOf(FirstText), L"Sh");
                          SetFocus(Item(Date));
                          Half(device::InputEvent::Kind::KeyDown, VK_TBACK);
                      },
                      [&] { Half(device::InputEvent::Kind::KeyUp, VK_TBACK); }}),
        2);
    EXPECT_EQ(form.Vendor, L"Shop");
}

TEST_F(FuelFormTest, LastPriceIsOfferedToNewEntriesAndStoredByDoneAlone) {
    form.UnitPrice = 1.25F;
    form.IsNew = true;
    EXPECT_EQ(Run(form,
                  {[&] { EXPECT_EQ(TextOf(UnitPrice), L"1.25") << "nothing stored"; }, Put(UnitPrice, L"3.459"),
                      CancelByMenu()}),
        2);
    EXPECT_EQ(LastPrice(), -1.0F);
    EXPECT_EQ(Run(form, {Put(UnitPrice, L"3.459"), Done()}), 1);
    EXPECT_EQ(LastPrice(), 3.459F);

    CDlgFuelEntry next;
    next.IsNew = true;
    EXPECT_EQ(Run(next, {[&] { EXPECT_EQ(TextOf(UnitPrice), L"3.459"); }, CancelByMenu()}), 2);
    CDlgFuelEntry existing;
    existing.UnitPrice = 2.0F;
    EXPECT_EQ(Run(existing, {[&] { EXPECT_EQ(TextOf(UnitPrice), L"2"); }, Done()}), 1);
    EXPECT_EQ(LastPrice(), 2.0F) << "the last Done wins";
}

TEST_F(FuelFormTest, AStoredPriceThatIsNoNumberIsPassedOver) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(
                  HKEY_CURRENT_USER, CAppSettings::RegistryKey, 0, nullptr, 0, KEY_READ_WRITE, nullptr, &key, nullptr),
        0);
    const float notANumber = std::numeric_limits<float>::quiet_NaN();
    BYTE bytes[5] = {};
    std::memcpy(bytes, &notANumber, sizeof notANumber);
    for (const auto& [type, size] : {std::pair{REG_BINARY, 4U}, {REG_BINARY, 3U}, {REG_BINARY, 5U}, {REG_DWORD, 4U}}) {
        RegSetValueExW(key, L"LastPrice", 0, type, bytes, size);
        EXPECT_EQ(LastPrice(), -1.0F);
    }
    RegCloseKey(key);
}

TEST_F(FuelFormTest, TheVolumeUnitNamesItsLabels) {
    constexpr struct {
        int unit;
        const wchar_t *volume, *price;
    } Rows[] = {{0, L"Num gallons:", L"Cost per gallon:"}, {1, L"Num gallons:", L"Cost per gallon:"},
        {2, L"Num litres:", L"Cost per litre:"}, {3, L"#", L"#"}, {-1, L"#", L"#"}};
    for (const auto& row : Rows) {
        theSettings.UnitVolume = row.unit;
        CDlgFuelEntry each;
        Run(each,
            {[&] {
                 EXPECT_EQ(TextOf(VolumeLabel), row.volume);
                 EXPECT_EQ(TextOf(UnitPriceLabel), row.price);
             },
                CancelByMenu()});
    }
}

TEST_F(FuelFormTest, DecimalComma) {
    Set("HANDSET_LOCALE", "de_DE");
    form.UnitPrice = 3.459F;
    EXPECT_EQ(Run(form,
                  {[&] {
                       EXPECT_EQ(TextOf(UnitPrice), L"3,459");
                       Put(Volume, L"2,5")();
                       Put(Money, L"1.5")();
                   },
                      Done()}),
        1);
    EXPECT_EQ(form.UnitPrice, 3.459F);
    EXPECT_EQ(form.Volume, 2.5F);
    EXPECT_EQ(form.TotalCost, 1.5F) << "a point is taken as well";
}
