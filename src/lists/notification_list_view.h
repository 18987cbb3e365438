#pragma once

#include "lists/custom_list_view.h"
#include "records/notification.h"
#include "records/object_list.h"

/// The reminders of a vehicle, three columns under a header: what is due, on which date, at which reading. The last one
/// touched stands at the top.
class CNotificationListView final : public CCustomListView {
public:
    /// Columns, font and icon; called once, when the control exists.
    void InitColumns();
    /// Loads the reminders of the vehicle with this RefID anew, in reverse order; the former records are destroyed.
    /// 0 when they cannot be loaded: the list is empty then.
    int Reload(ULONG vehicleId);

    /// A row at the top for a reminder of this list. With `update` its former row goes and the new one is selected and
    /// in view. Returns the row's index, -1 for an update of a reminder without a row.
    int AddRow(CNotification* reminder, int update);
    /// The list's own record, null when no row is selected; valid until the next Reload.
    CNotification* GetSelectedReminder() const;

protected:
    void OnSize() override;

private:
    void DivideColumns();

    CObjectListT<CNotification> reminders_;
};
