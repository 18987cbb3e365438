// Journals beside the data file: those that belong to it, and all others.

#include "log_file.h"
#include "test_device.h"

#include <csignal>
#include <functional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class Journals : public TestDevice {
protected:
    static std::string Beside(const std::string& suffix) { return HostPath() + suffix; }
    void Make(const std::string& sql) {
        fs::remove_all(Documents());
        fs::create_directories(Documents());
        CDataFile::Create(HostPath());
        LogFile(HostPath()).Run(sql + ";" + rows);
    }
    /// File and journal as they lie there while a transaction is under way that has begun to write.
    static void Crash(const std::string& settings, const std::string& suffix, const char* first = writeFirstPage) {
        std::string file;
        std::string journal;
        {
            LogFile other(HostPath());
            other.Run(settings);
            other.Run(std::string("BEGIN; ") + first + "UPDATE keywords SET name = 'half'"
                + std::string(suffix == "-wal" ? "; COMMIT" : ""));
            file = Read(HostPath());
            journal = Read(Beside(suffix));
        }
        Write(HostPath(), file);
        Write(Beside(suffix), journal);
    }
    std::string FirstKeyword() {
        CObjectListT<CKeyword> keywords;
        if (!Layer.Load(&keywords, CKeyword::KeywordRepair) || keywords.GetCount() != 500)
            return "?";
        const std::wstring name = keywords.Get(0)->GetName();
        return {name.begin(), name.end()};
    }

    // Enough that a cache of one page cannot hold them.
    static constexpr const char* rows
        = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 500)"
          " INSERT INTO keywords SELECT i, 1000 + i, 2, 'whole', printf('%99s', '') FROM n";
    static constexpr const char* spilling = "PRAGMA cache_size = 1";
    static constexpr const char* writeFirstPage = "PRAGMA user_version = 1; ";

    CDataLayer Layer;
};

TEST_F(Journals, OneOfThisFileTakesItBack) {
    Make("");
    Crash(spilling, "-journal");
    ASSERT_NE(Read(HostPath()).find("half"), std::string::npos);
    ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    EXPECT_EQ(FirstKeyword(), "whole");
    EXPECT_EQ(CountFiles(Documents()), 1U);
}

TEST_F(Journals, OneOfThisFileTakesItBackToPagesOfTheFormerSize) {
    Make("");
    Crash(spilling, "-journal");
    std::string file = Read(HostPath());
    file[16] *= 2; // the size of its pages
    ++file[27]; // the change counter
    Write(HostPath(), file);
    ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    EXPECT_EQ(FirstKeyword(), "whole");
}

TEST_F(Journals, OneOfThisFileBringsItForward) {
    Make("PRAGMA journal_mode = WAL");
    Crash("PRAGMA wal_autocheckpoint = 0", "-wal");
    ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    EXPECT_EQ(FirstKeyword(), "half");
    EXPECT_EQ(CountFiles(Documents()), 1U);
}

TEST_F(Journals, OneOfAnotherStateIsPutAside) {
    // Without the first page in it nothing tells whose it is.
    for (const char* first : {writeFirstPage, ""}) {
        SCOPED_TRACE(first);
        Make("");
        const std::string backup = Read(HostPath());
        LogFile(HostPath()).Run("UPDATE keywords SET name = 'later'; UPDATE keywords SET name = 'latest'");
        Crash(spilling, "-journal", first);
        const std::string journal = Read(Beside("-journal"));
        Write(HostPath(), backup);
        Write(Beside("-journal.bad"), "mine");
        ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
        EXPECT_EQ(FirstKeyword(), "whole");
        EXPECT_EQ(Read(Beside("-journal.bad")), "mine");
        EXPECT_EQ(Read(Beside("-journal.bad2")), journal);
        Layer.Disconnect();
    }
}

// To SQLite all of these say what is to be done, or keep it waiting.
TEST_F(Journals, WhatIsNoneOfOursIsPutAside) {
    const std::string name = Beside("-journal");
    const std::string victim = Documents() / "letters";
    const auto nameAnother = [&] {
        Crash(spilling, "-journal");
        std::uint32_t sum = 0;
        for (const char character : victim)
            sum += static_cast<std::uint32_t>(character);
        const auto bytes = [](std::uint32_t number) {
            return std::string{static_cast<char>(number >> 24U), static_cast<char>(number >> 16U),
                static_cast<char>(number >> 8U), static_cast<char>(number)};
        };
        const std::string journal = Read(name);
        LogFile(HostPath()).Run("SELECT 1 FROM keywords");
        Write(name,
            journal + bytes(0x40000000 / 4096 + 1) + victim + bytes(static_cast<std::uint32_t>(victim.size()))
                + bytes(sum) + journal.substr(0, 8));
    };
    const std::function<void()> strangers[] = {
        nameAnother,
        [&] { Write(name, "a letter"); },
        [&] { Write(name, std::string(4096, '\0')); },
        [&] { // hardly anything on the disk, and a tebibyte to go through
            const std::string file = Read(HostPath());
            Crash(spilling, "-journal");
            Write(HostPath(), file);
            Write(name, Read(name).replace(8, 12, 12, '\xFF').substr(0, 512));
            fs::resize_file(name, std::uintmax_t{1} << 40U);
        },
        [&] { ASSERT_EQ(mkfifo(name.c_str(), 0600), 0); },
        [&] { fs::create_directory(name); },
        [&] { fs::create_symlink("nowhere", name); },
        [&] { Write(Beside("-wal"), "a letter"); },
        [&] { ASSERT_EQ(mkfifo(Beside("-shm").c_str(), 0600), 0); },
    };
    for (const auto& place : strangers) {
        SCOPED_TRACE(&place - strangers);
        Make("");
        Write(victim, "Dear reader");
        place();
        ASSERT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
        EXPECT_EQ(FirstKeyword(), "whole");
        CKeyword keyword;
        EXPECT_TRUE(Layer.Save(&keyword, 0));
        EXPECT_EQ(Read(victim), "Dear reader");
        EXPECT_EQ(CountFiles(Documents()), 3U);
        Layer.Disconnect();
    }
}

TEST_F(Journals, BesideARefusedFileNothingIsTouched) {
    Make("PRAGMA journal_mode = WAL");
    Crash("PRAGMA wal_autocheckpoint = 0", "-wal");
    std::string damaged = Read(HostPath());
    damaged.replace(4096, 2048, 2048, '\x5A');
    for (const std::string& file : {damaged, std::string(), std::string("a letter")}) {
        Write(HostPath(), file);
        const std::string log = Read(Beside("-wal"));
        Write(Beside("-journal"), file.empty() ? "a letter" : "");
        const std::string journal = Read(Beside("-journal"));
        EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectInvalid);
        EXPECT_TRUE(Read(HostPath()) == file && Read(Beside("-wal")) == log && Read(Beside("-journal")) == journal);
    }
}

TEST_F(Journals, OneOfALivingTransactionStays) {
    Make("");
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        LogFile other(HostPath());
        other.Run("BEGIN; UPDATE keywords SET name = 'half'");
        static_cast<void>(!write(ready[1], "!", 1));
        pause();
        _exit(0);
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    const std::string journal = Read(Beside("-journal"));
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectFailed);
    EXPECT_EQ(Read(Beside("-journal")), journal);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_EQ(Layer.Connect(Path), CDataLayer::ConnectOK);
    EXPECT_EQ(FirstKeyword(), "whole");
    EXPECT_EQ(CountFiles(Documents()), 1U);
}

} // namespace
