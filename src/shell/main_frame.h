#pragma once

#include "lists/entry_list_view.h"
#include "lists/vehicle_list_view.h"
#include "platform/window_object.h"
#include "records/entry_filter.h"
#include "shell/message_loop.h"
#include "shell/update_table.h"

/// Registers the two messages that other programs of the device send: reload, then close.
void RegisterFrameMessages();

/// The program's one top-level window: two lists, of which one shows, the soft keys under them, and the filter of the
/// log. It decides which vehicle is active and carries the commands out.
class CMainFrame final : public CWindowImpl {
public:
    explicit CMainFrame(CMessageLoop& loop);

    /// The window, with its title and its accelerators. False when it cannot be created.
    bool CreateFrame();
    /// Opens the data file, making it from the template where there is none, and shows the first screen. False when
    /// the file cannot be made: the program ends then.
    bool OpenDatabase();

    /// Shows one list and hides the other; `id` is that of the list.
    void ShowView(UINT id);
    /// Null leaves no vehicle active and does not change what is visible.
    void ActivateVehicle(CVehicle* vehicle);
    /// The active vehicle's current odometer follows the highest entry, downwards too.
    void UpdateOdometer();

protected:
    LRESULT ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    // Messages
    LRESULT OnCreate();
    LRESULT OnMeasureItem(WPARAM id, LPARAM request);
    LRESULT OnNotify(const NMHDR* note);
    void OnCommand(UINT command);
    bool FollowsReplacedFile();
    bool OnRegisteredMessage(UINT message);
    void OnHotKey(std::uintptr_t key);
    void OnSize(WPARAM kind);
    void OnOutOfMemory();
    void OnReload();
    void OnClose();
    void OnEnable(bool enabled);
    bool IsFormOpen() const;
    void LayOut();

    void SetListFonts() const;

    // Commands on the view (view_commands.cpp)
    void ViewCommand(UINT command);
    void EntryTypeCommand(UINT command);
    void EntryDateRangeCommand(UINT command);
    void MarkEntryType();
    void MarkDateRange();

    // Commands of the frame itself
    void QuickStatsCommand();
    void OptionsCommand();
    void NewReminderCommand();
    void ManageRemindersCommand();
    void SelectVehicleCommand();

    // Commands on records (record_commands.cpp)
    void NewVehicleCommand();
    void NewEntryCommand(UINT command);
    void EditCommand();
    void EditSelectedVehicle();
    void EditSelectedEntry();
    void DeleteCommand();
    void DeleteSelectedVehicle();
    void DeleteSelectedEntries();

    // Start-up (open_database.cpp)
    void ShowFirstScreen();

    bool IsVehicleListVisible() const { return visibleView_ == vehicleList_.GetHandle(); }

    CMessageLoop& loop_;
    HWND visibleView_ = nullptr;
    HACCEL accelerators_ = nullptr;
    HWND menuBar_ = nullptr;
    CUpdateTable updateTable_;
    CVehicleListView vehicleList_;
    CEntryFilter filter_;
    CEntryListView entryList_;
    // Held back while a form is open: its record must not be destroyed under it, nor the frame.
    bool reloadPending_ = false;
    bool closePending_ = false;
    bool isTellingOfMemory_ = false;
};
