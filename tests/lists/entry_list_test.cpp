#include "list_device.h"
#include "lists/compare_entries.h"
#include "platform/input.h"

namespace {

constexpr auto Fuel = CEntry::EntryTypeFuel;
constexpr auto Repair = CEntry::EntryTypeRepair;
constexpr auto Expense = CEntry::EntryTypeExpense;

class EntryList : public ListDevice {
protected:
    std::wstring Names() const {
        std::wstring names;
        for (const CEntry* entry : RecordsOf<CEntry>(List))
            names += entry->GetName();
        return names;
    }
    int Selected(CObjectList& list) const { return List.GetSelectedEntries(&list); }
    void SetSort(int column, int ascending) {
        theSettings.LastColSorted = column;
        theSettings.SortAscending = ascending;
        List.Refresh(&Filter);
    }

    CEntryListView List;
};

TEST_F(EntryList, IsSortedByTheSettings) {
    Store(40002, Repair, L"b", 30, 1);
    Store(40001, Expense, L"D", 10, 5);
    Store(40001, Repair, L"a", 20, 9);
    Store(40003, Repair, L"c", 10, 2);
    ShowEntries(List);
    const std::tuple<int, int, const wchar_t*> cases[]
        = {{SortColumnDate, 1, L"aDbc"}, {SortColumnDate, 0, L"cbDa"}, {SortColumnDescription, 1, L"abcD"},
            {SortColumnOdometer, 1, L"cDab"}, {SortColumnAmount, 0, L"aDcb"}, {7, 1, L"Dabc"}}; // as loaded
    for (const auto& [column, ascending, names] : cases) {
        SetSort(column, ascending);
        EXPECT_EQ(Names(), names);
    }
}

TEST_F(EntryList, DrawsTwoLinesWithTheFiguresWhole) {
    const auto entry = Store(39467, Fuel, L"", 1550, 31, std::wstring(5000, L'v').c_str());
    entry->SetCustom1(10);
    entry->SetCustom2(3.1F);
    Layer.Save(entry.get(), 0);
    Store(39468, Repair, L"Öl 🚗 שלום", -5, -3.75F);
    ShowEntries(List);
    const device::PaintedText* date = Painted(L"1/20/2008");
    const device::PaintedText* odometer = Painted(L"1,550");
    const device::PaintedText* amount = Painted(L"$31.00");
    const device::PaintedText* description = Painted(L"10.00 gal @ $3.10");
    ASSERT_TRUE(date && odometer && amount && description);
    EXPECT_EQ(description->text.back(), L'…');
    EXPECT_LT(description->place.right, amount->place.left);
    EXPECT_EQ(odometer->place.right, amount->place.right);
    EXPECT_EQ(date->place.left, description->place.left);
    EXPECT_LE(date->place.bottom, description->place.top + 1);
    EXPECT_TRUE(Painted(L"-$3.00"));
    EXPECT_TRUE(date->marks.selected) << "the first row has the focus";
    EXPECT_EQ(date->color, GetSysColor(COLOR_HIGHLIGHTTEXT));
    EXPECT_EQ(Painted(L"Öl 🚗 שלום")->color, GetSysColor(COLOR_WINDOWTEXT));
}

TEST_F(EntryList, AnEditedEntryMovesToItsPlaceSelected) {
    for (int day = 0; day < 40; ++day)
        Store(40000 + day, Repair, std::to_wstring(day).c_str());
    ShowEntries(List);
    CEntry* entry = RecordsOf<CEntry>(List)[0];
    entry->SetDate(40038.5);
    EXPECT_EQ(List.AddRow(entry, 1), 39) << "before the sort it stood at the end";
    EXPECT_EQ(RecordsOf<CEntry>(List)[38], entry);
    CObjectList selected;
    EXPECT_EQ(Selected(selected), 1);
    EXPECT_EQ(selected.GetItem(0), entry);
    EXPECT_TRUE(Painted(L"0")) << "it is in view";
    CEntry stranger;
    EXPECT_EQ(List.AddRow(&stranger, 1), -1);
    theSettings.LastColSorted = SortColumnNone;
    entry->SetDate(1);
    List.AddRow(entry, 1);
    EXPECT_EQ(RecordsOf<CEntry>(List)[39], entry) << "without an order it stays at the bottom";
}

TEST_F(EntryList, IsEmptyWithoutAFilterOrALoad) {
    Store(40000, Repair, L"a");
    ShowEntries(List);
    EXPECT_EQ(List.GetRowCount(), 1);
    List.Refresh(nullptr);
    EXPECT_EQ(List.GetRowCount(), 0);
    List.Refresh(&Filter);
    Layer.Disconnect();
    List.Refresh(&Filter);
    EXPECT_EQ(List.GetRowCount(), 0);
}

} // namespace
