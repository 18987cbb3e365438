#pragma once

#include "platform/list_view.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace device {

/// What a list view holds: rows, which of them are selected, which one has the focus, and what shows.
class ListViewRows {
public:
    struct Row {
        std::wstring Text() const;
        void SetText(std::wstring_view text);

        std::string utf8; ///< in which a date takes no memory beside the row
        std::unique_ptr<std::vector<std::wstring>> more; ///< cells of the columns behind the first
        int image = -1;
        bool selected = false;
    };

    /// How a key moves.
    enum class Move { Alone, Select, Extend };

    explicit ListViewRows(bool singleSelection)
        : single_(singleSelection) { }

    int Count() const { return static_cast<int>(order_.size()); }
    bool Has(int row) const { return row >= 0 && row < Count(); }
    Row& At(int row) { return rows_[order_[static_cast<std::size_t>(row)]]; }
    const Row& At(int row) const { return rows_[order_[static_cast<std::size_t>(row)]]; }
    /// What the program keeps with the row.
    LPARAM& DataAt(int row) { return data_[order_[static_cast<std::size_t>(row)]]; }
    LPARAM DataAt(int row) const { return data_[order_[static_cast<std::size_t>(row)]]; }
    /// Valid until the next change.
    LVROWS All() const { return {order_, data_}; }
    int SelectedCount() const { return selectedCount_; }
    /// -1: no row has the focus.
    int Focused() const { return focused_; }
    bool IsSelected(int row) const { return Has(row) && At(row).selected; }
    int FindData(LPARAM data, int after) const;
    /// The first row behind `after` with all of the LVNI_ flags; -1 when there is none.
    int Next(int after, UINT flags) const;
    std::wstring Cell(int row, int column) const;

    /// The row's index: `row` or, beyond the end, the end.
    int Insert(int row, Row added, LPARAM data);
    /// Where `text` belongs in rows kept in ascending order of their text (the locale's collation).
    int SortedPlace(const std::wstring& text) const;
    bool Remove(int row);
    void Clear();
    void SetCell(int row, int column, const std::wstring& text);
    /// `places` holds those of All() from the new top down. Focus and selection stay with their rows. False, and
    /// nothing happens, where a row is missing or twice there.
    bool SetOrder(std::span<const std::uint32_t> places);

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
    // Insertions, deletions and sorts move numbers; a row stays where it was stored.
    std::vector<Row> rows_;
    std::vector<LPARAM> data_; ///< beside rows_, since a program that goes through all rows asks for nothing else
    std::vector<std::uint32_t> order_; ///< places in rows_ from the top down
    std::vector<std::uint32_t> free_; ///< places of rows that were removed
    int selectedCount_ = 0;
    int focused_ = -1;
    int anchor_ = -1;
    int first_ = 0;
};

} // namespace device
