#pragma once

#include "lists/custom_list_view.h"
#include "records/entry.h"
#include "records/object_list.h"

class CEntryFilter;

/// The log of a vehicle as far as a filter lets it through: rows of two lines, in the order that the settings name.
/// Several rows can be selected.
class CEntryListView final : public CCustomListView {
public:
    /// Column and icons; called once, when the control exists.
    void InitColumns();
    /// Empties the list and, with a filter, loads it anew; the former records are destroyed. A failed load leaves the
    /// list empty.
    void Refresh(CEntryFilter* filter);

    /// A row for an entry of this list, at the end. With `update` its former row goes, and the new one is sorted in,
    /// selected and in view. Returns the row's index before the sort, -1 for an update of an entry without a row.
    int AddRow(CEntry* entry, int update);
    /// Takes a new record over and shows it selected, alone, in its place.
    void AddEntry(CEntry* entry);
    /// By a SortColumn, which the settings keep; -1 is the one that they hold.
    void SortRows(int column);

    /// The number of selected rows. Their records are added to `list`, from the top row down; they stay this list's.
    int GetSelectedEntries(CObjectList* list) const;
    /// The records stay until the next Refresh.
    void DeleteSelectedRows();

    void DrawItem(const DRAWITEMSTRUCT* request) override;
    void MeasureItem(MEASUREITEMSTRUCT* request) override;

protected:
    void OnSize() override;

private:
    int AppendRow(CEntry* entry);
    int AppendChosenRow(CEntry* entry);
    CEntry* GetRowEntry(int row) const;
    void DrawIcon(const DRAWITEMSTRUCT& request, int image) const;

    CObjectListT<CEntry> entries_;
};
