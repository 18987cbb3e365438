#include "list_device.h"
#include "lists/entry_order.h"
#include "platform/metrics.h"

#include <algorithm>

namespace {

constexpr auto Repair = CEntry::EntryTypeRepair;
constexpr auto Expense = CEntry::EntryTypeExpense;

using RecordLists = ListDevice;

template <typename Record> std::wstring NamesIn(const CCustomListView& list) {
    std::wstring names;
    for (const Record* record : RecordsOf<Record>(list))
        names += record->GetName() + std::wstring(L";");
    return names;
}

TEST_F(RecordLists, EntriesAreSortedByTheSettings) {
    Store(40002, Repair, L"b", 30, 2);
    Store(40001, Expense, L"D", 10, 5);
    Store(40001, Repair, L"a", 20, 9);
    Store(40003, Repair, L"c", 10, 2);
    Store(40004, Repair, L"\u00C92", 40, 4);
    Store(40004, Repair, L"\u00E91", 50, 3);
    CEntryListView list;
    ShowEntries(list);
    const std::tuple<int, int, const wchar_t*> cases[] = {{SortColumnDate, 1, L"a;D;b;c;\u00E91;\u00C92;"},
        {SortColumnDate, 0, L"\u00C92;\u00E91;c;b;D;a;"}, {SortColumnDescription, 1, L"a;b;c;D;\u00E91;\u00C92;"},
        {SortColumnOdometer, 1, L"c;D;a;b;\u00C92;\u00E91;"},
        {SortColumnAmount, 0, L"a;D;\u00C92;\u00E91;b;c;"}, // the last two, which are equal, as loaded
        {7, 1, L"D;a;b;c;\u00C92;\u00E91;"}}; // as loaded
    for (const auto& [column, ascending, names] : cases) {
        theSettings.LastColSorted = column;
        theSettings.SortAscending = ascending;
        list.Refresh(&Filter);
        EXPECT_EQ(NamesIn<CEntry>(list), names);
    }
}

TEST_F(RecordLists, ANewEntryStandsWhereASortWouldPutIt) {
    for (int day = 0; day < 9; ++day)
        Store(40000 + (day % 3), Repair, day % 2 == 0 ? L"b" : L"d", 10 * (day % 4), static_cast<float>(day % 2));
    CEntryListView list;
    ShowEntries(list);
    std::vector<std::tuple<int, int, int>> cases;
    for (const int column : {0, 1, 2, 3, 7})
        for (const int ascending : {1, 0})
            for (int at = -1; at <= 3; ++at) // before all rows, among them, behind them
                cases.emplace_back(column, ascending, at);
    for (const auto& [column, ascending, at] : cases) {
        theSettings.LastColSorted = column;
        theSettings.SortAscending = ascending;
        list.Refresh(&Filter);
        auto added = std::make_unique<CEntry>();
        added->SetDate(40000 + at);
        added->SetType(Repair);
        added->SetName(std::wstring(1, L"abcde"[at + 1]).c_str());
        added->SetOdometer(10 * at);
        added->SetAmount(static_cast<float>(at));
        auto rows = RecordsOf<const CEntry>(list);
        rows.push_back(added.get());
        std::vector<const CEntry*> sorted;
        for (const int row : OrderEntries(column, rows))
            sorted.push_back(rows[static_cast<std::size_t>(row)]);
        list.AddEntry(added.release());
        EXPECT_EQ(RecordsOf<const CEntry>(list), sorted) << column << " " << ascending << " " << at;
    }
}

TEST_F(RecordLists, AnEditedEntryMovesToItsPlaceSelected) {
    for (int day = 0; day < 40; ++day)
        Store(40000 + day, Repair, (std::to_wstring(day) + L"th").c_str());
    CEntryListView list;
    ShowEntries(list);
    CEntry* entry = RecordsOf<CEntry>(list)[0];
    entry->SetDate(40038.5);
    EXPECT_EQ(list.AddRow(entry, 1), 39) << "before the sort it stood at the end";
    EXPECT_EQ(RecordsOf<CEntry>(list)[38], entry);
    CObjectList selected;
    EXPECT_EQ(list.GetSelectedEntries(&selected), 1);
    EXPECT_EQ(selected.GetItem(0), entry);
    Host.Pump();
    EXPECT_TRUE(Shows(L" 0th ")) << "it is in view";
    const auto& texts = Host.canvas.Texts();
    const auto isHighlighted = [](const auto& text) { return text.color == GetSysColor(COLOR_HIGHLIGHTTEXT); };
    EXPECT_EQ(std::count_if(texts.begin(), texts.end(), isHighlighted), 4) << "the texts of one row";
    CEntry stranger;
    EXPECT_EQ(list.AddRow(&stranger, 1), -1);
    theSettings.LastColSorted = SortColumnNone;
    entry->SetDate(1);
    list.AddRow(entry, 1);
    EXPECT_EQ(RecordsOf<CEntry>(list)[39], entry) << "without an order it stays at the bottom";
}

TEST_F(RecordLists, VehiclesStandInTheOrderOfTheirTextsAndAnEditedOneMovesSelected) {
    for (const wchar_t* name : {L"van", L"Zoë", L"Étoile", L"estate", L"Van"}) {
        CVehicle vehicle;
        vehicle.SetName(name);
        EXPECT_TRUE(Layer.Save(&vehicle, 0));
    }
    CVehicleListView list;
    Show(list, 0x5000C01D);
    list.InitColumns();
    EXPECT_EQ(NamesIn<CVehicle>(list), L"estate;Étoile;van;Van;Zoë;");
    EXPECT_EQ(list.GetSelectedVehicle(), nullptr);
    CVehicle* vehicle = RecordsOf<CVehicle>(list)[0];
    vehicle->SetName(L"x");
    EXPECT_EQ(list.AddRow(vehicle, 1), 3);
    EXPECT_EQ(NamesIn<CVehicle>(list), L"Étoile;van;Van;x;Zoë;");
    EXPECT_EQ(list.GetSelectedVehicle(), vehicle);
    CVehicle stranger;
    EXPECT_EQ(list.AddRow(&stranger, 1), -1);
    Layer.Disconnect();
    EXPECT_EQ(list.Reload(), 0);
    EXPECT_EQ(list.GetRowCount(), 0);
}

TEST_F(RecordLists, FontsHaveTheHeightOfTheTextSize) {
    DWORD automatic = 0;
    SHGetUIMetrics(2, &automatic, sizeof automatic, nullptr);
    for (const auto& [textSize, height] :
        {std::pair{1, -13L}, {2, -16L}, {3, -18L}, {5, -13L}, {0, -static_cast<LONG>(automatic)}}) {
        theSettings.TextSize = textSize;
        CreateAppFonts();
        LOGFONTW made;
        ASSERT_NE(GetObjectW(BoldTextFont, sizeof made, &made), 0);
        EXPECT_EQ(made.lfHeight, height) << textSize;
    }
}

} // namespace
