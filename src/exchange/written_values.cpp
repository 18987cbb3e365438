#include "exchange/written_values.h"

#include "exchange/plain_text.h"
#include "platform/time.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace exchange {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
/// What stands between groups of digits: blanks, also those that do not break, and apostrophes.
constexpr std::string_view GroupMarks[] = {" ", "\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x89", "'", "\xE2\x80\x99"};

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool IsSpace(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

/// Marks between two digits become blanks; all others go.
std::string WithPlainGroups(std::string text) {
    for (const std::string_view mark : GroupMarks)
        for (std::size_t place = 0; (place = text.find(mark, place)) != std::string::npos;) {
            const std::size_t next = place + mark.size();
            const bool isBetween = place > 0 && next < text.size() && IsDigit(text[place - 1]) && IsDigit(text[next]);
            text.replace(place, mark.size(), isBetween ? " " : "");
            place += isBetween ? 1 : 0;
        }
    return text;
}

bool IsLetter(char character) {
    return LowerCase({character}).find_first_of("abcdefghijklmnopqrstuvwxyz") == 0;
}

/// Whether a word ends in a letter, of two bytes where it is no Latin one. Signs as "€" and "£" are none.
bool EndsInLetter(const std::string& word) {
    constexpr unsigned char FirstLeadOfLetters = 0xC3;
    constexpr unsigned char LastLeadOfTwo = 0xDF;
    const auto lead = static_cast<unsigned char>(word.size() < 2 ? 0 : word[word.size() - 2]);
    return !word.empty() && (IsLetter(word.back()) || (lead >= FirstLeadOfLetters && lead <= LastLeadOfTwo));
}

/// The currency goes with the full stop that ends its abbreviation: "Rs.", "руб.".
std::string WithoutCurrency(std::string text) {
    constexpr std::size_t MostBytes = 10;
    const auto isOfNumber = [](char character) {
        return IsDigit(character) || character == '-' || character == '+' || character == '(' || character == ')'
            || character == '.' || character == ',';
    };
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative)
        text.erase(0, 1);
    std::size_t begin = 0;
    while (begin < text.size() && !isOfNumber(text[begin]))
        ++begin;
    const bool isAbbreviated = begin > 1 && text.substr(begin, 1) == "." && EndsInLetter(text.substr(0, begin));
    begin += isAbbreviated ? 1 : 0;
    std::size_t end = text.size();
    while (end > begin && !IsDigit(text[end - 1]) && text[end - 1] != ')')
        --end;
    // A lone letter behind a number is no currency, and a minus there is not to be lost.
    const bool isLetter = text.size() - end == 1 && IsLetter(text[end]);
    const bool isMinus = end < text.size() && text[end] == '-';
    if (begin > MostBytes || text.size() - end > MostBytes || isLetter || isMinus)
        return {};
    return (isNegative ? "-" : "") + text.substr(begin, end - begin);
}

/// Takes the marks out from between the groups of the whole part: three digits, in India also two, and three at the
/// end.
bool JoinGroups(std::string* whole, char mark) {
    std::size_t place = whole->find(mark);
    if (place == std::string::npos)
        return true;
    constexpr std::size_t LongestGroup = 3;
    if (place == 0 || place > LongestGroup || whole->front() == '0')
        return false;
    std::string joined = whole->substr(0, place);
    for (;;) {
        const std::size_t next = whole->find(mark, place + 1);
        const std::string group = whole->substr(place + 1, next == std::string::npos ? next : next - place - 1);
        const bool isLast = next == std::string::npos;
        if (group.size() != LongestGroup && (isLast || group.size() != LongestGroup - 1))
            return false;
        joined += group;
        if (isLast)
            break;
        place = next;
    }
    *whole = joined;
    return true;
}

bool TakeNumber(std::string_view* text, int* number, std::size_t* digits) {
    constexpr std::size_t MostDigits = 4;
    *digits = 0;
    *number = 0;
    while (*digits < text->size() && IsDigit((*text)[*digits])) {
        if (*digits == MostDigits)
            return false;
        *number = *number * 10 + ((*text)[(*digits)++] - '0');
    }
    text->remove_prefix(*digits);
    return *digits > 0;
}

void SkipSpaces(std::string_view* text) {
    while (!text->empty() && IsSpace(text->front()))
        text->remove_prefix(1);
}

bool Skip(std::string_view* text, char character) {
    if (text->empty() || text->front() != character)
        return false;
    text->remove_prefix(1);
    return true;
}

/// The hour of a clock of twelve hours.
bool TakeHalf(const std::string& half, int* hour) {
    const bool isMorning = half == "am" || half == "a.m.";
    const bool isAfternoon = half == "pm" || half == "p.m.";
    if (!isMorning && !isAfternoon)
        return false;
    if (*hour < 1 || *hour > 12)
        return false;
    *hour = *hour % 12 + (isAfternoon ? 12 : 0);
    return true;
}

/// "7:40", "07:40:05.123", "7:40 PM"; a zone behind it does not matter for a log.
bool ReadTime(std::string_view text, SYSTEMTIME* time) {
    int parts[3] = {};
    std::size_t digits = 0;
    if (!TakeNumber(&text, &parts[0], &digits) || !Skip(&text, ':') || !TakeNumber(&text, &parts[1], &digits))
        return false;
    if (Skip(&text, ':') && !TakeNumber(&text, &parts[2], &digits))
        return false;
    if (Skip(&text, '.'))
        while (!text.empty() && IsDigit(text.front()))
            text.remove_prefix(1);
    const std::string rest = LowerCase(Trimmed(text));
    const bool isZone = rest.empty() || rest == "z" || rest.front() == '+' || rest.front() == '-';
    if (!isZone && !TakeHalf(rest, &parts[0]))
        return false;
    time->wHour = static_cast<WORD>(parts[0]);
    time->wMinute = static_cast<WORD>(parts[1]);
    time->wSecond = static_cast<WORD>(parts[2]);
    return true;
}

/// A year of two digits is one of the last century or of this one.
bool SetYear(int year, std::size_t digits, SYSTEMTIME* time) {
    constexpr int FirstYearOfTwoDigits = 70;
    if (digits != 2 && digits != 4)
        return false;
    if (digits == 2)
        year += year < FirstYearOfTwoDigits ? 2000 : 1900;
    time->wYear = static_cast<WORD>(year);
    return true;
}

} // namespace

std::string LowerCase(std::string text) {
    for (char& character : text)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return text;
}

std::string Trimmed(std::string_view text) {
    SkipSpaces(&text);
    while (text.substr(0, ByteOrderMark.size()) == ByteOrderMark) {
        text.remove_prefix(ByteOrderMark.size());
        SkipSpaces(&text);
    }
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return std::string(text);
}

std::optional<double> ReadWrittenNumber(std::string_view written, char decimal, bool isMoney) {
    std::string text = WithPlainGroups(std::string(written));
    if (isMoney)
        text = WithoutCurrency(std::move(text));
    bool isNegative = text.size() > 2 && text.front() == '(' && text.back() == ')';
    if (isNegative)
        text = WithoutCurrency(text.substr(1, text.size() - 2));
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        isNegative = isNegative != (text.front() == '-');
        text.erase(0, 1);
    }
    const std::size_t place = text.find(decimal);
    std::string whole = text.substr(0, place);
    const std::string part = place == std::string::npos ? "" : text.substr(place + 1);
    if (!JoinGroups(&whole, ' ') || !JoinGroups(&whole, decimal == '.' ? ',' : '.')
        || (whole + part).find_first_not_of("0123456789") < text.size() || (whole + part).empty())
        return std::nullopt;
    const double value = std::strtod((whole + '.' + part).c_str(), nullptr);
    return std::isfinite(value) ? std::optional{isNegative ? -value : value} : std::nullopt;
}

std::optional<double> ReadWrittenDate(std::string_view text, DateOrder order) {
    int parts[3];
    std::size_t digits[3];
    char mark = 0;
    for (int part = 0; part < 3; ++part) {
        if (!TakeNumber(&text, &parts[part], &digits[part]))
            return std::nullopt;
        if (part == 0 && !text.empty())
            mark = text.front();
        if (part < 2 && ((mark != '-' && mark != '/' && mark != '.') || !Skip(&text, mark)))
            return std::nullopt;
        if (part < 2)
            SkipSpaces(&text);
    }
    if (digits[0] == 4)
        order = DateOrder::YearMonthDay;
    else if (mark == '.')
        order = DateOrder::DayMonthYear;
    const int year = order == DateOrder::YearMonthDay ? 0 : 2;
    const int month = order == DateOrder::MonthDayYear ? 0 : 1;
    const int day = 3 - year - month;
    SYSTEMTIME time{};
    if (!SetYear(parts[year], digits[year], &time) || digits[month] > 2 || digits[day] > 2)
        return std::nullopt;
    time.wMonth = static_cast<WORD>(parts[month]);
    time.wDay = static_cast<WORD>(parts[day]);
    Skip(&text, '.'); // as Hungarians end it
    const std::size_t before = text.size();
    SkipSpaces(&text);
    const bool isApart = text.size() < before || Skip(&text, 'T') || Skip(&text, ',');
    SkipSpaces(&text);
    if (!text.empty() && (!isApart || !ReadTime(text, &time)))
        return std::nullopt;
    double date = 0;
    return SystemTimeToVariantTime(&time, &date) && CanBeShown(date) ? std::optional{date} : std::nullopt;
}

std::optional<DateOrder> DateOrderOf(const std::string& pattern) {
    const std::size_t year = pattern.find('y');
    const std::size_t month = pattern.find('M');
    const std::size_t day = pattern.find('d');
    if (std::max({year, month, day}) == std::string::npos)
        return std::nullopt;
    if (year < month)
        return DateOrder::YearMonthDay;
    return month < day ? DateOrder::MonthDayYear : DateOrder::DayMonthYear;
}

} // namespace exchange
