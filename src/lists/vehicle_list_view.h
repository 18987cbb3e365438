#pragma once

#include "lists/custom_list_view.h"
#include "records/object_list.h"
#include "records/vehicle.h"

/// The first view of the program: a row for each vehicle, in ascending order of its text. It also holds the loaded
/// vehicles for the rest of the program.
class CVehicleListView final : public CCustomListView {
public:
    /// Column, icon and rows; called once, when the control exists.
    void InitColumns();
    /// Loads all vehicles anew; the former records are destroyed. 0 when they cannot be loaded: the list is empty then.
    int Reload();

    /// A row for a vehicle of this list. With `update` its former row goes and the new one is selected and in view.
    /// Returns the row's index, -1 for an update of a vehicle without a row.
    int AddRow(CVehicle* vehicle, int update);
    /// Takes a new record over and shows it selected.
    void AddVehicle(CVehicle* vehicle);

    /// The list's own records, null when there is none; valid until the next Reload.
    CVehicle* GetSelectedVehicle() const;
    CVehicle* FindVehicle(ULONG refId) const;

protected:
    void OnSize() override;

private:
    CObjectListT<CVehicle> vehicles_;
};
