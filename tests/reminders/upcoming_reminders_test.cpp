#include "../records/faulty_disk.h"
#include "lists/notification_list_view.h"
#include "reminder_fixture.h"
#include "reminders/reminder_commands.h"

using namespace controls;

namespace {

using UpcomingReminders = ReminderTest;

TEST_F(UpcomingReminders, AFailingDiskChangesNoRow) {
    FaultyDisk disk;
    Reconnect();
    Remind(L"One", 5);
    Remind(L"Two", 5);
    const auto manage = [this] { return ManageReminders(&Car), 0; };
    const Step bothRows = [this] {
        EXPECT_EQ(SendMessageW(Item(List), LVM_GETITEMCOUNT, 0, 0), 2);
        EXPECT_TRUE(Shows(L"One") && Shows(L"Two"));
    };
    Run(manage,
        {Press({VK_DOWN, VK_DOWN}), [&] { disk.FailFrom(0); }, Menu(2), Done(), Menu(1), Put(FirstText, L"Lost"),
            Done(), bothRows, Done(), Put(FirstText, L"Never there"), Done(), bothRows, Press({VK_TBACK})});
    EXPECT_EQ(Stored(), (std::vector<std::wstring>{L"One", L"Two"}));
    Layer.Disconnect();
    Run(manage, {[this] { EXPECT_TRUE(Shows(L"There are no items in this list.")); }, Press({VK_TBACK})});
}

TEST_F(UpcomingReminders, DateAndReadingLeaveTheRestToTheDescription) {
    CNotificationListView list;
    Show(list, 0x50818105);
    list.InitColumns();
    const auto width = [&](WPARAM column) {
        return static_cast<int>(SendMessageW(list.GetHandle(), LVM_GETCOLUMNWIDTH, column, 0));
    };
    for (const auto& [client, date, odometer] : {std::tuple{169, 50, 40}, {170, 90, 80}}) {
        MoveWindow(list.GetHandle(), 0, 0, client + 2, 100, TRUE); // with its border
        EXPECT_EQ(width(0), client - date - odometer);
        EXPECT_EQ(width(1), date) << client;
        EXPECT_EQ(width(2), odometer) << client;
    }
    CNotification stranger;
    EXPECT_EQ(list.AddRow(&stranger, 1), -1);
}

} // namespace
