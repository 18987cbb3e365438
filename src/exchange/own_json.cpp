#include "exchange/own_files.h"
#include "exchange/own_rows.h"

#include <cstdlib>
#include <nlohmann/json.hpp>

namespace exchange {
namespace {

using Json = nlohmann::ordered_json;

constexpr int FormatVersion = 1;
constexpr const char* VersionKey = "odoledger";
constexpr const char* DistanceKey = "distance";
constexpr const char* VolumeKey = "volume";
constexpr const char* RecordsKey = "records";
/// Our files have a record a line, from the second one on.
constexpr int FirstRecordLine = 2;

Json ValueOf(Column column, const std::string& text) {
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    const bool isWhole = text.find_first_not_of("-0123456789") == std::string::npos;
    if (!IsNumber(column) || *end != '\0' || text.find("inf") != std::string::npos)
        return text;
    return isWhole ? Json(std::strtoll(text.c_str(), nullptr, 10)) : Json(number);
}

OwnRow RowOf(const Json& record) {
    OwnRow row;
    for (std::size_t place = 0; place < ColumnCount; ++place) {
        const auto found = record.find(NameOf(static_cast<Column>(place)));
        if (found != record.end() && !found->is_null())
            row[static_cast<Column>(place)] = found->is_string() ? found->get<std::string>() : found->dump();
    }
    return row;
}

void ReadHead(const std::string& key, const std::string& value, Batch* batch) {
    if (key == DistanceKey)
        batch->distance = DistanceNamed(value);
    else if (key == VolumeKey)
        batch->volume = VolumeNamed(value);
}

} // namespace

std::string WriteOwnJson(const Batch& batch) {
    Json head;
    head[VersionKey] = FormatVersion;
    head[DistanceKey] = NameOf(batch.distance);
    head[VolumeKey] = NameOf(batch.volume);
    std::string text = head.dump();
    text.back() = ',';
    text += std::string("\"") + RecordsKey + "\":[";
    bool isFirst = true;
    WriteRows(batch, [&](const OwnRow& row) {
        Json record;
        for (std::size_t place = 0; place < ColumnCount; ++place)
            if (const auto column = static_cast<Column>(place); !row[column].empty())
                record[NameOf(column)] = ValueOf(column, row[column]);
        text += (isFirst ? "\n" : ",\n") + record.dump();
        isFirst = false;
    });
    return text + "\n]}\n";
}

bool IsOwnJson(std::string_view text) {
    constexpr std::size_t Begin = 64;
    const std::size_t place = text.find_first_not_of(" \t\r\n");
    return place != std::string_view::npos && text[place] == '{'
        && text.substr(place, Begin).find(std::string("\"") + VersionKey + '"') != std::string_view::npos;
}

void ReadOwnJson(std::string_view text, Batch* batch) {
    OwnRowReader reader(batch);
    int line = FirstRecordLine;
    std::string key;
    // All goes as it comes, so that a long log does not stand in memory twice, and one that is cut off is read as far.
    const auto take = [&](int depth, Json::parse_event_t event, Json& value) {
        constexpr int HeadDepth = 1;
        constexpr int RecordDepth = 2;
        if (depth == HeadDepth && event == Json::parse_event_t::key)
            key = value.get<std::string>();
        if (depth == HeadDepth && event == Json::parse_event_t::value && value.is_string())
            ReadHead(key, value.get<std::string>(), batch);
        if (depth != RecordDepth || event != Json::parse_event_t::object_end)
            return true;
        reader.Read(RowOf(value), line++, [](Column) { return 0; });
        return false;
    };
    try {
        [[maybe_unused]] const Json rest = Json::parse(text, take);
    } catch (const Json::parse_error& error) {
        batch->faults.push_back({line, 0, "the file is cut off or damaged at byte " + std::to_string(error.byte)});
    }
}

} // namespace exchange
