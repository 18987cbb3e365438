#include "lists/vehicle_list_view.h"

#include "records/data_layer.h"
#include "resources/ids.h"
#include "resources/load_text.h"
#include "units/record_text.h"

namespace {

constexpr int FirstColumnWidth = 50;

} // namespace

void CVehicleListView::InitColumns() {
    SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
    RemoveHorizontalScrollBar();
    InsertColumn(0, LoadText(strings::ColumnName).c_str(), LVCFMT_LEFT, FirstColumnWidth);
    AddIcon(icons::Vehicle);
    UseImageList();
    Reload();
}

int CVehicleListView::Reload() {
    return Fill(
        vehicles_, [&] { return theDataLayer.Load(&vehicles_); },
        [this] {
            for (int index = 0; index < vehicles_.GetCount(); ++index)
                AddRow(vehicles_.Get(index), 0);
        });
}

int CVehicleListView::AddRow(CVehicle* vehicle, int update) {
    if (update && !RemoveRow(vehicle))
        return -1;
    const int row = InsertRow(0, VehicleTitleText(vehicle).c_str(), 0, reinterpret_cast<LPARAM>(vehicle));
    if (update)
        SelectRow(row);
    return row;
}

void CVehicleListView::AddVehicle(CVehicle* vehicle) {
    vehicles_.Add(vehicle);
    SelectRow(AddRow(vehicle, 0));
}

CVehicle* CVehicleListView::GetSelectedVehicle() const {
    const int row = GetNextSelected(-1);
    return row == -1 ? nullptr : reinterpret_cast<CVehicle*>(GetRowData(row));
}

CVehicle* CVehicleListView::FindVehicle(ULONG refId) const {
    for (int index = 0; index < vehicles_.GetCount(); ++index)
        if (vehicles_.Get(index)->GetRefID() == refId)
            return vehicles_.Get(index);
    return nullptr;
}

void CVehicleListView::OnSize() {
    FitColumnToHeader();
    RedrawIfEmpty();
}
