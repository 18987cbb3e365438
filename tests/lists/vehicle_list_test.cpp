#include "list_device.h"

namespace {

class VehicleList : public ListDevice {
protected:
    std::wstring Rows() const {
        std::wstring rows;
        for (int row = 0; row < List.GetRowCount(); ++row) {
            wchar_t text[260];
            List.GetRowText(row, 0, text, 260);
            rows += std::wstring(text) + L";";
        }
        return rows;
    }

    CVehicleListView List;
};

TEST_F(VehicleList, StandsInTheOrderOfItsTexts) {
    for (const wchar_t* name : {L"van", L"Zoë", L"Étoile", L"estate", L"Van"})
        StoreVehicle(name, 2007);
    ShowVehicles(List);
    EXPECT_EQ(Rows(), L"estate (2007);Étoile (2007);van (2007);Van (2007);Zoë (2007);");
    EXPECT_EQ(List.GetSelectedVehicle(), nullptr);
}

TEST_F(VehicleList, FindsTwinsByTheirReference) {
    StoreVehicle(L"Van", 2007);
    StoreVehicle(L"Van", 2007);
    ShowVehicles(List);
    const auto twins = RecordsOf<CVehicle>(List);
    ASSERT_EQ(twins.size(), 2U);
    for (CVehicle* vehicle : twins)
        EXPECT_EQ(List.FindVehicle(vehicle->GetRefID()), vehicle);
    EXPECT_EQ(List.FindVehicle(0), nullptr);
    EXPECT_EQ(List.FindVehicle(static_cast<ULONG>(twins[0]->GetID())), nullptr);
}

TEST_F(VehicleList, AnEditedVehicleMovesSelected) {
    for (const wchar_t* name : {L"a", L"b", L"c"})
        StoreVehicle(name, 1);
    ShowVehicles(List);
    CVehicle* vehicle = RecordsOf<CVehicle>(List)[0];
    vehicle->SetName(L"x");
    EXPECT_EQ(List.AddRow(vehicle, 1), 2);
    EXPECT_EQ(Rows(), L"b (1);c (1);x (1);");
    EXPECT_EQ(List.GetSelectedVehicle(), vehicle);
}

TEST_F(VehicleList, IsEmptyWithoutALoad) {
    StoreVehicle(L"b", 1);
    ShowVehicles(List);
    EXPECT_EQ(Rows(), L"b (1);");
    Layer.Disconnect();
    EXPECT_EQ(List.Reload(), 0);
    EXPECT_EQ(List.GetRowCount(), 0);
}

} // namespace
