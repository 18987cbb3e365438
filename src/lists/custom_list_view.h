#pragma once

#include "platform/drawing.h"
#include "platform/list_view.h"
#include "platform/window_object.h"
#include "records/object_list.h"

#include <functional>

/// What all lists of the program share: a list view in report view with icons in the screen's size, a text in place of
/// an empty list, and rows that point to records. The records belong to the descendants.
class CCustomListView : public CWindowImpl {
public:
    CCustomListView();
    ~CCustomListView() override;

    /// One row, for a list that draws its rows itself.
    virtual void DrawItem(const DRAWITEMSTRUCT* /*request*/) { }
    /// Sets itemHeight, for a list that draws its rows itself.
    virtual void MeasureItem(MEASUREITEMSTRUCT* /*request*/) { }

    // Rows. A row or column that is not there makes the operation fail.

    /// Copies at most `size` - 1 characters and a NUL; returns the number of characters.
    int GetRowText(int row, int column, wchar_t* buffer, int size) const;
    /// The record of a row, as it was given; 0 without one.
    LPARAM GetRowData(int row) const;
    bool SetCellText(int row, int column, const wchar_t* text);
    /// Returns the index that the row got, or -1. In a sorted list that is not `row`. `data` is the row's record.
    int InsertRow(int row, const wchar_t* text, int image, LPARAM data = 0);
    bool DeleteRow(int row);
    bool SetRowData(int row, LPARAM data);
    /// The row of a record goes; the record stays. False when it has none.
    bool RemoveRow(const CBaseObject* record);
    /// The index of the row with this record, or -1.
    int FindRowByData(LPARAM data) const;
    int GetRowCount() const;

    /// `state` and `mask` are made of LVIS_FOCUSED and LVIS_SELECTED.
    bool SetRowState(int row, UINT state, UINT mask);
    /// Selects and focuses a row and, if that succeeds, brings it into view.
    void SelectRow(int row);
    /// The first selected row behind `after`, or -1; -1 begins at the top.
    int GetNextSelected(int after) const;
    void ClearSelection();

    // Columns and layout.

    /// `format` is LVCFMT_LEFT or LVCFMT_RIGHT. Returns the index of the column, or -1.
    int InsertColumn(int index, const wchar_t* heading, int format, int width);
    /// Gives a column all the width that the others leave.
    void FitColumn(int column);
    /// Makes the control ask for its row height again, which it does when it is resized.
    void RemeasureRows();

protected:
    static constexpr UINT SelectedAndFocused = LVIS_FOCUSED | LVIS_SELECTED;

    LRESULT ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    /// The control has its new size, which its columns are to fit.
    virtual void OnSize() = 0;

    /// An icon of the program at the end of the image list.
    void AddIcon(UINT id);
    /// Null when the device could not make one: the rows then have no icon.
    HIMAGELIST GetImageList() const { return imageList_; }
    void UseImageList();
    void SetExtendedStyle(DWORD style);
    void RemoveHorizontalScrollBar();
    void FitColumnToHeader();
    void RedrawAll();
    /// Empties `records` and the list, and fills both anew; `load` gives 0 for a failure. Half a list would pass for a
    /// whole one: where memory runs out both are empty, and the user is told.
    int Fill(CObjectList& records, const std::function<int()>& load, const std::function<void()>& addRows);
    void Empty(CObjectList& records);
    /// Drawing is off during a bulk change, and at its end all is drawn anew.
    class CRedrawPause {
    public:
        explicit CRedrawPause(CCustomListView& list);
        CRedrawPause(const CRedrawPause&) = delete;
        CRedrawPause& operator=(const CRedrawPause&) = delete;
        ~CRedrawPause();

    private:
        CCustomListView& list_;
    };
    /// The text of an empty list stands in its middle, wherever that is now.
    void RedrawIfEmpty();

private:
    bool DrawEmptyText(HDC context) const;
    bool DispatchReflected(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    HIMAGELIST imageList_;
};
