#include "shell/main_frame.h"

#include "forms/dialog_helpers.h"
#include "lists/app_fonts.h"
#include "lists/parent_reflection.h"
#include "messages/show_message.h"
#include "platform/input.h"
#include "platform/list_view.h"
#include "platform/resources.h"
#include "platform/wait_cursor.h"
#include "prefs/about_dlg.h"
#include "prefs/dlg_options.h"
#include "prefs/pick_date_range.h"
#include "reminders/due_reminders.h"
#include "reminders/reminder_commands.h"
#include "resources/ids.h"
#include "resources/load_text.h"
#include "settings/app_settings.h"
#include "shell/program_identity.h"
#include "stats/quick_stats.h"
#include "stats_screen/dlg_quick_stats.h"
#include "units/record_text.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace {

UINT ReloadMessage = 0;
UINT CloseMessage = 0;

constexpr DWORD VehicleListStyle = 0x5000C01D;
constexpr DWORD EntryListStyle = 0x50004401;

int CalculateStats(CQuickStats* stats, CEntryFilter* filter) {
    const CWaitCursor wait;
    return stats->Calculate(filter);
}

} // namespace

void RegisterFrameMessages() {
    ReloadMessage = RegisterWindowMessageW(identity::ReloadMessage);
    CloseMessage = RegisterWindowMessageW(identity::CloseMessage);
}

CMainFrame::CMainFrame(CMessageLoop& loop)
    : loop_(loop) {
    filter_.SetEntryType(static_cast<CEntry::Type>(theSettings.ViewEntryType));
    filter_.SetDateRangeType(static_cast<CEntryFilter::DateRangeType>(theSettings.ViewDateRangeType));
}

bool CMainFrame::CreateFrame() {
    const std::wstring name = LoadText(strings::AppName);
    if (!Create(name.c_str(), name.c_str(), WS_POPUP, nullptr, 0))
        return false;
    accelerators_ = LoadAcceleratorsW(GetModuleHandleW(nullptr), menus::MainAccelerators);
    return true;
}

LRESULT CMainFrame::ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) try {
    LRESULT reflected = 0;
    if (message != WM_MEASUREITEM && message != WM_COMMAND
        && ReflectNotification(GetHandle(), message, wParam, lParam, reflected) && message != WM_NOTIFY)
        return reflected;
    switch (message) {
    case WM_CREATE:
        return OnCreate();
    case WM_MEASUREITEM:
        return OnMeasureItem(wParam, lParam);
    case WM_NOTIFY:
        return OnNotify(reinterpret_cast<const NMHDR*>(lParam));
    case WM_COMMAND:
        OnCommand(LOWORD(wParam));
        return 0;
    case WM_HOTKEY:
        OnHotKey(static_cast<std::uintptr_t>(lParam));
        return 0;
    case WM_INITMENUPOPUP:
        updateTable_.ApplyTo(reinterpret_cast<HMENU>(wParam));
        return 0;
    case WM_SIZE:
        OnSize(wParam);
        return 0;
    case WM_SETFOCUS:
        SetFocus(visibleView_);
        return 0;
    case WM_ENABLE:
        OnEnable(wParam != 0);
        return 0;
    case WM_HIBERNATE:
        OnOutOfMemory();
        return 0;
    case WM_CLOSE:
        OnClose();
        return 0;
    case WM_DESTROY:
        PostQuitMessage(1);
        return 0;
    default:
        return OnRegisteredMessage(message) ? 0 : DefaultMessage(message, wParam, lParam);
    }
} catch (const std::bad_alloc&) {
    PostOutOfMemory(GetHandle());
    return 0;
}

LRESULT CMainFrame::OnCreate() {
    menuBar_ = CreateSoftKeyBar(GetHandle(), menus::MainFrame, true, false);
    loop_.SetFilter([this](MSG* message) { return TranslateAcceleratorW(GetHandle(), accelerators_, message) != 0; });
    if (!vehicleList_.CreateControl(L"SysListView32", VehicleListStyle, GetHandle(), controls::VehicleList)
        || !entryList_.CreateControl(L"SysListView32", EntryListStyle, GetHandle(), controls::EntryList))
        return -1;
    visibleView_ = vehicleList_.GetHandle();
    SetListFonts();
    ShowWindow(vehicleList_.GetHandle(), SW_SHOW);
    ShowWindow(entryList_.GetHandle(), SW_HIDE);
    MarkEntryType();
    MarkDateRange();
    return 0;
}

void CMainFrame::SetListFonts() const {
    for (const HWND list : {vehicleList_.GetHandle(), entryList_.GetHandle()})
        SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(static_cast<HFONT>(BoldTextFont)), TRUE);
}

LRESULT CMainFrame::OnMeasureItem(WPARAM id, LPARAM request) {
    if (id != controls::EntryList || request == 0)
        return 0;
    entryList_.MeasureItem(reinterpret_cast<MEASUREITEMSTRUCT*>(request));
    return 1;
}

LRESULT CMainFrame::OnNotify(const NMHDR* note) {
    if (!note || note->code != LVN_KEYDOWN)
        return 0;
    if (reinterpret_cast<const NMLVKEYDOWN*>(note)->wVKey != VK_TACTION)
        return 0;
    if (FollowsReplacedFile())
        return 0;
    if (note->idFrom == controls::VehicleList) {
        if (CVehicle* vehicle = vehicleList_.GetSelectedVehicle())
            ActivateVehicle(vehicle);
    } else if (note->idFrom == controls::EntryList) {
        EditCommand();
    }
    return 0;
}

void CMainFrame::OnCommand(UINT command) {
    // What was selected is gone then.
    if (FollowsReplacedFile() && (command == commands::Edit || command == commands::Delete))
        return;
    switch (command) {
    case commands::NewVehicle:
        NewVehicleCommand();
        break;
    case commands::NewFuelEntry:
    case commands::NewRepair:
    case commands::NewTrip:
    case commands::NewExpense:
        NewEntryCommand(command);
        break;
    case commands::Edit:
        EditCommand();
        break;
    case commands::Delete:
        DeleteCommand();
        break;
    case commands::QuickStats:
        QuickStatsCommand();
        break;
    case commands::Options:
        OptionsCommand();
        break;
    case commands::About:
        CAboutDlg().DoModal();
        break;
    case commands::NewReminder:
        NewReminderCommand();
        break;
    case commands::ManageReminders:
        ManageRemindersCommand();
        break;
    case commands::SelectVehicle:
        SelectVehicleCommand();
        break;
    case commands::Exit:
        PostMessageW(GetHandle(), WM_CLOSE, 0, 0);
        break;
    default:
        ViewCommand(command);
        break;
    }
}

// Where another file has taken the name of ours, the lists show what cannot be changed any more.
bool CMainFrame::FollowsReplacedFile() {
    if (!theDataLayer.IsReplaced())
        return false;
    OnReload();
    return true;
}

bool CMainFrame::OnRegisteredMessage(UINT message) {
    if (message == 0)
        return false;
    if (message == ReloadMessage)
        OnReload();
    else if (message == CloseMessage)
        PostMessageW(GetHandle(), WM_CLOSE, 0, 0);
    else
        return false;
    return true;
}

// The Back key, on its way down.
void CMainFrame::OnHotKey(std::uintptr_t key) {
    if (HIWORD(key) != VK_TBACK || LOWORD(key) != 0)
        return;
    if (IsVehicleListVisible())
        SHNavigateBack();
    else
        ShowView(controls::VehicleList);
}

// A modal window disables the frame below it for as long as it is open.
bool CMainFrame::IsFormOpen() const {
    return !IsWindowEnabled(GetHandle());
}

void CMainFrame::OnEnable(bool enabled) {
    if (!enabled)
        return;
    if (reloadPending_)
        PostMessageW(GetHandle(), ReloadMessage, 0, 0);
    if (closePending_)
        PostMessageW(GetHandle(), WM_CLOSE, 0, 0);
    reloadPending_ = closePending_ = false;
}

void CMainFrame::OnClose() {
    if (IsFormOpen())
        closePending_ = true;
    else
        DestroyWindow(GetHandle());
}

// One message, however many allocations of a command have failed.
void CMainFrame::OnOutOfMemory() {
    if (isTellingOfMemory_)
        return;
    isTellingOfMemory_ = true;
    ShowMessage(GetActiveWindow(), strings::NotEnoughMemory, strings::AppName, messages::FailureStyle);
    isTellingOfMemory_ = false;
}

void CMainFrame::OnReload() {
    if (IsFormOpen()) {
        reloadPending_ = true;
        return;
    }
    vehicleList_.Reload();
    CVehicle* vehicle = vehicleList_.FindVehicle(theSettings.LastActiveVehicle);
    if (!vehicle)
        ShowView(controls::VehicleList);
    ActivateVehicle(vehicle);
}

void CMainFrame::OnSize(WPARAM kind) {
    if (kind != SIZE_MINIMIZED)
        LayOut();
}

void CMainFrame::LayOut() {
    RECT client;
    if (visibleView_ && GetClientRect(GetHandle(), &client))
        MoveWindow(visibleView_, 0, 0, client.right, client.bottom, TRUE);
}

// The active vehicle

void CMainFrame::ShowView(UINT id) {
    const bool vehicles = id == controls::VehicleList;
    const HWND shown = vehicles ? vehicleList_.GetHandle() : entryList_.GetHandle();
    const HWND hidden = vehicles ? entryList_.GetHandle() : vehicleList_.GetHandle();
    ShowWindow(shown, SW_SHOW);
    visibleView_ = shown;
    SetFocus(shown);
    ShowWindow(hidden, SW_HIDE);
    if (vehicles) {
        theSettings.LastActiveVehicle = 0;
        SetWindowTextW(GetHandle(), LoadText(strings::MyVehicles).c_str());
    }
    LayOut();
    updateTable_.EnableAll(!vehicles);
}

void CMainFrame::ActivateVehicle(CVehicle* vehicle) {
    if (!vehicle) {
        filter_.SetVehicleID(0);
        SetWindowTextW(GetHandle(), LoadText(strings::NoActiveVehicle).c_str());
        entryList_.Refresh(nullptr);
        theSettings.LastActiveVehicle = 0;
        theSettings.ActiveVehicleOdometer = 0;
        return;
    }
    SetWindowTextW(GetHandle(), VehicleTitleText(vehicle).c_str());
    filter_.SetVehicleID(vehicle->GetRefID());
    entryList_.Refresh(&filter_);
    SetFocus(entryList_.GetHandle());
    const int row = vehicleList_.FindRowByData(reinterpret_cast<LPARAM>(vehicle));
    if (vehicleList_.SetRowState(row, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED))
        SendMessageW(vehicleList_.GetHandle(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    theSettings.LastActiveVehicle = vehicle->GetRefID();
    theSettings.ActiveVehicleOdometer = vehicle->GetCurrentOdometer();
    ShowView(controls::EntryList);
    // Last of all: the user has the vehicle's log behind a reminder.
    CheckDueReminders(vehicle);
}

void CMainFrame::UpdateOdometer() {
    CVehicle* vehicle = vehicleList_.FindVehicle(theSettings.LastActiveVehicle);
    if (!vehicle)
        return;
    LONG highest = 0;
    if (!theDataLayer.GetMaxOdometer(vehicle->GetRefID(), &highest))
        return;
    if (highest == theSettings.ActiveVehicleOdometer)
        return;
    if (!theDataLayer.UpdateCurrentOdometer(vehicle, highest))
        return;
    theSettings.ActiveVehicleOdometer = highest;
    CheckDueReminders(vehicle);
}

// Commands of the frame itself

void CMainFrame::QuickStatsCommand() {
    if (theSettings.LastActiveVehicle == 0)
        return;
    CQuickStats stats;
    if (!CalculateStats(&stats, &filter_)) {
        if (theDataLayer.LastFailure() == StoreFailure::NoMemory)
            OnOutOfMemory();
        return;
    }
    CDlgQuickStats dialog;
    dialog.Stats = &stats;
    dialog.DoModal();
}

void CMainFrame::OptionsCommand() {
    const int formerTextSize = theSettings.TextSize;
    if (CDlgOptions().DoModal() == commands::Cancel)
        return;
    theSettings.SaveSettings();
    if (theSettings.TextSize != formerTextSize) {
        CreateAppFonts();
        SetListFonts();
        entryList_.RemeasureRows();
    }
    if (!IsVehicleListVisible())
        entryList_.Refresh(&filter_);
}

void CMainFrame::NewReminderCommand() {
    if (theSettings.LastActiveVehicle != 0)
        NewReminder(vehicleList_.GetSelectedVehicle());
}

void CMainFrame::ManageRemindersCommand() {
    CVehicle* vehicle = vehicleList_.GetSelectedVehicle();
    if (theSettings.LastActiveVehicle != 0 && vehicle)
        ManageReminders(vehicle);
}

void CMainFrame::SelectVehicleCommand() {
    if (!IsVehicleListVisible())
        ShowView(controls::VehicleList);
}
