#include "reminder_fixture.h"
#include "reminders/edit_reminder.h"

using namespace controls;

namespace {

class EditReminderTest : public ReminderTest {
protected:
    int Edit(CNotification& reminder, const std::vector<Step>& steps) {
        return static_cast<int>(Run([&] { return EditReminder(&reminder); }, steps));
    }
};

TEST_F(EditReminderTest, ANewOneStartsAheadOfTheVehicle) {
    const double in60Days = Utc("2026-04-30T10:00:00Z");
    SetZone("UTC+12");
    SetClock("2026-03-01T10:00:00.999Z");
    for (const auto& [current, ahead] : {std::pair<LONG, LONG>{12500, 15500}, {Lowest, Lowest + 3000},
             {Highest - 3000, Highest}, {Highest - 2999, Highest}, {Highest, Highest}}) {
        theSettings.ActiveVehicleOdometer = current;
        CNotification reminder;
        const auto check = [&, expected = ahead] {
            EXPECT_EQ(TextOf(Odometer), std::to_wstring(expected));
            EXPECT_EQ(TextOf(Date), L"4/30/2026");
            EXPECT_EQ(FocusedId(), FirstText);
        };
        EXPECT_EQ(Edit(reminder, {check, Put(FirstText, L"never stored"), Press({VK_TSOFT2})}), 0);
        EXPECT_EQ(reminder.GetDate(), in60Days);
        EXPECT_EQ(reminder.GetOdometer(), ahead);
        EXPECT_EQ(reminder.GetVehicleID(), Car.GetRefID());
        EXPECT_STREQ(reminder.GetName(), L"");
    }
    EXPECT_TRUE(Stored().empty());
}

TEST_F(EditReminderTest, OneLeftAloneIsNotStoredAgain) {
    const std::wstring names[] = {L" ", std::wstring(1000, L'x'), L"\U0001F6DE Reifen \u00e4ndern \u6c7d\u8eca"};
    const double dates[] = {-109205.0, -1.75, FarDate + 86399.0 / 86400};
    const LONG odometers[] = {0, Lowest, Highest};
    for (int index = 0; index < 3; ++index)
        Remind(names[index], odometers[index], dates[index]);
    const auto reminders = LoadAll<CNotification>(Car.GetRefID());
    for (int index = 0; index < 3; ++index) {
        CNotification& reminder = *reminders->Get(index);
        EXPECT_EQ(Edit(reminder, {Done()}), 0) << index;
        EXPECT_FALSE(reminder.IsDirty()) << index;
        EXPECT_EQ(reminder.GetDate(), dates[index]);
        EXPECT_EQ(reminder.GetOdometer(), odometers[index]);
        EXPECT_EQ(reminder.GetName(), names[index]);
    }
}

TEST_F(EditReminderTest, KeepsTheTimeOfDayOfAnotherDay) {
    Remind(L"Oil", 5, Utc("2026-03-15T10:59:59Z"));
    const auto reminders = LoadAll<CNotification>(Car.GetRefID());
    // Back with the focus on the date does not close the form.
    EXPECT_NE(Edit(*reminders->Get(0), {Press({VK_DOWN, VK_DOWN}), Type(L"4"), Press({VK_TBACK}), Done()}), 0);
    EXPECT_EQ(LoadAll<CNotification>(Car.GetRefID())->Get(0)->GetDate(), Utc("2026-04-15T10:59:59Z"));
}

TEST_F(EditReminderTest, TheReadingComesBeforeTheDescriptionThatIsRequired) {
    CNotification reminder;
    const int beeps = Beeps();
    const Step look = [&] {
        EXPECT_EQ(FocusedId(), Odometer);
        EXPECT_EQ(Beeps(), beeps + 1);
    };
    const Step refused = [this] {
        EXPECT_EQ(Message(), L"A description is required.");
        Host.Press(VK_RETURN);
    };
    // Action is Done here.
    EXPECT_NE(Edit(reminder,
                  {Put(Odometer, L"2147483648"), Focus(Date), Done(), look, Put(Odometer, L"0"), Press({VK_RETURN}),
                      refused, Put(FirstText, L"x"), Done()}),
        0);
    EXPECT_EQ(Stored(), std::vector<std::wstring>{L"x"});
    EXPECT_EQ(reminder.GetOdometer(), 0);
}

} // namespace
