#include "form_fixture.h"

#include "forms/dialog_helpers.h"
#include "forms/dlg_expense.h"
#include "forms/dlg_fuel_entry.h"
#include "forms/dlg_repair.h"
#include "forms/dlg_trip.h"
#include "forms/dlg_vehicle.h"
#include "platform/metrics.h"

using namespace controls;

class VehicleFormTest : public FormTest {
protected:
    CDlgVehicle form;
};

TEST_F(VehicleFormTest, TheYearComesBeforeTheNameThatIsRequired) {
    int beeps = 0;
    const auto empty = [&] {
        EXPECT_EQ(TextOf(Year), L"0");
        EXPECT_EQ(FocusedId(), FirstText);
        beeps = Beeps();
        Put(Year, L"")();
        Done()();
    };
    const auto yearFirst = [&] {
        EXPECT_EQ(FocusedId(), Year);
        EXPECT_EQ(Beeps(), beeps + 1);
        EXPECT_FALSE(IsOnScreen(L"A name is required."));
        Put(Year, L"1999")();
        Press({VK_RETURN})(); // Action is Done in this form
    };
    const auto nameThen = [&] {
        EXPECT_TRUE(IsOnScreen(L"A name is required."));
        EXPECT_TRUE(IsOnScreen(L"Odoledger"));
        Press({VK_RETURN})();
    };
    EXPECT_EQ(Run(form,
                  {empty, yearFirst, nameThen,
                      [&] {
                          EXPECT_EQ(FocusedId(), FirstText);
                          Put(FirstText, L"Enc\u00f3re")();
                          Done()();
                      }}),
        1);
    EXPECT_EQ(form.Name, L"Enc\u00f3re");
    EXPECT_EQ(form.Year, 1999);
}

TEST_F(VehicleFormTest, EachFieldHasItsControl) {
    const std::pair<std::wstring CDlgVehicle::*, UINT> Texts[]
        = {{&CDlgVehicle::Name, FirstText}, {&CDlgVehicle::LicensePlate, LicensePlate}, {&CDlgVehicle::VIN, VIN},
            {&CDlgVehicle::PolicyNumber, PolicyNumber}, {&CDlgVehicle::AgentName, AgentName},
            {&CDlgVehicle::AgentPhone, AgentPhone}, {&CDlgVehicle::Coverage, Coverage},
            {&CDlgVehicle::DealerName, DealerName}, {&CDlgVehicle::DealerPhone, DealerPhone},
            {&CDlgVehicle::DealerAddress, DealerAddress}, {&CDlgVehicle::Notes, Notes}};
    for (const auto& [field, id] : Texts)
        form.*field = L"T" + std::to_wstring(id);
    form.Year = 7;
    form.CurrentOdometer = 123456;
    form.ExpirationDate = 39500.5;
    EXPECT_EQ(Run(form,
                  {[&] {
                       for (const auto& [field, id] : Texts) {
                           EXPECT_EQ(TextOf(id), form.*field);
                           Put(id, L"U" + std::to_wstring(id))();
                       }
                       EXPECT_EQ(TextOf(Year), L"7");
                       EXPECT_EQ(TextOf(Odometer), L"123456");
                       Put(Odometer, L"-5")();
                   },
                      Done()}),
        1);
    for (const auto& [field, id] : Texts)
        EXPECT_EQ(form.*field, L"U" + std::to_wstring(id));
    EXPECT_EQ(form.CurrentOdometer, -5);
    EXPECT_EQ(form.ExpirationDate, 39500.5);
}

TEST_F(VehicleFormTest, DownWalksTheFormsFromTopToBottom) {
    const auto walk = [this](CFormFrame& walked, const std::vector<UINT>& order) {
        std::vector<Step> script;
        std::vector<UINT> seen;
        for (std::size_t index = 0; index < order.size(); ++index) {
            script.emplace_back([&, this] {
                seen.push_back(FocusedId());
                RECT client;
                RECT place;
                GetWindowRect(Form(), &client);
                GetWindowRect(GetFocus(), &place);
                EXPECT_GE(place.top, client.top) << FocusedId() << " is scrolled into view";
                EXPECT_LE(place.bottom, client.bottom) << FocusedId();
                Press({VK_DOWN})();
            });
        }
        script.emplace_back([&, this] {
            EXPECT_EQ(FocusedId(), order.front()) << "from the last to the first";
            SendMessageW(Form(), WM_COMMAND, commands::Cancel, reinterpret_cast<LPARAM>(Form()));
            PostMessageW(Form(), WM_NULL, 0, 0);
        });
        Run(walked, script);
        EXPECT_EQ(seen, order);
    };
    walk(form,
        {FirstText, Year, Odometer, LicensePlate, VIN, AgentName, AgentPhone, PolicyNumber, Coverage, Date, DealerName,
            DealerPhone, DealerAddress, Notes});
    CDlgFuelEntry fuel;
    walk(fuel, {Date, Odometer, Volume, UnitPrice, Money, FirstText, Notes});
    CDlgRepair repair;
    walk(repair, {Date, Odometer, FirstText, Vendor, Money, Notes});
    CDlgExpense expense;
    walk(expense, {Date, Odometer, FirstText, Vendor, Money, Notes});
    CDlgTrip trip;
    walk(trip, {Date, FirstText, StartOdometer, EndOdometer, ElapsedDistance, TripMileageRate, Money, Category, Notes});
}

TEST_F(VehicleFormTest, ControlsFollowTheScreensWidth) {
    LONG labelWidth = 0;
    const auto check = [&](int width) {
        RECT client;
        RECT place;
        GetClientRect(Form(), &client);
        const LONG edge = GetSystemMetrics(SM_CXEDGE);
        for (const UINT id : {FirstText, Year, Date, Notes}) {
            GetWindowRect(Item(id), &place);
            EXPECT_EQ(place.left, 2 * edge) << width;
            EXPECT_EQ(place.right - place.left, client.right - 4 * edge) << width;
        }
        GetWindowRect(Item(FirstLabel), &place);
        labelWidth = labelWidth == 0 ? place.right - place.left : labelWidth;
        EXPECT_EQ(place.right - place.left, labelWidth) << "labels stay as the template has them";
        EXPECT_EQ(SendMessageW(Item(FirstLabel), WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(LabelFont));
    };
    const auto resize = [this](int width) {
        device::InputEvent event;
        event.kind = device::InputEvent::Kind::Resize;
        event.x = width;
        event.y = 220;
        host.events.push_back(event);
    };
    EXPECT_EQ(Run(form,
                  {[&] {
                       check(320);
                       resize(176);
                   },
                      [&] {
                          check(176);
                          resize(640);
                      },
                      [&] { check(640); }, Focus(Date), Press({VK_TBACK})}),
        2);
}
