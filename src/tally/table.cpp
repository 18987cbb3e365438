#include "tally/table.h"

#include "charts/svg.h"

#include "exchange/plain_text.h"
#include "platform/utf8.h"
#include "tally/failure.h"
#include "tally/result_file.h"

#include <algorithm>
#include <cstdlib>
#include <cwchar>
#include <nlohmann/json.hpp>
#include <sysexits.h>

namespace tally {
namespace {

constexpr const char* Bold = "\x1B[1m";
constexpr const char* Plain = "\x1B[0m";
constexpr std::size_t Gap = 2;

/// What a terminal would obey, or turn around, in a text that came from anywhere.
bool IsControl(wchar_t character) {
    return character < L' ' || (character >= 0x7F && character < 0xA0) || (character >= 0x200E && character <= 0x200F)
        || (character >= 0x2028 && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

std::size_t WidthOf(const std::wstring& text) {
    std::size_t width = 0;
    for (const wchar_t character : text)
        width += static_cast<std::size_t>(std::max(wcwidth(character), 0));
    return width;
}

std::string CsvValue(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return exchange::CsvText(*text);
    if (const auto* whole = std::get_if<LONGLONG>(&value))
        return std::to_string(*whole);
    const auto* number = std::get_if<double>(&value);
    return number ? nlohmann::json(*number).dump() : "";
}

nlohmann::ordered_json JsonValue(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* whole = std::get_if<LONGLONG>(&value))
        return *whole;
    const auto* number = std::get_if<double>(&value);
    return number ? nlohmann::ordered_json(*number) : nlohmann::ordered_json();
}

} // namespace

Cell TextCell(const std::wstring& text) {
    return {text, device::ToUtf8(text)};
}

Cell NumberCell(const std::wstring& shown, float value) {
    return {shown, std::strtod(exchange::PlainNumber(value).c_str(), nullptr)};
}

Cell WholeCell(const std::wstring& shown, LONGLONG value) {
    return {shown, value};
}

void Table::Add(std::vector<Cell> row) {
    for (Cell& cell : row)
        std::replace_if(cell.shown.begin(), cell.shown.end(), IsControl, L' ');
    rows_.push_back(std::move(row));
}

std::string Table::Write(Format format, bool hasColours) const {
    if (format == Format::Csv)
        return WriteCsv();
    return format == Format::Json ? WriteJson() : WriteText(hasColours);
}

std::string Table::WriteText(bool hasColours) const {
    std::vector<std::size_t> widths;
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        std::size_t width = WidthOf(columns_[column].title);
        for (const auto& row : rows_)
            width = std::max(width, WidthOf(row[column].shown));
        widths.push_back(width);
    }
    const auto line = [&](const auto& textOf) {
        std::wstring text;
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            if (columns_[column].whom == For::Programs)
                continue;
            const std::wstring& cell = textOf(column);
            const std::wstring room(widths[column] - std::min(WidthOf(cell), widths[column]), L' ');
            text += columns_[column].isNumber ? room + cell : cell + room;
            text.append(Gap, L' ');
        }
        text.erase(text.find_last_not_of(L' ') + 1);
        return device::ToUtf8(text);
    };
    const std::string titles = line([&](std::size_t column) -> const std::wstring& { return columns_[column].title; });
    std::string result;
    if (!titles.empty())
        result = hasColours ? Bold + titles + Plain + '\n' : titles + '\n';
    for (const auto& row : rows_)
        result += line([&](std::size_t column) -> const std::wstring& { return row[column].shown; }) + '\n';
    return result;
}

std::string Table::WriteCsv() const {
    std::string result;
    const auto addLine = [&](const auto& textOf) {
        bool isFirst = true;
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            if (columns_[column].whom == For::People)
                continue;
            result += (isFirst ? "" : ",") + textOf(column);
            isFirst = false;
        }
        result += '\n';
    };
    addLine([&](std::size_t column) { return columns_[column].key; });
    for (const auto& row : rows_)
        addLine([&](std::size_t column) { return CsvValue(row[column].value); });
    return result;
}

std::string Table::Html() const {
    std::string result = "<table>\n";
    const auto addRow = [&](const char* tag, const auto& textOf) {
        result += "<tr>";
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            if (columns_[column].whom == For::Programs)
                continue;
            result.append("<").append(tag).append(columns_[column].isNumber ? " class=\"number\">" : ">");
            result.append(charts::Escaped(device::ToUtf8(textOf(column)))).append("</").append(tag).append(">");
        }
        result += "</tr>\n";
    };
    const bool hasTitles = std::any_of(columns_.begin(), columns_.end(),
        [](const Column& column) { return column.whom != For::Programs && !column.title.empty(); });
    if (hasTitles)
        addRow("th", [&](std::size_t column) { return columns_[column].title; });
    for (const auto& row : rows_)
        addRow("td", [&](std::size_t column) { return row[column].shown; });
    result += "</table>\n";
    return result;
}

// A row at a time: the whole of a long log as JSON's own objects takes more room than all else.
std::string Table::WriteJson() const {
    std::string result = "[";
    for (const auto& row : rows_) {
        auto object = nlohmann::ordered_json::object();
        for (std::size_t column = 0; column < columns_.size(); ++column)
            if (columns_[column].whom != For::People)
                object[columns_[column].key] = JsonValue(row[column].value);
        result += result.size() == 1 ? "\n  " : ",\n  ";
        for (const char character : object.dump(2))
            result.append(character == '\n' ? "\n  " : std::string_view(&character, 1));
    }
    result += rows_.empty() ? "]\n" : "\n]\n";
    return result;
}

void Deliver(const std::string& result, const Request& request, Surroundings& surroundings) {
    if (request.output.empty()) {
        surroundings.out << result << std::flush;
        if (!surroundings.out)
            throw Failure(EX_IOERR, "the result cannot be written");
    } else {
        WriteFile(request.output, result);
    }
}

} // namespace tally
