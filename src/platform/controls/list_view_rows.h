#pragma once

#include "platform/list_view.h"

#include <span>
#include <string>
#include <vector>

namespace device {

/// What a list view holds: rows, which of them are selected, which one has the focus, and what shows.
class ListViewRows {
public:
    struct Row {
        const wchar_t* Text() const { return cells.empty() ? L"" : cells.front().c_str(); }

        LPARAM data = 0; ///< what the program keeps with the row
        int image = -1;
        bool selected = false;
        std::vector<std::wstring> cells; ///< by column, as far as there are texts
    };

    /// How a key moves.
    enum class Move { Alone, Select, Extend };

    explicit ListViewRows(bool singleSelection)
        : single_(singleSelection) { }

    int Count() const { return static_cast<int>(rows_.size()); }
    bool Has(int row) const { return row >= 0 && row < Count(); }
    Row& At(int row) { return rows_[static_cast<std::size_t>(row)]; }
    const Row& At(int row) const { return rows_[static_cast<std::size_t>(row)]; }
    int SelectedCount() const { return selectedCount_; }
    /// -1: no row has the focus.
    int Focused() const { return focused_; }
    bool IsSelected(int row) const { return Has(row) && At(row).selected; }
    int FindData(LPARAM data, int after) const;
    /// The first row behind `after`, with LVNI_SELECTED the first selected one; -1 when there is none.
    int Next(int after, UINT flags) const;
    /// Valid until the next change.
    const std::wstring& Cell(int row, int column) const;

    /// The row's index: `row` or, beyond the end, the end.
    int Insert(int row, Row added);
    /// Where `text` belongs in rows kept in ascending order of their text (the locale's collation).
    int SortedPlace(const std::wstring& text) const;
    bool Remove(int row);
    void Clear();
    void SetCell(int row, int column, const std::wstring& text);
    /// `order` holds the rows' indexes from the new top down. Focus and selection stay with their rows. False, and
    /// nothing happens, where a row is missing or twice there.
    bool SetOrder(std::span<const int> order);

    void SetState(int row, UINT state, UINT mask);
    void SelectAll();
    /// Turns over the selection of the row that has the focus.
    void ToggleFocused();
    /// Moves the focus by `step` rows (clipped to the ends). The first move in a list without a focus takes the first
    /// row; where nothing is selected, as after a deletion, it selects the row that has the focus.
    void MoveBy(int step, Move move);
    void MoveTo(int row, Move move);
    /// The next row whose text begins with a character, ignoring case; -1 when there is none.
    int TypeAhead(wchar_t character) const;

    // Scrolling by whole rows
    int First() const { return first_; }
    /// Puts `first` at the top as far as `shown` rows fill the list.
    void ScrollTo(int first, int shown);
    void EnsureVisible(int row, int shown);

private:
    void SetSelected(int row, bool selected);
    void SelectOnly(int from, int to);

    bool single_;
    std::vector<Row> rows_; ///< from the top down
    int selectedCount_ = 0;
    int focused_ = -1;
    int anchor_ = -1;
    int first_ = 0;
};

} // namespace device
