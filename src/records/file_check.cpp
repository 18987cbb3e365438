#include "records/file_check.h"

#include "records/ad_hoc_query.h"
#include "records/statements.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace {

/// A statement of the schema without what may differ between two spellings of it.
std::string Plain(const std::string& sql) {
    std::string plain;
    for (const char character : sql) {
        const bool isLetter = character >= 'A' && character <= 'Z';
        if (std::string("\"'`[] \t\r\n").find(character) == std::string::npos)
            plain += isLetter ? static_cast<char>(character - 'A' + 'a') : character;
    }
    return plain;
}

struct SchemaEntry {
    std::string type;
    std::string name;
    std::string sql; ///< empty for the indexes of constraints
    bool hasPages = false;
};

std::vector<SchemaEntry> ReadSchema(sqlite3* connection) {
    std::vector<SchemaEntry> schema;
    Query(connection, "SELECT type, name, sql, rootpage FROM sqlite_schema", {}, [&schema](sqlite3_stmt* row) {
        schema.push_back(
            {TextColumn(row, 0), TextColumn(row, 1), TextColumn(row, 2), sqlite3_column_int64(row, 3) != 0});
    });
    return schema;
}

/// What we put into a file ourselves, by name.
using OwnSchema = std::map<std::string, SchemaEntry>;

OwnSchema ReadOwnSchema() {
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open(":memory:", &raw);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> connection(raw, sqlite3_close_v2);
    Require(opened);
    Require(sqlite3_exec(raw, DataFileSchema, nullptr, nullptr, nullptr));
    OwnSchema own;
    for (const SchemaEntry& entry : ReadSchema(raw))
        own.emplace(entry.name, entry);
    return own;
}

std::string Quoted(const std::string& name) {
    std::string quoted = "\"";
    for (const char character : name)
        quoted.append(character == '"' ? 2 : 1, character);
    return quoted + '"';
}

/// Behind our own columns others may stand. An expression would need a parenthesis.
bool IsOwnTable(const std::string& sql, const std::string& ownSql) {
    const std::string found = Plain(sql);
    std::string own = Plain(ownSql);
    own.resize(own.rfind(')'));
    return found.rfind(own, 0) == 0 && found.find('(', own.size()) == std::string::npos;
}

/// Nothing in a plain table runs while it is checked, as long as the check leaves out what it wants of its values.
void CheckTable(sqlite3* connection, const SchemaEntry& table, const OwnSchema& own) {
    const auto ours = own.find(table.name);
    if (!table.hasPages || (ours != own.end() && !IsOwnTable(table.sql, ours->second.sql)))
        throw SqliteFailure{SQLITE_CORRUPT};
    Query(connection, "PRAGMA table_xinfo(" + Quoted(table.name) + ')', {}, [](sqlite3_stmt* row) {
        constexpr int HiddenColumn = 6; // it is generated
        if (sqlite3_column_int(row, HiddenColumn) != 0)
            throw SqliteFailure{SQLITE_CORRUPT};
    });
}

bool IsOwnIndex(const SchemaEntry& index, const OwnSchema& own) {
    const auto ours = own.find(index.name);
    return ours != own.end() && Plain(ours->second.sql) == Plain(index.sql);
}

void TakeOut(sqlite3* connection, const SchemaEntry& entry) {
    // What SQLite does not make anew from its statement it takes under any type, which may be a statement itself.
    if (entry.type != "index" && entry.type != "trigger" && entry.type != "view")
        throw SqliteFailure{SQLITE_CORRUPT};
    Execute(connection, "DROP " + entry.type + " IF EXISTS " + Quoted(entry.name));
}

/// Whether the disk gives every byte of the file, whatever they are.
bool CanBeRead(sqlite3* connection) {
    sqlite3_file* file = nullptr;
    sqlite3_int64 size = 0;
    if (sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK || !file->pMethods
        || file->pMethods->xFileSize(file, &size) != SQLITE_OK)
        return false;
    std::array<char, 65536> buffer{};
    for (sqlite3_int64 offset = 0; offset < size; offset += static_cast<sqlite3_int64>(buffer.size())) {
        const auto count = static_cast<int>(std::min<sqlite3_int64>(buffer.size(), size - offset));
        if (file->pMethods->xRead(file, buffer.data(), count, offset) != SQLITE_OK)
            return false;
    }
    return true;
}

/// A check that says "ok", or else what is wrong, a row each. `passedOver` begins a row that does not count.
int RunCheck(sqlite3* connection, const char* pragma, const std::string& passedOver) try {
    bool isSound = true;
    Query(connection, pragma, {}, [&](sqlite3_stmt* row) {
        const std::string told = TextColumn(row, 0);
        isSound = isSound && (told == "ok" || told.rfind(passedOver, 0) == 0);
    });
    return isSound ? SQLITE_OK : SQLITE_CORRUPT;
} catch (const SqliteFailure& failure) {
    return failure.code;
}

struct Keys {
    LONGLONG id;
    LONGLONG ref;
};

constexpr LONGLONG FirstRef = 1001;
// Far below what 32 bits hold, so that no number of further records reaches their end.
constexpr LONGLONG HighestKey = 2'000'000'000;

bool IsUsable(LONGLONG key) {
    return key >= 1 && key <= HighestKey;
}

/// Gives out keys anew in one table.
class KeyTable {
public:
    KeyTable(sqlite3* connection, const char* name)
        : connection_(connection)
        , name_(name) {
        Query(connection, "SELECT id, ref FROM " + name_, {}, [this](sqlite3_stmt* row) {
            keys_.push_back({sqlite3_column_int64(row, 0), sqlite3_column_int64(row, 1)});
        });
    }

    LONGLONG HighestRef() const { return Highest(&Keys::ref); }

    void MendRefs(LONGLONG* nextRef) {
        std::sort(keys_.begin(), keys_.end(), [](const Keys& left, const Keys& right) {
            return left.ref != right.ref ? left.ref < right.ref : left.id < right.id;
        });
        const Keys* before = nullptr;
        for (const Keys& keys : keys_) {
            const bool isTaken = before && before->ref == keys.ref;
            before = &keys;
            if (!isTaken && IsUsable(keys.ref))
                continue;
            const LONGLONG ref = (*nextRef)++;
            Set("ref", ref, keys.id);
            // A log follows its vehicle.
            for (const char* owned : {"entries", "reminders"})
                if (!isTaken && name_ == "vehicles")
                    Execute(connection_, std::string("UPDATE ") + owned + " SET vehicle = ? WHERE vehicle = ?",
                        {ref, keys.ref});
        }
    }

    void MendIds() {
        // From the lowest one above the limit up, so that none takes the place of another; those below 1 come last.
        std::sort(keys_.begin(), keys_.end(), [](const Keys& left, const Keys& right) {
            return static_cast<std::uint64_t>(left.id - 1) < static_cast<std::uint64_t>(right.id - 1);
        });
        LONGLONG nextId = Highest(&Keys::id) + 1;
        for (const Keys& keys : keys_)
            if (!IsUsable(keys.id))
                Set("id", nextId++, keys.id);
    }

private:
    /// Of those that stay as they are.
    LONGLONG Highest(LONGLONG Keys::*key) const {
        LONGLONG highest = 0;
        for (const Keys& keys : keys_)
            highest = IsUsable(keys.*key) ? std::max(highest, keys.*key) : highest;
        return highest;
    }

    void Set(const char* key, LONGLONG value, LONGLONG id) {
        Execute(connection_, "UPDATE " + name_ + " SET " + key + " = ? WHERE id = ?", {value, id});
    }

    sqlite3* connection_;
    std::string name_;
    std::vector<Keys> keys_;
};

/// A vehicle that is gone may have left entries behind, which no new one is to show.
void RaiseAboveOwners(sqlite3* connection, LONGLONG* nextRef) {
    for (const char* table : {"entries", "reminders"})
        Query(connection, std::string("SELECT max(vehicle) FROM ") + table + " WHERE vehicle <= ?", {HighestKey},
            [&](sqlite3_stmt* row) { *nextRef = std::max(*nextRef, LONGLONG{sqlite3_column_int64(row, 0)} + 1); });
}

} // namespace

void filecheck::CheckSchema(sqlite3* connection) {
    OwnSchema own = ReadOwnSchema();
    for (const SchemaEntry& entry : ReadSchema(connection))
        if (entry.type == "table")
            CheckTable(connection, entry, own);
        else if (IsOwnIndex(entry, own))
            own.erase(entry.name);
        else if (entry.type != "index" || !entry.sql.empty())
            TakeOut(connection, entry);
    for (const auto& [name, missing] : own)
        if (missing.type == "index")
            Execute(connection, missing.sql);
}

bool filecheck::CheckPages(sqlite3* connection) {
    // It sees all that the other check does, and the indexes.
    if (RunCheck(connection, "PRAGMA integrity_check(1)", "ok") == SQLITE_OK)
        return true;
    // Newer releases of SQLite count the entries of an index here as well.
    const auto check
        = [connection] { return RunCheck(connection, "PRAGMA quick_check", "wrong # of entries in index"); };
    if (check() != SQLITE_OK)
        Require(CanBeRead(connection) ? check() : SQLITE_IOERR);
    return false;
}

void filecheck::MendKeys(sqlite3* connection) {
    std::array<KeyTable, 4> tables{KeyTable(connection, "vehicles"), KeyTable(connection, "entries"),
        KeyTable(connection, "keywords"), KeyTable(connection, "reminders")};
    LONGLONG nextRef = FirstRef;
    for (const KeyTable& table : tables)
        nextRef = std::max(nextRef, table.HighestRef() + 1);
    RaiseAboveOwners(connection, &nextRef);
    std::vector<LONGLONG> sequence;
    Query(connection, "SELECT next_ref FROM sequence", {},
        [&](sqlite3_stmt* row) { sequence.push_back(sqlite3_column_int64(row, 0)); });
    for (const LONGLONG next : sequence)
        nextRef = IsUsable(next) ? std::max(nextRef, next) : nextRef;
    for (KeyTable& table : tables) {
        table.MendRefs(&nextRef);
        table.MendIds();
    }
    if (sequence.size() == 1 && sequence[0] == nextRef)
        return;
    Execute(connection, "DELETE FROM sequence");
    Execute(connection, "INSERT INTO sequence (next_ref) VALUES (?)", {nextRef});
}

void filecheck::MendIndexes(sqlite3* connection) {
    sqlite3_exec(connection, "REINDEX", nullptr, nullptr, nullptr);
}
