#include "test_device.h"

#include <fstream>
#include <sqlite3.h>
#include <sys/stat.h>

namespace {

class Connect : public TestDevice {
protected:
    ~Connect() override { Layer.Disconnect(); }

    static void Make(const char* sql) {
        CDataFile::Create(HostPath());
        Run(sql);
    }
    static void Run(const char* sql) {
        sqlite3* connection = nullptr;
        ASSERT_EQ(sqlite3_open(HostPath().c_str(), &connection), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(connection);
        sqlite3_close(connection);
    }
    static std::string Contents() {
        std::ifstream file(HostPath(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static void Write(const std::string& bytes) { std::ofstream(HostPath(), std::ios::binary) << bytes; }

    CDataLayer Layer;
};

TEST_F(Connect, FindsAFileThatCameLater) {
    for (const wchar_t* path : {Path, L"", L"\\elsewhere\\x.dat", L"\\My Documents\\none\\x.dat"})
        EXPECT_EQ(Layer.Connect(path), CDataLayer::ConnectNotFound);
    EXPECT_EQ(Layer.Connect(nullptr), CDataLayer::ConnectNotFound);
    EXPECT_FALSE(std::filesystem::exists(HostPath()));
    Make("");
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    Layer.Disconnect();
    Layer.Disconnect();
}

TEST_F(Connect, TellsAForeignFileAndLeavesItAlone) {
    Make("INSERT INTO keywords (ref, type, name, notes) VALUES (1, 2, 'Oil', '')");
    const std::string good = Contents();
    const std::string contents[] = {"", "x", std::string(5000, '\0'), "SQLite format 3", good.substr(0, 4096),
        good.substr(0, good.size() - 4096), good.substr(0, 1000), good.substr(0, 18) + '\x7' + good.substr(19)};
    for (const std::string& bytes : contents) {
        Write(bytes);
        EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectInvalid) << bytes.size();
        EXPECT_EQ(Contents(), bytes);
    }
    Write(good);
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
}

TEST_F(Connect, DamagedLengthsAreNotTakenForALackOfMemory) {
    Make("");
    const std::string good = Contents();
    for (std::size_t place = 2048; place < 4096; ++place) { // where the schema lies
        std::filesystem::remove(HostPath()); // cheaper than to write over it
        Write(good.substr(0, place) + "\xFF\xFF\xFF\xFF\x7F\xFF" + good.substr(place + 6));
        EXPECT_NE(Layer.Connect(Path), CDataLayer::ConnectFailed) << place;
    }
}

TEST_F(Connect, TellsAnotherVersionOrADamagedFile) {
    const char* const changes[] = {"PRAGMA application_id = 0", "PRAGMA user_version = 0", "PRAGMA user_version = 2",
        "DROP TABLE reminders", "ALTER TABLE entries RENAME COLUMN custom2 TO custom3", "DELETE FROM sequence",
        "PRAGMA writable_schema = 1; DELETE FROM sqlite_schema WHERE name = 'entries_in_order'"};
    for (const char* sql : changes) {
        std::filesystem::remove(HostPath());
        Make(sql);
        EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectInvalid) << sql;
    }
    std::filesystem::remove(HostPath());
    std::filesystem::create_directory(HostPath());
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectInvalid);
}

TEST_F(Connect, TellsAReadOnlyFileByItsPermissionBits) {
    Make("");
    chmod(HostPath().c_str(), 0444); // also where the owner could write all the same
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectReadOnly);
    chmod(HostPath().c_str(), 0644);
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
}

TEST_F(Connect, ALockedFileIsNotAnInvalidOne) {
    Make("");
    sqlite3* other = nullptr;
    sqlite3_open(HostPath().c_str(), &other);
    sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectFailed);
    sqlite3_close(other);
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
}

TEST_F(Connect, LeavesOneFileAtRestWhateverModeItFinds) {
    Make("PRAGMA journal_mode = WAL");
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    CKeyword keyword;
    EXPECT_TRUE(Layer.Save(&keyword, 0));
    const auto folder = std::filesystem::path(HostPath()).parent_path();
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
    std::filesystem::rename(HostPath(), HostPath() + ".copy");
    std::filesystem::create_symlink(HostPath() + ".copy", HostPath());
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
}

TEST_F(Connect, NothingThatLiesInTheFileGetsToRun) {
    Make("CREATE TRIGGER bite AFTER INSERT ON keywords BEGIN DELETE FROM vehicles; END");
    ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    CVehicle vehicle;
    CKeyword keyword;
    ASSERT_TRUE(Layer.Save(&vehicle, 0) && Layer.Save(&keyword, 0));
    CObjectListT<CVehicle> vehicles;
    EXPECT_TRUE(Layer.Load(&vehicles));
    EXPECT_EQ(vehicles.GetCount(), 1);
}

TEST_F(Connect, SeesWhatAnotherProgramWrote) {
    Make("");
    ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    Run("INSERT INTO keywords (ref, type, name, notes) VALUES (5000000000, 2, CAST(x'4FFF6C' AS TEXT), '')");
    CObjectListT<CKeyword> keywords;
    ASSERT_TRUE(Layer.Load(&keywords, CKeyword::KeywordRepair));
    ASSERT_EQ(keywords.GetCount(), 1);
    EXPECT_STREQ(keywords.Get(0)->GetName(), L"O\uFFFDl");
    EXPECT_EQ(keywords.Get(0)->GetRefID(), 0xFFFFFFFFU);
}

TEST_F(Connect, AFileThatIsRuinedLaterFailsQuietly) {
    for (const char* rubbish : {"", "rubbish"}) {
        std::filesystem::remove(HostPath());
        Make("");
        ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
        Write(rubbish);
        CObjectListT<CVehicle> vehicles;
        CVehicle vehicle;
        EXPECT_FALSE(Layer.Load(&vehicles));
        EXPECT_FALSE(Layer.Save(&vehicle, 0));
        EXPECT_EQ(Contents(), rubbish);
    }
    std::filesystem::remove(HostPath());
    Make("");
    ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    std::filesystem::rename(HostPath(), HostPath() + ".moved");
    CVehicle vehicle;
    EXPECT_FALSE(Layer.Save(&vehicle, 0)); // it would go into a file that nobody finds again
}

} // namespace
