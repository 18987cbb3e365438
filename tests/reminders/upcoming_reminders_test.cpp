#include "../records/faulty_disk.h"
#include "lists/notification_list_view.h"
#include "reminder_fixture.h"
#include "reminders/reminder_commands.h"

using namespace controls;

namespace {

class UpcomingReminders : public ReminderTest {
protected:
    /// An item of the menu.
    void Choose(wchar_t digit) {
        Host.Key(VK_TSOFT2).Then([this, digit] {
            Host.events.push_back({ScriptedHost::Event::Kind::KeyDown, static_cast<WORD>(digit), digit});
            Host.events.push_back({ScriptedHost::Event::Kind::KeyUp, static_cast<WORD>(digit), digit});
        });
    }
    void ExpectBothRows() {
        Host.Then([this] {
            EXPECT_EQ(SendMessageW(Item(List), LVM_GETITEMCOUNT, 0, 0), 2);
            EXPECT_TRUE(Shows(L"One") && Shows(L"Two"));
        });
    }
    void Rename(const wchar_t* name) {
        Host.Then([this, name] {
            EXPECT_TRUE(Shows(L"Edit Reminder"));
            Put(FirstText, name);
            Host.Press(VK_TSOFT1);
        });
    }
};

TEST_F(UpcomingReminders, AFailingDiskChangesNoRow) {
    FaultyDisk disk;
    Reconnect();
    Remind(L"One", 5);
    Remind(L"Two", 5);
    Host.Key(VK_DOWN).Key(VK_DOWN).Then([&] { disk.FailFrom(0); });
    Choose(L'2');
    Host.Key(VK_TSOFT1);
    Choose(L'1');
    Rename(L"Lost");
    ExpectBothRows();
    Host.Key(VK_TSOFT1);
    Rename(L"Never there");
    ExpectBothRows();
    Host.Key(VK_TBACK);
    ManageReminders(&Car);
    EXPECT_EQ(Stored(), (std::vector<std::wstring>{L"One", L"Two"}));
    Layer.Disconnect();
    Host.Then([this] { EXPECT_TRUE(Shows(L"There are no items in this list.")); });
    Host.Key(VK_TBACK);
    ManageReminders(&Car);
}

TEST_F(UpcomingReminders, DateAndReadingLeaveTheRestToTheDescription) {
    CNotificationListView list;
    Show(list, 0x50818105);
    list.InitColumns();
    const auto width = [&](int column) {
        return static_cast<int>(SendMessageW(list.GetHandle(), LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    };
    for (const auto& [client, date, odometer] : {std::tuple{169, 50, 40}, {170, 90, 80}, {90, 50, 40}, {600, 90, 80}}) {
        MoveWindow(list.GetHandle(), 0, 0, client + 2, 100, TRUE); // with its border
        EXPECT_EQ(width(0), client - date - odometer);
        EXPECT_EQ(width(1), date) << client;
        EXPECT_EQ(width(2), odometer) << client;
    }
    CNotification stranger;
    EXPECT_EQ(list.AddRow(&stranger, 1), -1);
    EXPECT_EQ(list.GetSelectedReminder(), nullptr);
}

} // namespace
