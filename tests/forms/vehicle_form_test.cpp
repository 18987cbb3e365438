#include "../lists/dialog_device.h"

#include "forms/dialog_helpers.h"
#include "forms/dlg_expense.h"
#include "forms/dlg_fuel_entry.h"
#include "forms/dlg_trip.h"
#include "forms/dlg_vehicle.h"

using namespace controls;

class VehicleFormTest : public DialogDevice {
protected:
    static RECT PlaceOf(HWND window) {
        RECT place;
        GetWindowRect(window, &place);
        return place;
    }

    CDlgVehicle form;
};

TEST_F(VehicleFormTest, TheYearComesBeforeTheNameThatIsRequired) {
    const auto yearFirst = [&] {
        EXPECT_EQ(FocusedId(), Year);
        Put(Year, L"1999")();
        Press({VK_RETURN})(); // Action is Done in this form
    };
    const auto nameThen = [&] {
        EXPECT_EQ(Message(), L"A name is required.");
        Press({VK_RETURN})();
    };
    EXPECT_EQ(Run(form,
                  {Put(Year, L""), Done(), yearFirst, nameThen, [] { EXPECT_EQ(FocusedId(), FirstText); },
                      Put(FirstText, L"Enc\u00f3re"), Done()}),
        1);
    EXPECT_EQ(form.Name, L"Enc\u00f3re");
    EXPECT_EQ(form.Year, 1999);
}

TEST_F(VehicleFormTest, DownWalksTheFormsFromTopToBottom) {
    const auto walk = [this](CFormFrame& walked, const std::vector<UINT>& order) {
        std::vector<Step> script;
        std::vector<UINT> seen;
        for (std::size_t index = 0; index < order.size(); ++index) {
            script.emplace_back([&, this] {
                seen.push_back(FocusedId());
                Press({VK_DOWN})();
            });
        }
        script.emplace_back([&] {
            EXPECT_EQ(FocusedId(), order.front()) << "from the last to the first";
            Close(GetActiveWindow(), 2);
        });
        Run(walked, script);
        EXPECT_EQ(seen, order);
    };
    walk(form,
        {FirstText, Year, Odometer, LicensePlate, VIN, AgentName, AgentPhone, PolicyNumber, Coverage, Date, DealerName,
            DealerPhone, DealerAddress, Notes});
    CDlgFuelEntry fuel;
    walk(fuel, {Date, Odometer, Volume, UnitPrice, Money, FirstText, Notes});
    CDlgExpense expense;
    walk(expense, {Date, Odometer, FirstText, Vendor, Money, Notes});
    CDlgTrip trip;
    walk(trip, {Date, FirstText, StartOdometer, EndOdometer, ElapsedDistance, TripMileageRate, Money, Category, Notes});
}

TEST_F(VehicleFormTest, ControlsFollowTheScreensWidth) {
    std::vector<LONG> labels;
    const auto check = [&](int width) {
        return [&, width] {
            RECT client;
            GetClientRect(GetActiveWindow(), &client);
            const LONG edge = GetSystemMetrics(SM_CXEDGE);
            for (const UINT id : {FirstText, Year, Date, Notes}) {
                const RECT place = PlaceOf(Item(id));
                EXPECT_EQ(place.left, 2 * edge) << width;
                EXPECT_EQ(place.right - place.left, client.right - 4 * edge) << width;
            }
            labels.push_back(PlaceOf(Item(FirstLabel)).right);
            EXPECT_EQ(labels.back(), labels.front()) << "labels stay as the template has them";
        };
    };
    EXPECT_EQ(Run(form,
                  {check(320), [this] { Host.Resize(176, 220); }, check(176), [this] { Host.Resize(640, 220); },
                      check(640), Focus(Date), Press({VK_TBACK})}),
        2);
    device::SetScreenSize({320, 480});
}
