#include "platform/controls/list_view_rows.h"

#include "platform/locale.h"
#include "platform/system/utf8.h"

#include <algorithm>

namespace device {

namespace {

constexpr std::size_t MostBytes = 4; ///< of a character

} // namespace

std::wstring ListViewRows::Row::Text() const {
    return FromUtf8(utf8);
}

void ListViewRows::Row::SetText(std::wstring_view text) {
    utf8.resize(text.size());
    wchar_t all = 0;
    for (std::size_t place = 0; place < text.size(); ++place) {
        all |= text[place];
        utf8[place] = static_cast<char>(text[place]);
    }
    if (static_cast<std::uint32_t>(all) >= 0x80)
        utf8 = ToUtf8(text);
}

int ListViewRows::FindData(LPARAM data, int after) const {
    for (int row = std::max(after, -1) + 1; row < Count(); ++row) {
        if (DataAt(row) == data)
            return row;
    }
    return -1;
}

int ListViewRows::Next(int after, UINT flags) const {
    if ((flags & LVNI_SELECTED) != 0 && selectedCount_ == 0)
        return -1;
    for (int row = std::max(after, -1) + 1; row < Count(); ++row) {
        const bool selected = (flags & LVNI_SELECTED) == 0 || At(row).selected;
        const bool focused = (flags & LVNI_FOCUSED) == 0 || row == focused_;
        if (selected && focused)
            return row;
    }
    return -1;
}

std::wstring ListViewRows::Cell(int row, int column) const {
    if (!Has(row) || column < 0)
        return {};
    if (column == 0)
        return At(row).Text();
    const auto& more = At(row).more;
    const auto index = static_cast<std::size_t>(column) - 1;
    return more && index < more->size() ? (*more)[index] : std::wstring();
}

int ListViewRows::Insert(int row, Row added, LPARAM data) {
    row = std::clamp(row, 0, Count());
    auto place = static_cast<std::uint32_t>(rows_.size());
    if (free_.empty()) {
        rows_.push_back(std::move(added));
        data_.push_back(data);
    } else {
        place = free_.back();
        free_.pop_back();
        rows_[place] = std::move(added);
        data_[place] = data;
    }
    order_.insert(order_.begin() + row, place);
    if (focused_ >= row)
        ++focused_;
    if (anchor_ >= row)
        ++anchor_;
    return row;
}

int ListViewRows::SortedPlace(const std::wstring& text) const {
    const auto place
        = std::upper_bound(order_.begin(), order_.end(), text, [this](const std::wstring& added, std::uint32_t other) {
              const int order = CompareStringW(
                  LOCALE_USER_DEFAULT, NORM_IGNORECASE, added.c_str(), -1, rows_[other].Text().c_str(), -1);
              return order != 0 && order < CSTR_EQUAL;
          });
    return static_cast<int>(place - order_.begin());
}

bool ListViewRows::Remove(int row) {
    if (!Has(row))
        return false;
    SetSelected(row, false);
    const auto position = order_.begin() + row;
    rows_[*position] = {};
    data_[*position] = 0;
    free_.push_back(*position);
    order_.erase(position);
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
    data_.clear();
    order_.clear();
    free_.clear();
    selectedCount_ = 0;
    focused_ = anchor_ = -1;
    first_ = 0;
}

void ListViewRows::SetCell(int row, int column, const std::wstring& text) {
    if (!Has(row) || column < 0)
        return;
    if (column == 0) {
        At(row).SetText(text);
        return;
    }
    auto& more = At(row).more;
    if (!more)
        more = std::make_unique<std::vector<std::wstring>>();
    if (more->size() < static_cast<std::size_t>(column))
        more->resize(static_cast<std::size_t>(column));
    (*more)[static_cast<std::size_t>(column) - 1] = text;
}

bool ListViewRows::SetOrder(std::span<const std::uint32_t> places) {
    if (places.size() != order_.size())
        return false;
    std::vector<char> isMissing(rows_.size());
    for (const std::uint32_t place : order_)
        isMissing[place] = 1;
    for (const std::uint32_t place : places) {
        if (place >= isMissing.size() || !isMissing[place])
            return false;
        isMissing[place] = 0;
    }
    if (Has(focused_)) {
        const std::uint32_t place = order_[static_cast<std::size_t>(focused_)];
        focused_ = static_cast<int>(std::find(places.begin(), places.end(), place) - places.begin());
    }
    anchor_ = focused_;
    order_.assign(places.begin(), places.end());
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
    if (selectedCount_ > 0) {
        for (int row = 0; row < Count(); ++row)
            SetSelected(row, false);
    }
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
    wchar_t wanted[2] = {character, 0};
    CharLowerW(wanted);
    for (int tried = 1; tried <= Count(); ++tried) {
        const int row = (std::max(focused_, -1) + tried) % Count();
        wchar_t first[2] = {FromUtf8(std::string_view(At(row).utf8).substr(0, MostBytes)).c_str()[0], 0};
        CharLowerW(first);
        if (first[0] != 0 && first[0] == wanted[0])
            return row;
    }
    return -1;
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
