#include "form_fixture.h"

#include "forms/dlg_trip.h"
#include "shell/common/app_settings.h"

#include <cmath>

using namespace controls;

class TripFormTest : public FormTest {
protected:
    TripFormTest() {
        form.Description = L"Visit";
        form.StartOdometer = 5000;
        form.EndOdometer = 5100;
    }
    ~TripFormTest() override { theSettings.MileageRate = CAppSettings().MileageRate; }

    /// Types over a field and walks on.
    Step Change(UINT id, std::wstring text) {
        return [this, id, text] {
            SetFocus(Item(id));
            Put(id, text)();
            Press({VK_DOWN})();
        };
    }
    Step Expect(const wchar_t* start, const wchar_t* end, const wchar_t* elapsed) {
        return [=, this] {
            EXPECT_EQ(TextOf(StartOdometer), start);
            EXPECT_EQ(TextOf(EndOdometer), end);
            EXPECT_EQ(TextOf(ElapsedDistance), elapsed);
        };
    }

    CDlgTrip form;
};

TEST_F(TripFormTest, TheLastFieldLeftDecides) {
    struct Row {
        UINT left;
        const wchar_t *start, *end, *elapsed; ///< before
        const wchar_t *newEnd, *newElapsed;
    };
    constexpr Row Rows[] = {
        {EndOdometer, L"5000", L"5250", L"100", L"5250", L"250"},
        {ElapsedDistance, L"5000", L"5250", L"300", L"5300", L"300"},
        {StartOdometer, L"5100", L"5300", L"300", L"5300", L"200"},
        {EndOdometer, L"5000", L"4000", L"100", L"4000", L"0"},
        {EndOdometer, L"5000", L"5000", L"100", L"5000", L"0"},
        {ElapsedDistance, L"5000", L"9", L"0", L"5000", L"0"},
        {ElapsedDistance, L"5000", L"9", L"-7", L"5000", L"-7"},
        {ElapsedDistance, L"2147483647", L"0", L"1", L"2147483647", L"1"},
        {ElapsedDistance, L"2147483600", L"0", L"2147483647", L"2147483647", L"2147483647"},
        {ElapsedDistance, L"-2147483648", L"0", L"2147483647", L"-1", L"2147483647"},
        {EndOdometer, L"-2147483648", L"2147483647", L"0", L"2147483647", L"2147483647"},
        {StartOdometer, L"2147483647", L"-2147483648", L"5", L"-2147483648", L"0"},
    };
    std::vector<Step> script;
    for (const Row& row : Rows) {
        script.emplace_back([&, this] {
            SetFocus(Item(row.left)); // an update of the field before runs first
            Put(StartOdometer, row.start)();
            Put(EndOdometer, row.end)();
            Put(ElapsedDistance, row.elapsed)();
            Press({VK_DOWN})();
        });
        script.push_back(Expect(row.start, row.newEnd, row.newElapsed));
    }
    script.push_back(CancelByMenu());
    EXPECT_EQ(Run(form, script), 2);
}

TEST_F(TripFormTest, OpensWithTheDistanceBetweenTheReadings) {
    constexpr struct {
        LONG start, end;
        const wchar_t* elapsed;
    } Rows[] = {{5000, 5100, L"100"}, {100, 50, L"-50"}, {2147483647, -2147483647 - 1, L"-2147483648"},
        {-2, 2147483647, L"2147483647"}};
    for (const auto& row : Rows) {
        CDlgTrip each;
        each.StartOdometer = row.start;
        each.EndOdometer = row.end;
        Run(each,
            {Expect(std::to_wstring(row.start).c_str(), std::to_wstring(row.end).c_str(), row.elapsed),
                [&] { EXPECT_EQ(TextOf(Money), L"0") << "not worked out by itself"; }, CancelByMenu()});
    }
}

TEST_F(TripFormTest, AFailingFieldWinsTheFocus) {
    int beeps = 0;
    const auto leaves = [&](UINT left, UINT bad, UINT failed) {
        return std::vector<Step>{[=, this, &beeps] {
                                     SetFocus(Item(Date));
                                     SetFocus(Item(left));
                                     Put(bad, L"")();
                                     beeps = Beeps();
                                     Press({VK_DOWN})();
                                 },
            [=, this, &beeps] {
                EXPECT_EQ(FocusedId(), failed) << left << " with a bad " << bad;
                EXPECT_EQ(Beeps(), beeps + (failed == bad ? 1 : 0));
                Put(bad, L"7")();
            }};
    };
    std::vector<Step> script;
    for (const auto& [left, bad, failed] : {std::array{StartOdometer, Money, Money},
             {StartOdometer, StartOdometer, StartOdometer}, {EndOdometer, StartOdometer, StartOdometer},
             {ElapsedDistance, EndOdometer, EndOdometer}, {FirstText, Money, StartOdometer}}) {
        for (const Step& step : leaves(left, bad, failed))
            script.push_back(step);
    }
    script.push_back(CancelByMenu());
    EXPECT_EQ(Run(form, script), 2);
}

TEST_F(TripFormTest, ABadDistanceWaitsBehindAnotherScreen) {
    EXPECT_EQ(Run(form,
                  {Focus(EndOdometer), Put(EndOdometer, L""), Menu(1),
                      [&] {
                          EXPECT_NE(GetActiveWindow(), Form()) << "the categories are open all the same";
                          Menu(4)();
                      },
                      [&] {
                          EXPECT_EQ(GetActiveWindow(), Form());
                          EXPECT_EQ(FocusedId(), EndOdometer);
                          CancelByMenu()();
                      }}),
        2);
}

TEST_F(TripFormTest, CalcTotalCostTakesTheDistanceAsItStands) {
    theSettings.MileageRate = 0.36F;
    EXPECT_EQ(Run(form,
                  {Focus(ElapsedDistance), Put(ElapsedDistance, L"250"), Menu(2),
                      [&] {
                          EXPECT_EQ(TextOf(Money), L"90");
                          EXPECT_EQ(FocusedId(), Money);
                          EXPECT_EQ(Selected(), L"90");
                          EXPECT_EQ(TextOf(EndOdometer), L"5250") << "the focus has left the distance";
                          Put(EndOdometer, L"x")();
                      },
                      Menu(2),
                      [&] {
                          EXPECT_EQ(FocusedId(), EndOdometer);
                          Put(EndOdometer, L"5250")();
                      },
                      Done()}),
        1);
    EXPECT_EQ(form.TotalCost, 90.0F);
    EXPECT_EQ(form.EndOdometer, 5250);
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
    Set("HANDSET_LOCALE", "de_DE");
    EXPECT_EQ(
        Run(form,
            {[&] {
                 EXPECT_EQ(TextOf(TripMileageRate), L"0,123457");
                 SetFocus(Item(TripMileageRate));
                 Type(L"9")();
             },
                Change(StartOdometer, L"1"), [&] { EXPECT_EQ(theSettings.MileageRate, 0.123457F); }, CancelByMenu()}),
        2);
}

TEST_F(TripFormTest, DoneLooksAtTheDescriptionThenAtTheReadings) {
    const auto reads = [this](const wchar_t* text) {
        return [this, text] {
            EXPECT_TRUE(IsOnScreen(text));
            EXPECT_TRUE(IsOnScreen(L"Entry Properties"));
            Press({VK_RETURN})();
        };
    };
    EXPECT_EQ(Run(form,
                  {Put(FirstText, L""), Put(EndOdometer, L"4999"), Focus(EndOdometer), Done(),
                      reads(L"A description is required."),
                      [&] {
                          EXPECT_EQ(FocusedId(), FirstText);
                          Put(FirstText, L"x")();
                          SetFocus(Item(Category));
                          Done()();
                      },
                      reads(L"End odometer must be greater than start odometer."),
                      [&] {
                          EXPECT_EQ(FocusedId(), Category) << "the focus does not move";
                          Put(EndOdometer, L"5000")();
                          Put(ElapsedDistance, L"300")();
                          Done()();
                      }}),
        1);
    EXPECT_EQ(form.EndOdometer, 5000) << "equal readings pass, and Done works nothing out";
    EXPECT_EQ(form.Category, L"");
}

TEST_F(TripFormTest, FieldsComeBackAsTheyWere) {
    form.Date = 39467.25;
    form.TotalCost = 36.5F;
    form.Category = L"Gesch\u00e4ft, in keiner Liste";
    form.Notes = L"a\nb";
    EXPECT_EQ(Run(form, {Focus(ElapsedDistance), Put(ElapsedDistance, L"1"), Done()}), 1);
    EXPECT_EQ(form.Date, 39467.25);
    EXPECT_EQ(form.Description, L"Visit");
    EXPECT_EQ(form.StartOdometer, 5000);
    EXPECT_EQ(form.EndOdometer, 5100) << "a distance counts only once the focus has left it";
    EXPECT_EQ(form.TotalCost, 36.5F);
    EXPECT_EQ(form.Category, L"Gesch\u00e4ft, in keiner Liste");
    EXPECT_EQ(form.Notes, L"a\nb");
}
