#include "reminder_fixture.h"
#include "reminders/edit_reminder.h"

using namespace controls;

namespace {

class EditReminderTest : public ReminderTest {
protected:
    int Edit(CNotification& reminder, const std::function<void()>& change, WORD key = VK_TSOFT1) {
        Host.Then([this, change, key] {
            change();
            Host.Press(key);
        });
        return EditReminder(&reminder);
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
            EXPECT_EQ(FocusedId(), static_cast<int>(FirstText));
            Put(FirstText, L"never stored");
        };
        EXPECT_EQ(Edit(reminder, check, VK_TSOFT2), 0);
        EXPECT_EQ(reminder.GetDate(), in60Days);
        EXPECT_EQ(reminder.GetOdometer(), ahead);
        EXPECT_EQ(reminder.GetVehicleID(), Car.GetRefID());
        EXPECT_STREQ(reminder.GetName(), L"");
    }
    EXPECT_TRUE(Stored().empty());
}

TEST_F(EditReminderTest, OneLeftAloneIsNotStoredAgain) {
    const std::wstring names[] = {L" ", std::wstring(1000, L'x'), L"\U0001F6DE Reifen \u00e4ndern \u6c7d\u8eca", L"a"};
    const double dates[] = {-109205.0, -1.75, Utc("2026-03-15T10:59:59Z"), FarDate + 86399.0 / 86400};
    const LONG odometers[] = {0, Lowest, Highest, -1};
    for (int index = 0; index < 4; ++index)
        Remind(names[index], odometers[index], dates[index]);
    const auto reminders = LoadAll<CNotification>(Car.GetRefID());
    for (int index = 0; index < 4; ++index) {
        CNotification& reminder = *reminders->Get(index);
        EXPECT_EQ(Edit(reminder, [] {}), 0) << index;
        EXPECT_FALSE(reminder.IsDirty()) << index;
        EXPECT_EQ(reminder.GetDate(), dates[index]);
        EXPECT_EQ(reminder.GetOdometer(), odometers[index]);
        EXPECT_EQ(reminder.GetName(), names[index]);
    }
}

TEST_F(EditReminderTest, KeepsTheTimeOfDayOfAnotherDay) {
    Remind(L"Oil", 5, Utc("2026-03-15T10:59:59Z"));
    const auto reminders = LoadAll<CNotification>(Car.GetRefID());
    Host.Key(VK_DOWN).Key(VK_DOWN).Then([&] {
        EXPECT_EQ(FocusedId(), static_cast<int>(Date));
        Host.events.push_back({device::InputEvent::Kind::Text, 0, L'4'});
        Host.Press(VK_TBACK);
    });
    EXPECT_NE(Edit(*reminders->Get(0), [] {}), 0) << "Back with the focus on the date does not close the form";
    EXPECT_EQ(LoadAll<CNotification>(Car.GetRefID())->Get(0)->GetDate(), Utc("2026-04-15T10:59:59Z"));
}

TEST_F(EditReminderTest, TheReadingComesBeforeTheDescriptionThatIsRequired) {
    CNotification reminder;
    int beeps = 0;
    for (const wchar_t* reading : {L"", L"2147483648"}) {
        Host.Then([&, reading] {
            beeps = device::Desktop::The().beeps;
            Put(Odometer, reading);
            Host.Press(VK_TSOFT1);
        });
        Host.Then([&] {
            EXPECT_EQ(FocusedId(), static_cast<int>(Odometer));
            EXPECT_EQ(device::Desktop::The().beeps, beeps + 1);
            SetFocus(Item(Date));
        });
    }
    Host.Then([&] {
        Put(Odometer, L"0");
        Host.Press(VK_RETURN); // Action is Done here
    });
    Host.Then([&] {
        EXPECT_EQ(Message(), L"A description is required.");
        EXPECT_TRUE(Shows(L"Odoledger"));
        Host.Press(VK_RETURN);
    });
    Host.Then([&] {
        EXPECT_EQ(FocusedId(), static_cast<int>(FirstText));
        Put(FirstText, L"xy");
        Host.Press(VK_END);
        Host.Press(VK_TBACK);
    });
    EXPECT_NE(Edit(reminder, [] {}), 0);
    EXPECT_EQ(Stored(), std::vector<std::wstring>{L"x"});
    EXPECT_EQ(reminder.GetOdometer(), 0);
}

} // namespace
