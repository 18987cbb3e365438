#include "exchange/plain_text.h"

#include "platform/time.h"

#include <cstdio>
#include <cstdlib>

namespace exchange {
namespace {

// Numbers stand in the C locale here: no program that links this asks for another one's.
constexpr int FewestDigits = 6;
constexpr int MostDigits = 9; // a float needs no more

/// What spreadsheets begin a formula with, also in the wide forms of East Asian keyboards.
constexpr std::string_view FormulaBeginnings[]
    = {"=", "+", "-", "@", "\t", "\r", "\n", "\xEF\xBC\x9D", "\xEF\xBC\x8B", "\xEF\xBC\x8D", "\xEF\xBC\xA0"};

bool BeginsWith(const std::string& text, std::string_view beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

bool LooksLikeFormula(const std::string& text) {
    for (const std::string_view beginning : FormulaBeginnings)
        if (BeginsWith(text, beginning))
            return true;
    return false;
}

bool IsDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Takes `digits` digits, and before them `mark` unless it is 0.
bool TakeNumber(std::string_view* text, char mark, std::size_t digits, WORD* number) {
    const std::size_t begin = mark == 0 ? 0 : 1;
    if (text->size() < begin + digits || (begin == 1 && text->front() != mark))
        return false;
    const std::string_view part = text->substr(begin, digits);
    if (!IsDigits(part))
        return false;
    *number = 0;
    for (const char digit : part)
        *number = static_cast<WORD>(*number * 10 + (digit - '0'));
    text->remove_prefix(begin + digits);
    return true;
}

bool TakeTime(std::string_view* text, SYSTEMTIME* time) {
    if (text->empty())
        return true;
    const char mark = text->front() == 'T' ? 'T' : ' ';
    if (!TakeNumber(text, mark, 2, &time->wHour) || !TakeNumber(text, ':', 2, &time->wMinute))
        return false;
    return text->empty() || TakeNumber(text, ':', 2, &time->wSecond);
}

} // namespace

std::string PlainNumber(float value) {
    char text[32];
    for (int digits = FewestDigits; digits <= MostDigits; ++digits) {
        std::snprintf(text, sizeof text, "%.*g", digits, double{value});
        if (std::strtof(text, nullptr) == value)
            break;
    }
    return text;
}

std::string PlainDate(double date) {
    SYSTEMTIME time;
    double back = 0;
    char text[64];
    if (VariantTimeToSystemTime(date, &time) && SystemTimeToVariantTime(&time, &back) && back == date) {
        const bool isMidnight = time.wHour == 0 && time.wMinute == 0 && time.wSecond == 0;
        std::snprintf(text, sizeof text, isMidnight ? "%04u-%02u-%02u" : "%04u-%02u-%02u %02u:%02u:%02u",
            unsigned{time.wYear}, unsigned{time.wMonth}, unsigned{time.wDay}, unsigned{time.wHour},
            unsigned{time.wMinute}, unsigned{time.wSecond});
        return text;
    }
    std::snprintf(text, sizeof text, "%.17g", date);
    return text;
}

std::optional<double> ReadPlainDate(std::string_view text) {
    SYSTEMTIME time{};
    double date = 0;
    const bool isWhole = TakeNumber(&text, 0, 4, &time.wYear) && TakeNumber(&text, '-', 2, &time.wMonth)
        && TakeNumber(&text, '-', 2, &time.wDay) && TakeTime(&text, &time) && text.empty();
    return isWhole && SystemTimeToVariantTime(&time, &date) ? std::optional{date} : std::nullopt;
}

bool CanBeShown(double date) {
    constexpr WORD FirstYear = 1601;
    SYSTEMTIME time;
    return VariantTimeToSystemTime(date, &time) && time.wYear >= FirstYear;
}

std::string CsvText(const std::string& text) {
    std::string cell = LooksLikeFormula(text) || BeginsWith(text, "'") ? "'" + text : text;
    const bool isPlain = cell.find_first_of(",;\"\r\n\t") == std::string::npos
        && (cell.empty() || (cell.front() != ' ' && cell.back() != ' '));
    if (isPlain)
        return cell;
    std::string quoted = "\"";
    for (const char character : cell)
        quoted.append(character == '"' ? 2 : 1, character);
    return quoted + '"';
}

std::string FromCsvText(const std::string& cell) {
    return BeginsWith(cell, "'") ? cell.substr(1) : cell;
}

} // namespace exchange
