#include "records/file_report.h"

#include "records/ad_hoc_query.h"
#include "records/data_file.h"
#include "records/file_check.h"
#include "records/file_header.h"
#include "records/file_image.h"

#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

using Faults = std::vector<std::string>;

bool IsTaken(const std::string& path) {
    struct stat info { };
    return lstat(path.c_str(), &info) == 0;
}

/// A journal that begins with a zero, or with nothing, is of a change that had not begun to write: nobody uses it, and
/// the next change takes its place.
bool IsUnused(const std::string& journal) {
    const int file = open(journal.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    char first = 0;
    const bool isUnused = file >= 0 && (read(file, &first, 1) == 0 || first == 0);
    if (file >= 0)
        close(file);
    return isUnused;
}

std::string JournalBeside(const std::string& path) {
    if (std::string journal = path + "-journal"; IsTaken(journal) && !IsUnused(journal))
        return journal;
    for (const char* suffix : {"-wal", "-shm"})
        if (IsTaken(path + suffix))
            return path + suffix;
    return {};
}

/// A change that is under way has a journal too, for a moment.
std::string WaitForNoJournal(const std::string& path) {
    constexpr std::chrono::seconds LongestChange{2};
    constexpr std::chrono::milliseconds Pause{10};
    const auto end = std::chrono::steady_clock::now() + LongestChange;
    std::string journal;
    while (!(journal = JournalBeside(path)).empty() && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(Pause);
    return journal;
}

CFileHeader::Reading ReadHeader(const std::string& path, CFileHeader* header) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return CFileHeader::Reading::Failed;
    const CFileHeader::Reading reading = header->Read(file, 0);
    close(file);
    return reading;
}

/// A copy in memory, on which everything may be tried.
ConnectionHandle OpenCopy(const CFileImage& image) {
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open_v2(
        ":memory:", &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY | SQLITE_OPEN_EXRESCODE, nullptr);
    ConnectionHandle connection(raw);
    Require(opened);
    const auto size = static_cast<sqlite3_int64>(image.Bytes().size());
    auto* bytes = static_cast<unsigned char*>(sqlite3_malloc64(static_cast<sqlite3_uint64>(size)));
    Require(bytes ? SQLITE_OK : SQLITE_NOMEM);
    std::memcpy(bytes, image.Bytes().data(), image.Bytes().size());
    // What says that a -wal may lie beside the file: in memory there is none.
    constexpr std::size_t WriteVersion = 18;
    constexpr std::size_t ReadVersion = 19;
    bytes[WriteVersion] = bytes[ReadVersion] = 1;
    constexpr unsigned Flags = SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE;
    Require(sqlite3_deserialize(raw, "main", bytes, size, size, Flags));
    PrepareForStrangers(raw);
    Execute(raw, "PRAGMA cell_size_check = ON");
    Execute(raw, "PRAGMA ignore_check_constraints = ON");
    return connection;
}

std::set<std::string> Schema(sqlite3* connection) {
    std::set<std::string> schema;
    Query(connection, "SELECT type, name FROM sqlite_schema", {},
        [&](sqlite3_stmt* row) { schema.insert(TextColumn(row, 0) + ' ' + TextColumn(row, 1)); });
    return schema;
}

void TellOfSchema(sqlite3* connection, Faults* faults) {
    const std::set<std::string> found = Schema(connection);
    filecheck::CheckSchema(connection);
    const std::set<std::string> wanted = Schema(connection);
    for (const std::string& each : found)
        if (wanted.count(each) == 0)
            faults->push_back("the " + each + " is not ours; the program takes it out");
    for (const std::string& each : wanted)
        if (found.count(each) == 0)
            faults->push_back("the " + each + " is missing; the program makes it anew");
}

void TellOfKeys(sqlite3* connection, Faults* faults) {
    const int before = sqlite3_total_changes(connection);
    filecheck::MendKeys(connection);
    if (sqlite3_total_changes(connection) != before)
        faults->emplace_back("keys stand twice, are out of range or are above the sequence; the program gives them out "
                             "anew");
}

/// Rows that no screen could have stored. Dates lie in the file as days since 30 December 1899, and a date field goes
/// from the year 1601 to 9999.
struct RecordRule {
    const char* table;
    const char* broken;
    const char* words;
};

constexpr RecordRule RecordRules[] = {
    {"entries", "vehicle NOT IN (SELECT ref FROM vehicles)", "entries belong to no vehicle"},
    {"reminders", "vehicle NOT IN (SELECT ref FROM vehicles)", "reminders belong to no vehicle"},
    {"entries", "type NOT BETWEEN 1 AND 4", "entries are of no known kind"},
    {"keywords", "type NOT BETWEEN 1 AND 4", "keywords are of no known kind"},
    {"entries", "date < -109205 OR date >= 2958466", "entries have a date that cannot be shown"},
    {"reminders", "date < -109205 OR date >= 2958466", "reminders have a date that cannot be shown"},
    {"vehicles", "insurance_expires < -109205 OR insurance_expires >= 2958466",
        "vehicles have a date that cannot be shown"},
    {"entries", "max(abs(amount), abs(custom1), abs(custom2)) > 3.4028234663852886e38",
        "entries have a number that is too large"},
    {"entries", "odometer NOT BETWEEN -2147483648 AND 2147483647", "entries have a reading that is too large"},
    {"reminders", "odometer NOT BETWEEN -2147483648 AND 2147483647", "reminders have a reading that is too large"},
    {"vehicles", "odometer NOT BETWEEN -2147483648 AND 2147483647", "vehicles have a reading that is too large"},
};

void TellOfRecords(sqlite3* connection, Faults* faults) {
    for (const RecordRule& rule : RecordRules)
        Query(connection, std::string("SELECT count(*) FROM ") + rule.table + " WHERE " + rule.broken, {},
            [&](sqlite3_stmt* row) {
                if (sqlite3_column_int64(row, 0) != 0)
                    faults->push_back(TextColumn(row, 0) + ' ' + rule.words);
            });
}

/// Of the tables that a companion keeps, where there are any.
void TellOfImports(sqlite3* connection, Faults* faults) {
    if (Schema(connection).count("table tally_batches") == 0)
        return;
    Query(connection, "SELECT count(*) FROM tally_added WHERE batch NOT IN (SELECT number FROM tally_batches)", {},
        [&](sqlite3_stmt* row) {
            if (sqlite3_column_int64(row, 0) != 0)
                faults->push_back(TextColumn(row, 0) + " imported records belong to no import, and cannot be undone");
        });
}

void TellOfContents(sqlite3* connection, Faults* faults) {
    const char* refusal = "the tables are not those of a log";
    try {
        TellOfSchema(connection, faults);
        refusal = "the file is damaged";
        if (!filecheck::CheckPages(connection))
            faults->emplace_back("an index disagrees with its table; the program makes it anew");
        TellOfKeys(connection, faults);
        TellOfRecords(connection, faults);
        refusal = "the tables of imports are not ours";
        TellOfImports(connection, faults);
    } catch (const SqliteFailure& failure) {
        faults->push_back(std::string(refusal) + ": " + sqlite3_errstr(failure.code));
    }
}

} // namespace

std::vector<std::string> FaultsOfFile(const std::string& path) {
    CFileHeader header;
    const CFileHeader::Reading reading = ReadHeader(path, &header);
    if (reading == CFileHeader::Reading::Failed)
        return {"the file cannot be read"};
    if (reading == CFileHeader::Reading::TooShort || !header.IsOurs())
        return {"the file is no log of this version"};
    if (const std::string journal = WaitForNoJournal(path); !journal.empty())
        return {journal
            + " lies beside the file: a change was cut off, or it belongs to another file. The program sees "
              "to it when it opens the log; check again after that"};
    const CFileImage image(path);
    if (!image)
        return {"the file cannot be read whole, or is locked by another program"};
    Faults faults;
    try {
        TellOfContents(OpenCopy(image).get(), &faults);
    } catch (const SqliteFailure& failure) {
        faults.push_back(std::string("the file cannot be looked at: ") + sqlite3_errstr(failure.code));
    }
    return faults;
}
