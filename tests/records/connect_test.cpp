#include "faulty_disk.h"
#include "log_file.h"
#include "records/entry_filter.h"
#include "test_device.h"

#include <ctime>
#include <cwchar>

namespace {

class Connect : public TestDevice {
protected:
    static void Make(const std::string& sql = "") {
        std::filesystem::remove(HostPath());
        CDataFile::Create(HostPath());
        Run(sql);
    }
    static void Run(const std::string& sql) { LogFile(HostPath()).Run(sql); }
    static std::string Contents() { return Read(HostPath()); }
    static void Write(const std::string& bytes) { TestDevice::Write(HostPath(), bytes); }

    CDataLayer Layer;
};

TEST_F(Connect, TellsAForeignFileAndLeavesItAlone) {
    Make();
    const std::string good = Contents();
    const std::string contents[] = {"", "x", std::string(5000, '\0'), "SQLite format 3", good.substr(0, 4096),
        good.substr(0, good.size() - 4096), good.substr(0, 1000), good.substr(0, 18) + '\x7' + good.substr(19)};
    for (const std::string& bytes : contents) {
        Write(bytes);
        EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectInvalid) << bytes.size();
        EXPECT_EQ(Contents(), bytes);
    }
}

TEST_F(Connect, DamagedLengthsAreNotTakenForALackOfMemory) {
    Make();
    const std::string good = Contents();
    for (std::size_t place = 2048; place < 4096; ++place) { // where the schema lies
        std::filesystem::remove(HostPath()); // cheaper than to write over it
        Write(good.substr(0, place) + "\xFF\xFF\xFF\xFF\x7F\xFF" + good.substr(place + 6));
        EXPECT_NE(Layer.Connect(Path), CDataLayer::ConnectFailed) << place;
    }
}

TEST_F(Connect, AnIndexThatHidesEntriesIsMadeAnew) {
    Make("INSERT INTO entries VALUES (1, 1002, 1001, 1, 1, 1, 1, 1, 1, 'seen', '', '');"
         "PRAGMA writable_schema = ON; CREATE TABLE kept AS SELECT * FROM sqlite_schema WHERE type = 'index';"
         "DELETE FROM sqlite_schema WHERE type = 'index'");
    Run("INSERT INTO entries VALUES (2, 1003, 1001, 2, 1, 2, 1, 1, 1, 'hidden', '', ''); PRAGMA writable_schema = ON;"
        "INSERT INTO sqlite_schema SELECT * FROM kept");
    const std::string lying = Contents();
    ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    CEntryFilter filter;
    filter.SetVehicleID(1001);
    CObjectListT<CEntry> entries;
    EXPECT_TRUE(Layer.Load(&entries, &filter) && entries.GetCount() == 2);

    Layer.Disconnect();
    Write(lying);
    Run("ALTER TABLE reminders RENAME TO others");
    const std::string refused = Contents();
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectInvalid);
    EXPECT_EQ(Contents(), refused) << "a file that is refused stays as it is";
}

TEST_F(Connect, ALockedFileIsNotAnInvalidOne) {
    Make();
    LogFile other(HostPath());
    other.Run("BEGIN EXCLUSIVE");
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectFailed);
}

// An invalid file makes way for a fresh one, so a disk that fails must never look like it.
TEST_F(Connect, AFailingDiskIsNoInvalidFile) {
    Make("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50)"
         " INSERT INTO keywords SELECT i, 1000 + i, 2, printf('%1000s', ''), '' FROM n");
    for (const auto span : {FaultyDisk::Span::Once, FaultyDisk::Span::FromThenOn}) {
        int operation = 0;
        for (bool hasFailed = true; hasFailed; ++operation) {
            FaultyDisk disk;
            disk.FailAt(operation, span, FaultyDisk::Error::Io);
            const CDataLayer::ConnectStatus status = Layer.Connect(Path);
            hasFailed = disk.HasFailed();
            disk.Mend();
            EXPECT_TRUE(status == CDataLayer::ConnectOK || (hasFailed && status == CDataLayer::ConnectFailed))
                << operation << ": " << status;
            EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
            Layer.Disconnect();
        }
        EXPECT_GT(operation, 20);
    }
}

TEST_F(Connect, LeavesOneFileAtRestWhateverModeItFinds) {
    Make("PRAGMA journal_mode = WAL");
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    CKeyword keyword;
    EXPECT_TRUE(Layer.Save(&keyword, 0));
    EXPECT_EQ(CountFiles(Documents()), 1U);
    std::filesystem::rename(HostPath(), HostPath() + ".copy");
    std::filesystem::create_symlink(HostPath() + ".copy", HostPath());
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
}

TEST_F(Connect, TheConnectionIsSafeAndTrustsNobody) {
    static sqlite3* connection = nullptr; // the first one that is opened
    const auto see = [](sqlite3* opened, char** /*error*/, const void* /*routines*/) {
        connection = connection ? connection : opened;
        return SQLITE_OK;
    };
    Make();
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(+see));
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    sqlite3_reset_auto_extension();
    for (const auto& [pragma, wanted] : {std::pair{"journal_mode", "delete"}, {"synchronous", "3"},
             {"cache_spill", "0"}, {"ignore_check_constraints", "0"}, {"cell_size_check", "1"}, {"trusted_schema", "0"},
             {"foreign_keys", "0"}}) {
        const auto isWanted = [](void* value, int /*columns*/, char** found, char** /*names*/) {
            return std::string(static_cast<const char*>(value)) == found[0] ? 0 : 1;
        };
        EXPECT_EQ(sqlite3_exec(connection, (std::string("PRAGMA ") + pragma).c_str(), isWanted,
                      const_cast<char*>(wanted), nullptr),
            SQLITE_OK)
            << pragma;
    }
    EXPECT_NE(sqlite3_exec(connection, "ATTACH ':memory:' AS other", nullptr, nullptr, nullptr), SQLITE_OK);
    int loadsExtensions = 1;
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, -1, &loadsExtensions);
    EXPECT_EQ(loadsExtensions, 0);
}

TEST_F(Connect, AChangedFileIsHarmlessOrInvalid) {
    const std::string edit = "PRAGMA writable_schema = 1; UPDATE sqlite_schema SET ";
    const std::string check = edit + "sql = replace(sql, 'notes TEXT NOT NULL', 'notes TEXT NOT NULL CHECK (";
    const std::string asText = ")') WHERE name = 'keywords'";
    std::string nested = "notes";
    for (int depth = 0; depth < 50; ++depth)
        nested += " || notes";
    constexpr auto ok = CDataLayer::ConnectOK;
    constexpr auto invalid = CDataLayer::ConnectInvalid;
    const struct {
        std::string sql;
        CDataLayer::ConnectStatus status;
        bool takesKeywords = false;
    } files[] = {
        {"PRAGMA application_id = 0", invalid},
        {"PRAGMA user_version = 2", invalid},
        {"DROP TABLE reminders", invalid},
        {"DELETE FROM sequence", ok, true},
        {"ALTER TABLE entries RENAME COLUMN custom2 TO custom3", invalid},
        {"PRAGMA writable_schema = 1; DELETE FROM sqlite_schema WHERE name = 'entries_in_order'", invalid},
        {"DROP INDEX entries_in_order", ok, true},
        {"ALTER TABLE keywords ADD COLUMN colour TEXT NOT NULL DEFAULT 'red'", ok, true},
        {"ALTER TABLE keywords ADD COLUMN colour TEXT DEFAULT (hex(zeroblob(9)))", invalid},
        {"ALTER TABLE keywords RENAME TO other; ALTER TABLE other RENAME TO keywords", ok, true},
        {"CREATE TRIGGER bite AFTER INSERT ON keywords BEGIN DELETE FROM vehicles; END", ok, true},
        {"CREATE TABLE more (x REFERENCES vehicles ON DELETE CASCADE); CREATE INDEX names ON vehicles (name)", ok,
            true},
        {"CREATE VIEW bait AS SELECT load_extension(name) FROM vehicles", ok, true},
        {check + "length(notes) = 0" + asText, invalid},
        {check + nested + " = notes" + asText, invalid},
        {"CREATE TABLE long (x DEFAULT '" + std::string(20000, 'x') + "')", invalid},
        {"ALTER TABLE keywords RENAME TO hidden; CREATE VIEW keywords AS SELECT * FROM hidden", invalid},
        {"DROP TABLE keywords; CREATE VIRTUAL TABLE keywords USING fts5 (id, ref, type, name, notes)", invalid},
        {"ALTER TABLE keywords DROP COLUMN notes; ALTER TABLE keywords ADD COLUMN notes TEXT AS ('x')", invalid},
        {edit + "rootpage = (SELECT rootpage FROM sqlite_schema WHERE name = 'entries') WHERE name = 'keywords'",
            invalid},
        {edit + "sql = 'CREATE TABLE keywords (id' WHERE name = 'keywords'", invalid},
        {edit + "rootpage = 1 WHERE name = 'entries_in_order'", invalid},
    };
    for (const auto& [sql, status, takesKeywords] : files) {
        SCOPED_TRACE(sql.substr(0, 150));
        Make(sql);
        ASSERT_EQ(Layer.Connect(Path), status);
        CVehicle vehicle;
        vehicle.SetNotes(std::wstring(3'000'000, L'\u00E9').c_str());
        CKeyword keyword;
        EXPECT_EQ(Layer.Save(&vehicle, 0) != 0, status == ok);
        EXPECT_EQ(Layer.Save(&keyword, 0) != 0, takesKeywords);
        CObjectListT<CVehicle> vehicles;
        ASSERT_EQ(Layer.Load(&vehicles) != 0, status == ok);
        EXPECT_TRUE(status != ok || std::wcscmp(vehicles.Get(0)->GetNotes(), vehicle.GetNotes()) == 0);
    }
}

// What takes seconds for two hundred rows would run at every start and with every change.
TEST_F(Connect, NothingOfAStrangersRuns) {
    const std::string rows = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 200)"
                             " INSERT INTO keywords SELECT i, 1000 + i, 2, i, '' FROM n;"
                             "CREATE TABLE more AS SELECT name FROM keywords; CREATE INDEX names ON keywords (name);"
                             "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = ";
    const std::string slow = "printf(''%.*c'', 50000000, ''x'') <> name";
    const std::pair<std::string, CDataLayer::ConnectStatus> files[] = {
        {"'CREATE INDEX names ON keywords (" + slow + ")' WHERE name = 'names'", CDataLayer::ConnectOK},
        {"'CREATE INDEX names ON keywords (name) WHERE " + slow + "' WHERE name = 'names'", CDataLayer::ConnectOK},
        {"'CREATE TABLE more (name TEXT CHECK (" + slow + "))' WHERE name = 'more'", CDataLayer::ConnectOK},
        {"'CREATE TABLE more (name TEXT, other AS (" + slow + ") NOT NULL)' WHERE name = 'more'",
            CDataLayer::ConnectInvalid},
        {"sql; CREATE TABLE other (name UNIQUE); UPDATE sqlite_schema SET type ="
         " 'index if exists i; DELETE FROM keywords; --' WHERE name = 'sqlite_autoindex_other_1'",
            CDataLayer::ConnectInvalid},
    };
    const std::clock_t oneBegin = std::clock();
    LogFile(":memory:").Run("SELECT printf('%.*c', 50000000, 'x') <> ''");
    const std::clock_t one = std::clock() - oneBegin; // of two hundred rows
    for (const auto& [sql, status] : files) {
        SCOPED_TRACE(sql);
        Make(rows + sql);
        const std::string before = Contents();
        const std::clock_t begin = std::clock();
        EXPECT_EQ(Layer.Connect(Path), status);
        CKeyword keyword;
        EXPECT_EQ(Layer.Save(&keyword, 0) != 0, status == CDataLayer::ConnectOK);
        EXPECT_LT(std::clock() - begin, 40 * one);
        EXPECT_EQ(Contents() == before, status == CDataLayer::ConnectInvalid);
    }
}

// A file that was mended or merged by hand.
TEST_F(Connect, EveryRecordHasKeysOfItsOwn) {
    const std::string rest = ", '', '', '', 1, 2, '', '', '', '', 0, '', '', '')";
    Make("INSERT INTO vehicles VALUES (1, 1005, 'first'" + rest + ", (2, 1005, 'second'" + rest
        + ", (2147483647, 4294967295, 'high'" + rest
        + ";INSERT INTO entries VALUES (1, 1006, 1005, 1, 1, 1, 1, 1, 1, 'of the first', '', ''),"
          " (2, 1006, 4294967295, 1, 1, 1, 1, 1, 1, 'of the high one', '', ''),"
          " (2147483647, 1009, 1020, 1, 1, 1, 1, 1, 1, 'of one that is gone', '', '');"
          "INSERT INTO keywords VALUES (1, 0, 2, 'Oil', ''); DELETE FROM sequence");
    ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    CVehicle vehicle;
    vehicle.SetName(L"new");
    EXPECT_TRUE(Layer.Save(&vehicle, 0));
    CEntry entry;
    entry.SetVehicleID(vehicle.GetRefID());
    entry.SetName(L"of the new one");
    EXPECT_TRUE(Layer.Save(&entry, 0));
    LogFile log(HostPath());
    EXPECT_EQ(log.Run("SELECT vehicles.name, entries.name FROM vehicles LEFT JOIN entries ON vehicle = vehicles.ref"
                      " ORDER BY vehicles.name"),
        "first|of the first\nhigh|of the high one\nnew|of the new one\nsecond|NULL");
    EXPECT_EQ(log.Run("SELECT ref FROM (SELECT ref FROM vehicles UNION ALL SELECT ref FROM entries"
                      " UNION ALL SELECT ref FROM keywords) GROUP BY ref HAVING count(*) > 1 OR ref < 1"),
        "");
    const std::string opened = Contents();
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    EXPECT_EQ(Contents(), opened) << "what was mended stays as it is";
}

TEST_F(Connect, SeesWhatAnotherProgramWrote) {
    Make();
    ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    Run("INSERT INTO keywords (ref, type, name, notes) VALUES (5000000000, 2, CAST(x'4FFF006C' AS TEXT), '')");
    CObjectListT<CKeyword> keywords;
    ASSERT_TRUE(Layer.Load(&keywords, CKeyword::KeywordRepair) && keywords.GetCount() == 1);
    EXPECT_STREQ(keywords.Get(0)->GetName(), L"O\uFFFD\uFFFDl");
    EXPECT_EQ(keywords.Get(0)->GetRefID(), 0xFFFFFFFFU);
}

TEST_F(Connect, AFileThatTookTheNameIsOpenedWithTheVehicles) {
    Make("INSERT INTO keywords VALUES (1, 1001, 2, 'new', '')");
    std::filesystem::rename(HostPath(), HostPath() + ".other");
    Make();
    ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    EXPECT_FALSE(Layer.IsReplaced());
    std::filesystem::rename(HostPath() + ".other", HostPath());
    EXPECT_TRUE(Layer.IsReplaced());
    CVehicle vehicle;
    EXPECT_FALSE(Layer.Save(&vehicle, 0)) << "what is on the screen is of the other file";
    EXPECT_EQ(Layer.LastFailure(), StoreFailure::Replaced);
    CObjectListT<CVehicle> vehicles;
    EXPECT_TRUE(Layer.Load(&vehicles));
    EXPECT_FALSE(Layer.IsReplaced());
    CObjectListT<CKeyword> keywords;
    EXPECT_TRUE(Layer.Load(&keywords, CKeyword::KeywordRepair) && keywords.GetCount() == 1);
    EXPECT_TRUE(Layer.Save(&vehicle, 0));
}

TEST_F(Connect, AQuotaIsALackOfSpace) {
    Make();
    ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    CVehicle vehicle;
    EXPECT_FALSE(WithoutRoom(4096, [&] { return Layer.Save(&vehicle, 0); }));
    EXPECT_EQ(Layer.LastFailure(), StoreFailure::NoSpace);
}

TEST_F(Connect, AFileThatIsRuinedOrMovedLaterFailsQuietly) {
    for (const char* ruin : {"", "rubbish", "moved"}) {
        const bool isMoved = std::string(ruin) == "moved";
        Make();
        ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
        if (isMoved)
            std::filesystem::rename(HostPath(), HostPath() + ".moved");
        else
            Write(ruin);
        CObjectListT<CVehicle> vehicles;
        CVehicle vehicle;
        EXPECT_TRUE(isMoved || !Layer.Load(&vehicles));
        EXPECT_FALSE(Layer.Save(&vehicle, 0)); // of a moved file: it would go where nobody finds it again
        EXPECT_EQ(Contents(), isMoved ? "" : ruin);
    }
}

} // namespace
