#include "platform/controls/date_parts.h"

#include <algorithm>
#include <chrono>

namespace device {

namespace {

constexpr int FirstYear = 1601;
constexpr int LastYear = 9999;
constexpr int LastMonth = 12;
constexpr int LongestMonth = 31;

std::chrono::year_month_day CalendarDay(const SYSTEMTIME& date) {
    return {std::chrono::year(date.wYear), std::chrono::month(date.wMonth), std::chrono::day(date.wDay)};
}

int LastDay(const SYSTEMTIME& date) {
    const std::chrono::year_month_day_last last{
        std::chrono::year(date.wYear), std::chrono::month_day_last(std::chrono::month(date.wMonth))};
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

int DigitsOf(ShortDatePart::Kind kind) {
    return kind == ShortDatePart::Kind::Year ? 4 : 2;
}

} // namespace

bool DateParts::Set(const SYSTEMTIME& date) {
    if (date.wYear < FirstYear || date.wYear > LastYear || !CalendarDay(date).ok())
        return false;
    date_ = date;
    typed_ = typedDigits_ = wantedDay_ = 0;
    return true;
}

SYSTEMTIME DateParts::Get() const {
    DateParts settled = *this;
    settled.Settle();
    SYSTEMTIME date = settled.date_;
    const std::chrono::weekday day{std::chrono::sys_days(CalendarDay(date))};
    date.wDayOfWeek = static_cast<WORD>(day.c_encoding());
    return date;
}

int DateParts::CountParts() const {
    return static_cast<int>(std::count_if(
        order_.begin(), order_.end(), [](const ShortDatePart& part) { return part.kind != Kind::Literal; }));
}

DateParts::Kind DateParts::ChosenKind() const {
    int part = 0;
    for (const ShortDatePart& piece : order_)
        if (piece.kind != Kind::Literal && ++part == part_)
            return piece.kind;
    return Kind::Literal;
}

std::wstring DateParts::TypedText() const {
    int scale = 1;
    for (int digit = 1; digit < typedDigits_; ++digit)
        scale *= 10;
    std::wstring text;
    for (; scale > 0; scale /= 10) {
        SYSTEMTIME digit;
        digit.wDay = static_cast<WORD>(typed_ / scale % 10);
        text += ShortDatePartText({Kind::Day, {}, false}, digit);
    }
    return text;
}

std::vector<DateParts::Piece> DateParts::Pieces() const {
    std::vector<Piece> pieces;
    int part = 0;
    for (const ShortDatePart& piece : order_) {
        const bool isPart = piece.kind != Kind::Literal;
        part += isPart ? 1 : 0;
        const bool underTyping = isPart && part == part_ && typedDigits_ > 0;
        pieces.push_back({underTyping ? TypedText() : ShortDatePartText(piece, date_), isPart ? part : 0});
    }
    return pieces;
}

std::wstring DateParts::ChosenText() const {
    std::wstring text = ChosenKind() == Kind::Year ? L"year " : ChosenKind() == Kind::Month ? L"month " : L"day ";
    for (const Piece& piece : Pieces())
        text += piece.part == part_ ? piece.text : L"";
    return text;
}

DateParts::Range DateParts::RangeOf(Kind kind) const {
    switch (kind) {
    case Kind::Year:
        return {FirstYear, LastYear};
    case Kind::Month:
        return {1, LastMonth};
    default:
        return {1, LongestMonth};
    }
}

void DateParts::Take(Kind kind, int value) {
    const Range range = RangeOf(kind);
    const auto taken = static_cast<WORD>(std::clamp(value, range.first, range.last));
    switch (kind) {
    case Kind::Year:
        date_.wYear = taken;
        break;
    case Kind::Month:
        date_.wMonth = taken;
        break;
    default:
        date_.wDay = taken;
        break;
    }
}

void DateParts::EndTyping() {
    if (typedDigits_ == 0)
        return;
    const Kind kind = ChosenKind();
    // A year that was not typed to its end is no year: the former one stays.
    if (kind != Kind::Year || typedDigits_ == DigitsOf(kind))
        Take(kind, typed_);
    if (kind == Kind::Day)
        wantedDay_ = date_.wDay;
    else if (wantedDay_ > 0)
        date_.wDay = static_cast<WORD>(wantedDay_);
    date_.wDay = static_cast<WORD>(std::min<int>(date_.wDay, LastDay(date_)));
    typed_ = typedDigits_ = 0;
}

void DateParts::Choose(int part) {
    EndTyping();
    part_ = std::clamp(part, 1, std::max(1, CountParts()));
}

void DateParts::Settle() {
    EndTyping();
    wantedDay_ = 0;
}

void DateParts::Type(int digit) {
    if (digit < 0 || digit > 9)
        return;
    if (typedDigits_ > 0 && typed_ * 10 + digit > RangeOf(ChosenKind()).last) {
        // The digit cannot belong to this part any more: it begins the next one.
        Choose(part_ + 1);
    }
    const Kind kind = ChosenKind();
    typed_ = typed_ * 10 + digit;
    ++typedDigits_;
    if (typedDigits_ == DigitsOf(kind) || typed_ * 10 > RangeOf(kind).last)
        Choose(part_ + 1);
}

void DateParts::Step(int by) {
    Settle();
    const Kind kind = ChosenKind();
    Range range = RangeOf(kind);
    if (kind == Kind::Day)
        range.last = LastDay(date_);
    int value = kind == Kind::Year ? date_.wYear : kind == Kind::Month ? date_.wMonth : date_.wDay;
    value += by;
    if (kind != Kind::Year && value > range.last)
        value = range.first;
    else if (kind != Kind::Year && value < range.first)
        value = range.last;
    Take(kind, value);
    date_.wDay = static_cast<WORD>(std::min<int>(date_.wDay, LastDay(date_)));
}

} // namespace device
