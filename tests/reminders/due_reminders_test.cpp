#include "../records/faulty_disk.h"
#include "reminder_fixture.h"
#include "reminders/due_reminders.h"
#include "reminders/reminder_commands.h"

using namespace controls;

namespace {

class DueReminders : public ReminderTest {
protected:
    /// The descriptions that came up, each answered with its key.
    std::vector<std::wstring> Check(const std::vector<WORD>& answers) {
        std::vector<std::wstring> shown;
        for (const WORD answer : answers) {
            Host.Then([&, answer] {
                shown.push_back(TextOf(FirstText));
                Host.Press(answer);
            });
        }
        CheckDueReminders(&Car);
        EXPECT_EQ(shown.size(), answers.size());
        Host.steps.clear();
        return shown;
    }
};

TEST_F(DueReminders, FallsDueAtItsReadingOrAtItsSecond) {
    const double now = Utc("2026-03-15T10:00:00Z");
    const struct {
        LONG current;
        LONG odometer;
        double date;
        bool due;
    } cases[] = {{12500, 12499, FarDate, true}, {12500, 12500, FarDate, true}, {12500, 12501, FarDate, false},
        {12500, Highest, now, true}, {12500, Highest, -109205.0, true}, {-1, 0, FarDate, false},
        {Lowest, Lowest, FarDate, true}, {Lowest, Highest, FarDate, false}};
    for (const auto& each : cases) {
        theSettings.ActiveVehicleOdometer = each.current;
        Remind(L"Oil", each.odometer, each.date);
        SCOPED_TRACE(std::to_string(each.current) + " " + std::to_string(each.odometer));
        Check(std::vector<WORD>(each.due ? 1 : 0, VK_TSOFT1));
        EXPECT_EQ(Stored().empty(), each.due);
        if (!each.due)
            Layer.Delete(LoadAll<CNotification>(Car.GetRefID())->Get(0));
    }
}

TEST_F(DueReminders, TestsInUtcAndShowsTheLocalDay) {
    SetZone("UTC-13");
    const double now = Utc("2026-03-15T12:00:00.900Z"); // the 16th, 1:00, on the wall
    Remind(L"Later today", Highest, now + 0.5 / 24);
    Remind(std::wstring(1000, L'\u2699') + L"\U0001F697", 0, now);
    Car.SetCurrentOdometer(1234567);
    Host.Then([&] {
        EXPECT_EQ(TextOf(FirstText), std::wstring(1000, L'\u2699') + L"\U0001F697");
        EXPECT_TRUE(Shows(L"My Car (2007)"));
        EXPECT_EQ(TextOf(DueReminderOdometer), L"0");
        EXPECT_EQ(TextOf(DueCurrentOdometer), L"1,234,567") << "the vehicle's, not the one that was tested";
        EXPECT_EQ(TextOf(DueReminderDate), L"3/15/2026");
        EXPECT_EQ(TextOf(DueCurrentDate), L"3/16/2026");
        Host.Press(VK_TSOFT2);
    });
    CheckDueReminders(&Car);
}

TEST_F(DueReminders, StaysQuietWithoutAVehicleOrAFile) {
    Remind(L"Oil", 100);
    CheckDueReminders(nullptr);
    for (const ULONG active : {0UL, Car.GetRefID() + 1UL}) {
        theSettings.LastActiveVehicle = static_cast<ULONG>(active);
        Check({});
    }
    theSettings.LastActiveVehicle = Car.GetRefID();
    Layer.Disconnect();
    Check({});
    Run([this] { return ManageReminders(&Car), 0; },
        {[this] { EXPECT_TRUE(Shows(L"There are no items in this list.")); }, Press({VK_TBACK})});
}

TEST_F(DueReminders, OneThatCannotBeDeletedStaysAndComesUpAgain) {
    FaultyDisk disk;
    Reconnect();
    Remind(L"One", 100);
    Remind(L"Two", 100);
    disk.FailFrom(0);
    const std::vector<std::wstring> withMessages{L"One", L"", L"Two", L""};
    EXPECT_EQ(Check({VK_TSOFT1, VK_TSOFT1, VK_TSOFT1, VK_TSOFT1}), withMessages);
    const Step bothRows = [] { EXPECT_EQ(SendMessageW(Item(List), LVM_GETITEMCOUNT, 0, 0), 2); };
    Run([this] { return ManageReminders(&Car), 0; },
        {Press({VK_DOWN}), Menu(2), Done(), Done(), bothRows, Press({VK_TBACK})});
    disk.Mend();
    EXPECT_EQ(Check({VK_TSOFT1, VK_TSOFT1}), (std::vector<std::wstring>{L"One", L"Two"}));
    EXPECT_TRUE(Stored().empty());
    Layer.Disconnect();
}

} // namespace
