#include "exchange/read_file.h"

#include "exchange/decode_text.h"
#include "exchange/formats.h"
#include "exchange/mapped_csv.h"
#include "exchange/own_files.h"

namespace exchange {
namespace {

using Rows = std::vector<CsvRow>;

struct Format {
    const char* key;
    const char* name;
    bool (*isIt)(const Beginning& file);
    void (*read)(Rows rows, Drafts* drafts);
};

constexpr Format Formats[] = {{"fuelio", "Fuelio", IsFuelio, ReadFuelio}, {"drivvo", "Drivvo", IsDrivvo, ReadDrivvo},
    {"acar", "aCar", IsACar, ReadACar}, {"fuelly", "Fuelly", IsFuelly, ReadFuelly},
    {"simply-auto", "Simply Auto", IsSimplyAuto, ReadSimplyAuto},
    {"lubelogger", "LubeLogger", IsLubeLogger, ReadLubeLogger}};

bool BeginsWith(std::string_view text, std::string_view beginning) {
    return text.substr(0, beginning.size()) == beginning;
}

/// Why bytes cannot be the text of a table; empty where they can.
std::string WhyNoTable(std::string_view bytes) {
    if (BeginsWith(bytes, "SQLite format 3"))
        return "this is a database, not an export; let the app that made it export CSV";
    const std::size_t first = bytes.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
    if (first == std::string_view::npos)
        return "the file is empty";
    if (bytes[first] == '<')
        return "this is XML or HTML; let the app that made it export CSV";
    if (bytes.find('\0') != std::string_view::npos)
        return "this is no text; let the app that made it export CSV, in UTF-8";
    if (BeginsWith(bytes, "ROAD TRIP CSV"))
        return "this is a file of Road Trip, which cannot be read";
    return {};
}

Beginning BeginningOf(std::string_view text, char separator) {
    constexpr std::size_t Bytes = 65536;
    Rows rows = ReadCsvRows(text.substr(0, Bytes), separator).rows;
    Beginning beginning{std::move(rows), Table("", {}), {}};
    if (!beginning.rows.empty())
        beginning.titles = Table("", beginning.rows.front());
    for (const CsvRow& row : beginning.rows)
        if (const std::string name = NameBehindHash(row); !name.empty())
            beginning.marks.push_back(name);
    return beginning;
}

/// Null, and why, where there is not exactly one.
const Format* FormatOf(const Beginning& file, const std::string& wanted, FileFacts* facts) {
    std::vector<const Format*> found;
    for (const Format& format : Formats)
        if ((wanted.empty() || wanted == format.key) && format.isIt(file))
            found.push_back(&format);
    if (found.size() == 1)
        return found.front();
    if (found.empty() && wanted.empty())
        facts->refusal = "this is no file of a kind that can be read; --map tells what the columns of a table are";
    else if (found.empty())
        facts->refusal = "this is no file of " + wanted;
    else
        facts->questions.push_back("is this a file of " + std::string(found[0]->name) + " or of " + found[1]->name
            + "? Say --from " + found[0]->key + " or " + found[1]->key);
    return nullptr;
}

Rows TakeRows(std::string_view text, char separator, Batch* batch) {
    CsvRows file = ReadCsvRows(text, separator);
    if (file.endsInQuotes) {
        const CsvRow& last = file.rows.back();
        batch->faults.push_back({last.line, static_cast<int>(last.cells.size()), "the quotes are never closed"});
        file.rows.pop_back();
    }
    return std::move(file.rows);
}

const char* NameOfSeparator(char separator) {
    if (separator == '\t')
        return "tab";
    return separator == ';' ? "semicolon" : "comma";
}

void ReadTable(const std::string& text, const ReadingOptions& options, FileFacts* facts, Batch* batch) {
    const char separator = SeparatorOf(text);
    Drafts drafts(facts, batch);
    if (!options.columns.empty()) {
        facts->format = "CSV";
        ReadMappedCsv(TakeRows(text, separator, batch), options, &drafts);
    } else if (const Format* format = FormatOf(BeginningOf(text, separator), options.format, facts)) {
        facts->format = format->name;
        format->read(TakeRows(text, separator, batch), &drafts);
    } else {
        return;
    }
    facts->separator = NameOfSeparator(separator);
    Settle(&drafts, options, batch);
}

} // namespace

std::vector<std::string> FormatKeys() {
    std::vector<std::string> keys;
    for (const Format& format : Formats)
        keys.emplace_back(format.key);
    return keys;
}

FileFacts ReadFile(std::string bytes, const ReadingOptions& options, Batch* batch) {
    FileFacts facts;
    facts.refusal = WhyNoTable(bytes);
    if (!facts.refusal.empty())
        return facts;
    Encoding encoding = Encoding::Utf8;
    const std::string text = DecodeText(std::move(bytes), &encoding);
    facts.encoding = NameOf(encoding);
    if (encoding != Encoding::Utf8)
        facts.assumed.push_back(facts.encoding);
    if (IsOwnJson(text)) {
        facts.format = "Odoledger JSON";
        ReadOwnJson(text, batch);
    } else if (options.columns.empty() && IsOwnCsv(text)) {
        facts.format = "Odoledger CSV";
        ReadOwnCsv(text, batch);
    } else {
        ReadTable(text, options, &facts, batch);
    }
    return facts;
}

} // namespace exchange
