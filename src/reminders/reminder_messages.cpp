#include "reminders/reminder_messages.h"

#include "platform/window.h"
#include "resources/ids.h"
#include "shell/messages/show_message.h"

void ShowReminderCreated() {
    ShowMessage(GetActiveWindow(), strings::ReminderCreated, strings::AppName, messages::NoticeStyle);
}
