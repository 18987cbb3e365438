#include "platform/controls/list_view_rows.h"

#include "platform/controls/collation.h"

#include <algorithm>
#include <utility>

namespace device {

int ListViewRows::FindData(LPARAM data, int after) const {
    for (int row = std::max(after, -1) + 1; row < Count(); ++row)
        if (At(row).data == data)
            return row;
    return -1;
}

int ListViewRows::Next(int after, UINT flags) const {
    if ((flags & LVNI_SELECTED) != 0 && selectedCount_ == 0)
        return -1;
    for (int row = std::max(after, -1) + 1; row < Count(); ++row)
        if ((flags & LVNI_SELECTED) == 0 || At(row).selected)
            return row;
    return -1;
}

const std::wstring& ListViewRows::Cell(int row, int column) const {
    static const std::wstring& none = *new std::wstring;
    const auto index = static_cast<std::size_t>(column);
    return Has(row) && index < At(row).cells.size() ? At(row).cells[index] : none;
}

int ListViewRows::Insert(int row, Row added) {
    row = std::clamp(row, 0, Count());
    rows_.insert(rows_.begin() + row, std::move(added));
    if (focused_ >= row)
        ++focused_;
    if (anchor_ >= row)
        ++anchor_;
    return row;
}

int ListViewRows::SortedPlace(const std::wstring& text) const {
    const auto place = std::upper_bound(rows_.begin(), rows_.end(), text,
        [](const std::wstring& added, const Row& other) { return IsBefore(added, other.Text()); });
    return static_cast<int>(place - rows_.begin());
}

bool ListViewRows::Remove(int row) {
    if (!Has(row))
        return false;
    SetSelected(row, false);
    rows_.erase(rows_.begin() + row);
    // The focus stays in its place: the row that took the place of a deleted one has it then.
    if (focused_ > row)
        --focused_;
    if (focused_ >= Count())
        focused_ = Count() - 1;
    if (anchor_ >= row)
        anchor_ = focused_;
    return true;
}

void ListViewRows::Clear() {
    rows_.clear();
    selectedCount_ = 0;
    focused_ = anchor_ = -1;
    first_ = 0;
}

void ListViewRows::SetCell(int row, int column, const std::wstring& text) {
    if (!Has(row) || column < 0)
        return;
    auto& cells = At(row).cells;
    const auto index = static_cast<std::size_t>(column);
    if (cells.size() <= index)
        cells.resize(index + 1);
    cells[index] = text;
}

bool ListViewRows::SetOrder(std::span<const int> order) {
    std::vector<char> isMissing(rows_.size(), 1);
    for (const int row : order)
        if (!Has(row) || !std::exchange(isMissing[static_cast<std::size_t>(row)], 0))
            return false;
    if (order.size() != rows_.size())
        return false;
    if (Has(focused_))
        focused_ = static_cast<int>(std::find(order.begin(), order.end(), focused_) - order.begin());
    anchor_ = focused_;
    std::vector<Row> ordered;
    ordered.reserve(rows_.size());
    for (const int row : order)
        ordered.push_back(std::move(rows_[static_cast<std::size_t>(row)]));
    rows_ = std::move(ordered);
    return true;
}

void ListViewRows::SetSelected(int row, bool selected) {
    Row& changed = At(row);
    if (changed.selected == selected)
        return;
    changed.selected = selected;
    selectedCount_ += selected ? 1 : -1;
}

void ListViewRows::SelectOnly(int from, int to) {
    if (selectedCount_ > 0)
        for (int row = 0; row < Count(); ++row)
            SetSelected(row, false);
    for (int row = std::min(from, to); row <= std::max(from, to); ++row)
        SetSelected(row, true);
}

void ListViewRows::SetState(int row, UINT state, UINT mask) {
    if (!Has(row))
        return;
    if ((mask & LVIS_SELECTED) != 0) {
        const bool select = (state & LVIS_SELECTED) != 0;
        if (select && single_)
            SelectOnly(row, row);
        else
            SetSelected(row, select);
        if (select)
            anchor_ = row;
    }
    if ((mask & LVIS_FOCUSED) != 0) {
        if ((state & LVIS_FOCUSED) != 0)
            focused_ = row;
        else if (focused_ == row)
            focused_ = -1;
    }
}

void ListViewRows::SelectAll() {
    if (single_)
        return;
    for (int row = 0; row < Count(); ++row)
        SetSelected(row, true);
    if (focused_ < 0 && Count() > 0)
        focused_ = 0;
}

void ListViewRows::ToggleFocused() {
    if (!Has(focused_))
        return;
    if (single_)
        SelectOnly(focused_, focused_);
    else
        SetSelected(focused_, !At(focused_).selected);
    anchor_ = focused_;
}

void ListViewRows::MoveBy(int step, Move move) {
    if (Count() == 0)
        return;
    if (!Has(focused_))
        MoveTo(0, move);
    else if (move == Move::Select && selectedCount_ == 0)
        MoveTo(focused_, move);
    else
        MoveTo(std::clamp(focused_ + step, 0, Count() - 1), move);
}

void ListViewRows::MoveTo(int row, Move move) {
    if (!Has(row))
        return;
    focused_ = row;
    if (single_)
        move = Move::Select;
    switch (move) {
    case Move::Alone:
        break;
    case Move::Select:
        SelectOnly(row, row);
        anchor_ = row;
        break;
    case Move::Extend:
        if (!Has(anchor_))
            anchor_ = row;
        SelectOnly(anchor_, row);
        break;
    }
}

int ListViewRows::TypeAhead(wchar_t character) const {
    return NextBeginningWith(character, Count(), focused_, [this](int row) { return At(row).Text(); });
}

void ListViewRows::ScrollTo(int first, int shown) {
    first_ = std::clamp(first, 0, std::max(0, Count() - shown));
}

void ListViewRows::EnsureVisible(int row, int shown) {
    if (!Has(row))
        return;
    int first = first_;
    if (row >= first + shown)
        first = row - shown + 1;
    if (row < first)
        first = row;
    ScrollTo(first, shown);
}

} // namespace device
