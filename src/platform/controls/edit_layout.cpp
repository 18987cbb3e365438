#include "platform/controls/edit_layout.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace device {

namespace {

/// A bare caret behind the last character still shows.
constexpr int CaretWidth = 2;

bool IsSame(const EditLayout::Frame& first, const EditLayout::Frame& second) {
    return first.measurer == second.measurer && first.font == second.font && first.client.cx == second.client.cx
        && first.client.cy == second.client.cy && first.padding == second.padding && first.lines == second.lines;
}

int TextWidth(const EditLayout::Frame& frame) {
    return std::max(1, static_cast<int>(frame.client.cx) - 2 * frame.padding - CaretWidth);
}

int LineHeightOf(const EditLayout::Frame& frame) {
    return std::max(1, frame.measurer->Metrics(frame.font).Height());
}

int LinesShownIn(const EditLayout::Frame& frame) {
    return std::max(1, (static_cast<int>(frame.client.cy) - 2 * frame.padding) / LineHeightOf(frame));
}

} // namespace

void EditLayout::Update(const Frame& frame, const std::wstring& text) {
    if (!lines_.empty() && IsSame(frame, frame_) && text == text_)
        return;
    frame_ = frame;
    if (!frame_.lines)
        lines_.assign(1, TextLine{0, text.size(), text.size()});
    else
        lines_ = BreakLines(*frame_.measurer, frame_.font, text, TextWidth(frame_));
    text_ = text;
    ScrollBy(0);
}

bool EditLayout::FitsIn(const Frame& frame, std::wstring_view text) {
    LineBreaker breaker(*frame.measurer, frame.font, text, TextWidth(frame));
    TextLine line;
    for (int rest = LinesShownIn(frame); rest > 0; --rest) {
        line = breaker.Next(line.next);
        if (breaker.IsLast(line))
            return true;
    }
    return false;
}

int EditLayout::LineHeight() const {
    return LineHeightOf(frame_);
}

int EditLayout::LinesShown() const {
    return LinesShownIn(frame_);
}

std::size_t EditLayout::LineOf(std::size_t index) const {
    const auto after = std::upper_bound(lines_.begin(), lines_.end(), index,
        [](std::size_t value, const TextLine& line) { return value < line.start; });
    return after == lines_.begin() ? 0 : static_cast<std::size_t>(after - lines_.begin()) - 1;
}

POINT EditLayout::LinePlace(std::size_t line) const {
    if (!frame_.lines)
        return {frame_.padding - scrollX_, (frame_.client.cy - LineHeight()) / 2};
    return {frame_.padding, frame_.padding + (static_cast<int>(line) - firstLine_) * LineHeight()};
}

std::wstring_view EditLayout::LineText(std::size_t line) const {
    return std::wstring_view(text_).substr(lines_[line].start, lines_[line].end - lines_[line].start);
}

int EditLayout::CaretX(std::size_t line, std::size_t index) const {
    const std::size_t within = std::clamp(index, lines_[line].start, lines_[line].end) - lines_[line].start;
    return static_cast<int>(LinePlace(line).x) + frame_.measurer->CaretX(frame_.font, LineText(line), within);
}

RECT EditLayout::SelectionPlace(std::size_t line, std::size_t start, std::size_t end) const {
    const TextLine& place = lines_[line];
    start = std::max(start, place.start);
    end = std::min(end, place.end);
    if (start >= end)
        return {};
    const int first = CaretX(line, start);
    const int last = CaretX(line, end);
    const LONG top = LinePlace(line).y;
    return {std::min(first, last), top, std::max(first, last), top + LineHeight()};
}

std::size_t EditLayout::IndexInLine(std::size_t line, int x) const {
    const std::wstring_view text = LineText(line);
    const std::vector<double> widths = frame_.measurer->PrefixWidths(frame_.font, text);
    const int place = std::clamp(x - static_cast<int>(LinePlace(line).x), 0, static_cast<int>(widths.back()));
    std::size_t best = 0;
    int distance = std::numeric_limits<int>::max();
    const auto consider = [&](std::size_t index) {
        const int caret = frame_.measurer->CaretX(frame_.font, text, index);
        if (std::abs(caret - place) < distance) {
            distance = std::abs(caret - place);
            best = index;
        }
        return std::abs(caret - widths[index]) <= 1;
    };
    // Where text runs from left to right the carets stand as the widths say, and not all of them have to be asked for.
    const auto beyond = std::upper_bound(widths.begin() + 1, widths.end(), place);
    const std::size_t after = NextTextBoundary(text, static_cast<std::size_t>(beyond - widths.begin()) - 1);
    const std::size_t before = PreviousTextBoundary(text, after);
    const bool isForward = consider(before) && consider(after);
    for (std::size_t index = 0; !isForward && index < text.size(); index = NextTextBoundary(text, index))
        consider(index);
    if (!isForward)
        consider(text.size());
    return std::min(lines_[line].start + best, LineEnd(line));
}

std::size_t EditLayout::LineEnd(std::size_t line) const {
    const TextLine& place = lines_[line];
    // A word that was broken goes on at once: behind its last character the caret is on the next line already.
    const bool broken = line + 1 < lines_.size() && place.next == place.end && place.end > place.start;
    return broken ? place.start + PreviousTextBoundary(LineText(line), place.end - place.start) : place.end;
}

std::size_t EditLayout::IndexAt(POINT point) const {
    const int row = frame_.lines ? firstLine_ + (static_cast<int>(point.y) - frame_.padding) / LineHeight() : 0;
    const int last = static_cast<int>(lines_.size()) - 1;
    return IndexInLine(static_cast<std::size_t>(std::clamp(row, 0, last)), static_cast<int>(point.x));
}

void EditLayout::ScrollToStart() {
    scrollX_ = 0;
    firstLine_ = 0;
}

void EditLayout::ShowCaret(std::size_t caret) {
    if (lines_.empty())
        return;
    const std::size_t line = LineOf(caret);
    if (frame_.lines) {
        const int row = static_cast<int>(line);
        firstLine_ = std::clamp(firstLine_, row - LinesShown() + 1, row);
        ScrollBy(0);
        return;
    }
    const int x = CaretX(0, caret) + scrollX_ - frame_.padding;
    const int width = TextWidth(frame_);
    scrollX_ = std::clamp(scrollX_, x - width, x);
    // A text that became shorter leaves no room unused on the right.
    const int most = std::max(0, frame_.measurer->Width(frame_.font, text_) - width);
    scrollX_ = std::clamp(scrollX_, 0, most);
}

void EditLayout::ScrollBy(int lines) {
    firstLine_ = std::clamp(firstLine_ + lines, 0, std::max(0, static_cast<int>(lines_.size()) - LinesShown()));
}

} // namespace device
