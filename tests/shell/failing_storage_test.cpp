// Every command that stores something, with the disk failing at each of its steps.

#include "../records/faulty_disk.h"
#include "forms/dlg_keywords.h"
#include "frame_device.h"
#include "platform/input.h"
#include "platform/list_view.h"
#include "reminders/due_reminders.h"
#include "reminders/reminder_commands.h"
#include "shell/program_identity.h"

#include <algorithm>
#include <map>

namespace {

/// Two vehicles with thirty entries on several pages each.
constexpr ULONG Car = 2002;
constexpr const char* Log = R"(
INSERT INTO vehicles VALUES (1, 2001, 'Bike', '', '', '', 900, 2000, '', '', '', '', 0, '', '', ''),
  (2, 2002, 'Car', '', '', '', 900, 2000, '', '', '', '', 0, '', '', '');
WITH RECURSIVE count(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM count WHERE i < 60)
INSERT INTO entries SELECT i, 3000 + i, 2001 + i % 2, 46000 + i, 2, 1000 - i, 0, 0, 0, 'Oil', printf('%500s', ''), ''
  FROM count;
INSERT INTO reminders VALUES (1, 4001, 2001, 2958465, 900000, 'Tyres', ''), (2, 4002, 2002, 2958465, 900000, 'Oil', '');
INSERT INTO keywords VALUES (1, 5001, 2, 'Oil', ''), (2, 5002, 2, 'Tyres', '');
UPDATE sequence SET next_ref = 6001;
)";

using Step = std::function<void()>;

struct Command {
    const char* name;
    bool tellsFailure;
    Step run;
    std::vector<Step> steps; ///< what the user does in its dialogs
};

/// What lies in the file, the active vehicle's reading apart.
struct Stored {
    std::string rows;
    std::string odometer;
};

class FailingStorage : public FrameDevice, public testing::WithParamInterface<std::size_t> {
protected:
    FailingStorage()
        : FrameDevice(Log)
        , pristine_(Read(HostPath())) { }
    ~FailingStorage() override { theDataLayer.Disconnect(); } // while the disk is there

    // The user

    Step Send(UINT command) {
        return [this, command] { SendMessageW(Frame.GetHandle(), WM_COMMAND, command, 0); };
    }
    static Step Inside(UINT command) {
        return [command] { PostMessageW(GetActiveWindow(), WM_COMMAND, command, 0); };
    }
    static Step Put(UINT id, const wchar_t* text) {
        return [id, text] { SetDlgItemTextW(GetActiveWindow(), static_cast<int>(id), text); };
    }
    /// From here on the disk fails.
    Step Now(const Step& step) {
        return [this, step] {
            fail_();
            step();
        };
    }
    /// Says yes to what is asked, and takes note of what is told. Nothing where no message stands open.
    void Answer() {
        const HWND box = GetActiveWindow();
        wchar_t text[256] = {};
        GetClassNameW(box, text, 256);
        if (std::wcscmp(text, L"MessageBox") != 0)
            return;
        GetWindowTextW(GetWindow(box, GW_CHILD), text, 256);
        successesTold_ += text == LoadText(strings::ReminderCreated) ? 1 : 0;
        // Each with what the disk was told to say.
        const std::wstring failed = LoadText(strings::ChangeNotStored) + L' ';
        const UINT causes[] = {strings::NoSpaceCause, strings::LockedCause, strings::OtherCause};
        failuresTold_ += std::any_of(std::begin(causes), std::end(causes),
                             [&](UINT cause) { return text == failed + LoadText(cause); })
            ? 1
            : 0;
        Host.Press(VK_TSOFT1);
    }
    static void SelectRows(HWND list, int count) {
        LVITEMW item;
        item.state = item.stateMask = LVIS_SELECTED;
        for (int row = 0; row < count; ++row)
            SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    }
    /// What the pick list shows in the end has to be what is stored.
    void LeavePickList() {
        Disk.Mend();
        const auto shown = SendMessageW(GetDlgItem(GetActiveWindow(), controls::List), LB_GETCOUNT, 0, 0);
        EXPECT_EQ(Query("SELECT count(*) FROM keywords"), std::to_string(shown));
        Inside(commands::Cancel)();
    }
    std::vector<Command> Commands() {
        using namespace controls;
        const auto inList = [this](UINT command) {
            return [this, command] {
                Send(commands::SelectVehicle)();
                Send(command)();
            };
        };
        const auto several = [this] {
            SelectRows(GetDlgItem(Frame.GetHandle(), EntryList), 5);
            Send(commands::Delete)();
        };
        const Step pick = [] {
            CDlgKeywords dialog;
            dialog.KeywordType = CKeyword::KeywordRepair;
            dialog.DoModal();
        };
        const Step selectFirst = [] { SelectRows(GetDlgItem(GetActiveWindow(), controls::List), 1); };
        const Step leave = [this] { LeavePickList(); };
        const Step yes = Now([this] { Answer(); });
        const Step done = Now([this] { Host.Press(VK_TSOFT1); });
        const Step answer = [this] { Answer(); };
        const Step due = [] {
            theSettings.ActiveVehicleOdometer = 900000;
            CVehicle car;
            CheckDueReminders(&car);
        };
        const Step odometer = [this] {
            theSettings.ActiveVehicleOdometer = 7;
            Now([this] { Frame.UpdateOdometer(); })();
        };
        return {
            {"new vehicle", true, inList(commands::NewVehicle), {Put(FirstText, L"New"), done}},
            {"edited vehicle", true, inList(commands::Edit), {Put(FirstText, L"Other"), done}},
            {"deleted vehicle", true, inList(commands::Delete), {yes}},
            {"new entry", true, Send(commands::NewRepair), {Put(Odometer, L"5000"), Put(FirstText, L"Brakes"), done}},
            {"edited entry", true, Send(commands::Edit), {Put(Odometer, L"6000"), done}},
            {"deleted entry", true, Send(commands::Delete), {yes}},
            {"deleted entries", true, several, {yes}},
            {"odometer", false, odometer, {}},
            {"new reminder", true, Send(commands::NewReminder), {Put(FirstText, L"Wash"), done}},
            {"edited reminder", true, Send(commands::ManageReminders),
                {selectFirst, Inside(commands::Edit), Put(FirstText, L"Wash"), done, answer, Inside(commands::Cancel)}},
            {"deleted reminder", true, Send(commands::ManageReminders),
                {selectFirst, Inside(commands::Delete), yes, answer, Inside(commands::Cancel)}},
            {"due reminder", true, due, {done}},
            {"new keyword", true, pick, {Inside(commands::AddKeyword), Put(FirstText, L"Wash"), done, answer, leave}},
            {"renamed keyword", true, pick,
                {Inside(commands::EditKeyword), Put(FirstText, L"Wash"), done, answer, leave}},
            {"deleted keyword", true, pick, {Now(Inside(commands::DeleteKeyword)), answer, leave}},
        };
    }

    // The log before and after

    void StartAfresh() {
        theDataLayer.Disconnect();
        std::filesystem::remove(HostPath() + "-journal");
        Write(HostPath(), pristine_);
        ASSERT_EQ(theDataLayer.Connect(Path), CDataLayer::ConnectOK);
        theSettings.LastActiveVehicle = Car;
        Reload();
    }
    void Reload() { SendMessageW(Frame.GetHandle(), RegisterWindowMessageW(identity::ReloadMessage), 0, 0); }
    /// `fail` comes where the command begins to store. With its power gone the disk is read again by another run.
    void Perform(const Command& command, const Step& fail, bool powerGoes) {
        fail_ = fail;
        failuresTold_ = successesTold_ = 0;
        for (const Step& step : command.steps)
            Host.Then(step);
        Host.Then([this] { Answer(); });
        command.run();
        if (powerGoes)
            theDataLayer.Disconnect();
        Disk.Mend();
        ASSERT_TRUE(!powerGoes || theDataLayer.Connect(Path) == CDataLayer::ConnectOK);
        Host.Pump();
        ASSERT_EQ(GetActiveWindow(), Frame.GetHandle());
    }
    static std::string Query(const std::string& sql) { return LogFile(HostPath()).Run(sql); }
    static Stored WhatIsStored() {
        EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
        return {Query("SELECT 'entry', * FROM entries; SELECT 'reminder', * FROM reminders;"
                      "SELECT 'keyword', * FROM keywords; SELECT id, name, iif(ref = 2002, 0, odometer) FROM vehicles"),
            Query("SELECT odometer FROM vehicles WHERE ref = 2002")};
    }
    /// The records behind the rows of a list, each with a reading, must be those of the file.
    template <typename Record>
    void ExpectShown(UINT id, LONG (Record::*reading)() const, const std::string& table) const {
        const HWND list = GetDlgItem(Frame.GetHandle(), static_cast<int>(id));
        std::map<LONG, LONG> shown;
        for (int row = 0; row < SendMessageW(list, LVM_GETITEMCOUNT, 0, 0); ++row) {
            LVITEMW item;
            item.mask = LVIF_PARAM;
            item.iItem = row;
            SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
            const auto* record = reinterpret_cast<const Record*>(item.lParam);
            shown[record->GetID()] = (record->*reading)();
        }
        std::string rows;
        for (const auto& [record, value] : shown)
            rows += (rows.empty() ? "" : "\n") + std::to_string(record) + '|' + std::to_string(value);
        EXPECT_EQ(rows, Query("SELECT id, odometer FROM " + table + " ORDER BY id"));
    }
    /// All of the command's change or none, and a message where it was not made.
    void ExpectAllOrNothing(const Command& command, const Stored& before, const Stored& after) const {
        const Stored now = WhatIsStored();
        const bool isMade = now.rows == after.rows;
        EXPECT_TRUE(isMade || now.rows == before.rows);
        EXPECT_TRUE(now.odometer == before.odometer || (isMade && now.odometer == after.odometer));
        EXPECT_EQ(failuresTold_, command.tellsFailure && !isMade ? 1 : 0);
        EXPECT_EQ(successesTold_, isMade && std::string(command.name) == "new reminder" ? 1 : 0);
    }

    FaultyDisk Disk;
    const std::string pristine_;
    Step fail_;
    int failuresTold_ = 0;
    int successesTold_ = 0;
};

constexpr std::size_t CommandCount = 15;

TEST_P(FailingStorage, LosesNothingAndSaysWhatWasNotStored) {
    ASSERT_EQ(Commands().size(), CommandCount);
    const Command command = Commands()[GetParam()];
    SCOPED_TRACE(command.name);
    StartAfresh();
    const Stored before = WhatIsStored();
    Perform(
        command, [] {}, false);
    const Stored after = WhatIsStored();
    ASSERT_TRUE(after.rows != before.rows || after.odometer != before.odometer);
    ASSERT_EQ(failuresTold_, 0);
    for (const auto span : {FaultyDisk::Span::Once, FaultyDisk::Span::FromThenOn}) {
        for (const auto error : {FaultyDisk::Error::Io, FaultyDisk::Error::Full}) {
            int operation = 0;
            do {
                SCOPED_TRACE(operation);
                StartAfresh();
                const auto fail = [&] { Disk.FailAt(operation, span, error); };
                Perform(command, fail, span == FaultyDisk::Span::FromThenOn);
                Reload();
                ExpectShown(controls::VehicleList, &CVehicle::GetCurrentOdometer, "vehicles");
                ExpectShown(controls::EntryList, &CEntry::GetOdometer,
                    "entries WHERE vehicle = " + std::to_string(theSettings.LastActiveVehicle));
                ExpectAllOrNothing(command, before, after);
                CKeyword next;
                EXPECT_TRUE(theDataLayer.Save(&next, 0));
                ++operation;
            } while (Disk.HasFailed() && !HasFailure());
            EXPECT_GT(operation, 10); // locks, the journal and its syncs, pages, the end of the journal
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Commands, FailingStorage, testing::Range(std::size_t{0}, CommandCount));

} // namespace
