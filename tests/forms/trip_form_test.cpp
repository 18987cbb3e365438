#include "../lists/dialog_device.h"

#include "forms/dlg_trip.h"

using namespace controls;

class TripFormTest : public DialogDevice {
protected:
    TripFormTest() {
        form.Description = L"Visit";
        form.StartOdometer = 5000;
        form.EndOdometer = 5100;
    }
    ~TripFormTest() override { theSettings.MileageRate = CAppSettings().MileageRate; }

    static Step Expect(const std::wstring& end, const std::wstring& elapsed) {
        return [=] {
            EXPECT_EQ(TextOf(EndOdometer), end);
            EXPECT_EQ(TextOf(ElapsedDistance), elapsed);
        };
    }

    CDlgTrip form;
};

TEST_F(TripFormTest, TheLastFieldLeftDecides) {
    constexpr struct {
        UINT left;
        const wchar_t *start, *end, *elapsed; ///< before
        const wchar_t *newEnd, *newElapsed;
    } Rows[] = {{EndOdometer, L"5000", L"5250", L"100", L"5250", L"250"},
        {ElapsedDistance, L"5000", L"5250", L"300", L"5300", L"300"},
        {StartOdometer, L"5100", L"5300", L"300", L"5300", L"200"},
        {EndOdometer, L"5000", L"4000", L"100", L"4000", L"0"}, {ElapsedDistance, L"5000", L"9", L"-7", L"5000", L"-7"},
        {ElapsedDistance, L"2147483600", L"0", L"2147483647", L"2147483647", L"2147483647"},
        {ElapsedDistance, L"-2147483648", L"0", L"2147483647", L"-1", L"2147483647"},
        {EndOdometer, L"-2147483648", L"2147483647", L"0", L"2147483647", L"2147483647"},
        {StartOdometer, L"2147483647", L"-2147483648", L"5", L"-2147483648", L"0"}};
    std::vector<Step> script;
    for (const auto& row : Rows) {
        script.emplace_back([&, this] {
            SetFocus(Item(row.left)); // an update of the field before runs first
            Put(StartOdometer, row.start)();
            Put(EndOdometer, row.end)();
            Put(ElapsedDistance, row.elapsed)();
            Press({VK_DOWN})();
        });
        script.push_back(Expect(row.newEnd, row.newElapsed));
    }
    script.push_back(CancelByMenu());
    EXPECT_EQ(Run(form, script), 2);
}

TEST_F(TripFormTest, OpensWithTheDistanceBetweenTheReadings) {
    for (const auto& [start, end, elapsed] :
        {std::tuple{100, 50, L"-50"}, {2147483647, -2147483647 - 1, L"-2147483648"}, {-2, 2147483647, L"2147483647"}}) {
        CDlgTrip each;
        each.StartOdometer = start;
        each.EndOdometer = end;
        Run(each, {Expect(std::to_wstring(end), elapsed), CancelByMenu()});
    }
}

TEST_F(TripFormTest, AFailingFieldWinsTheFocus) {
    int beeps = 0;
    std::vector<Step> script;
    for (const auto& [left, bad, failed] :
        {std::array{StartOdometer, Money, Money}, {StartOdometer, StartOdometer, StartOdometer},
            {ElapsedDistance, EndOdometer, EndOdometer}, {FirstText, Money, StartOdometer}}) {
        script.emplace_back([&, leave = left, put = bad] {
            SetFocus(Item(Date));
            SetFocus(Item(leave));
            Put(put, L"")();
            beeps = Beeps();
            Press({VK_DOWN})();
        });
        script.emplace_back([&, put = bad, expected = failed] {
            EXPECT_EQ(FocusedId(), expected) << put;
            EXPECT_EQ(Beeps(), beeps + (expected == put ? 1 : 0));
            Put(put, L"7")();
        });
    }
    script.push_back(CancelByMenu());
    EXPECT_EQ(Run(form, script), 2);
}

TEST_F(TripFormTest, ATotalBeyondFloatsIsNotStored) {
    theSettings.MileageRate = 3e38F;
    EXPECT_EQ(Run(form, {Menu(2), Focus(Date), Done(), [&] { EXPECT_EQ(FocusedId(), Money); }, CancelByMenu()}), 2);
}

TEST_F(TripFormTest, SavePassesRoundTheRateOfTheSettings) {
    constexpr float Exact = 0.123456789F;
    theSettings.MileageRate = Exact;
    Run(form, {CancelByMenu()});
    EXPECT_EQ(theSettings.MileageRate, Exact) << "no save pass ran";
    UseLocale("de_DE");
    Run(form,
        {[] { EXPECT_EQ(TextOf(TripMileageRate), L"0,123457"); }, Focus(StartOdometer), Press({VK_DOWN}),
            [] { EXPECT_EQ(theSettings.MileageRate, 0.123457F); }, CancelByMenu()});
}
