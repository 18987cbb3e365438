#include "device_fixture.h"
#include "platform/files.h"
#include "platform/system/device_paths.h"
#include "platform/system/fresh_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const wchar_t* Target = L"\\My Documents\\My Vehicles.dat";
constexpr const wchar_t* Source = L"\\My Documents\\Default.ENU";

class FilesTest : public DeviceTest { };

TEST_F(FilesTest, PathsNeverLeaveTheMappedFolders) {
    const auto program = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    EXPECT_EQ(HostPathOf(L"/MY documents\\\\Ö \U0001F697\\b"), Documents() / "Ö 🚗" / "b");
    EXPECT_EQ(HostPathOf(L"\\Program Files\\odoledger\\Default.ENU"), program / "Default.ENU");
    for (const wchar_t* path : {L"", L"My Documents\\a", L"\\My Documents\\..\\registry", L"\\My Documents2\\a"})
        EXPECT_EQ(HostPathOf(path), std::nullopt) << std::filesystem::path(path);
    EXPECT_EQ(HostPathOf(std::wstring(L"\\My Documents\\a\0b", 17)), std::nullopt);
}

TEST_F(FilesTest, ACopyIsWholeAndReplacesNothing) {
    const std::string contents(200001, 'x');
    Write(Documents() / "Default.ENU", contents);
    std::filesystem::permissions(Documents() / "Default.ENU", std::filesystem::perms::owner_read);
    ASSERT_TRUE(CopyFileW(Source, Target, TRUE));
    EXPECT_EQ(Read(Documents() / "My Vehicles.dat"), contents);
    EXPECT_EQ(GetFileAttributesW(Target), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(GetFileAttributesW(Source), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(std::filesystem::status(Documents() / "My Vehicles.dat").permissions(), std::filesystem::perms{0600});

    Write(Documents() / "My Vehicles.dat", "precious");
    std::filesystem::permissions(Documents() / "My Vehicles.dat", std::filesystem::perms{0644}); // the user's own wish
    EXPECT_FALSE(CopyFileW(Source, Target, TRUE));
    EXPECT_EQ(Read(Documents() / "My Vehicles.dat"), "precious");
    EXPECT_FALSE(MoveFileW(Source, Target));
    EXPECT_FALSE(CopyFileW(Target, Source, FALSE));
    EXPECT_TRUE(CopyFileW(Source, Target, FALSE));
    EXPECT_EQ(Read(Documents() / "My Vehicles.dat"), contents);
    EXPECT_EQ(std::filesystem::status(Documents() / "My Vehicles.dat").permissions(), std::filesystem::perms{0644});
    EXPECT_EQ(CountFiles(Documents()), 2U);

    EXPECT_FALSE(CopyFileW(L"\\My Documents\\none", L"\\My Documents\\new", TRUE));
    mkfifo((Documents() / "pipe").c_str(), 0600);
    EXPECT_FALSE(CopyFileW(L"\\My Documents\\pipe", L"\\My Documents\\new", TRUE));
    EXPECT_FALSE(std::filesystem::exists(Documents() / "new"));
}

// A link in the documents is the user's own doing: what lies behind it is read, but nothing new is written through it.
TEST_F(FilesTest, LinksAreFollowedToWhatIsThereAndNotFurther) {
    Write(folder_ / "elsewhere" / "real.dat", "precious");
    std::filesystem::create_directories(Documents());
    std::filesystem::create_symlink(folder_ / "elsewhere" / "real.dat", Documents() / "My Vehicles.dat");
    std::filesystem::create_directory_symlink(folder_ / "elsewhere", Documents() / "link");
    EXPECT_EQ(GetFileAttributesW(Target), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(GetFileAttributesW(L"\\My Documents\\link\\real.dat"), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(GetFileAttributesW(L"\\My Documents\\link\\..\\storage"), INVALID_FILE_ATTRIBUTES);
    std::filesystem::create_symlink("nowhere", Documents() / "loose");
    EXPECT_TRUE(IsNameTaken(L"\\My Documents\\loose") && !IsNameTaken(L"\\My Documents\\none"));
    Write(Documents() / "Default.ENU", "fresh");
    EXPECT_FALSE(CopyFileW(Source, L"\\My Documents\\loose", TRUE));
    EXPECT_FALSE(CopyFileW(Source, Target, TRUE));
    EXPECT_FALSE(CopyFileW(Source, Target, FALSE));
    EXPECT_TRUE(MoveFileW(Target, L"\\My Documents\\My Vehicles.dat.bad")); // the link itself
    EXPECT_TRUE(CopyFileW(Source, Target, TRUE));
    EXPECT_EQ(Read(Documents() / "My Vehicles.dat.bad"), "precious");
    EXPECT_EQ(CountFiles(folder_ / "elsewhere"), 1U);
}

TEST_F(FilesTest, ACopyThatRunsOutOfSpaceLeavesNothing) {
    Write(Documents() / "Default.ENU", std::string(200000, 'x'));
    const BOOL copied = WithoutRoom(70000, [] { return CopyFileW(Source, Target, TRUE); });
    EXPECT_FALSE(copied);
    EXPECT_EQ(CountFiles(Documents()), 1U);
}

TEST_F(FilesTest, WhatAKilledProcessLeftGoesAndNothingElseDoes) {
    const std::string dead = "999999999"; // beyond the highest that there can be
    Write(Documents() / (".odoledger-" + dead + "-0"), "half a fi");
    Write(Storage() / (".odoledger-" + dead + "-3"), "");
    Write(Documents() / (".odoledger-" + std::to_string(getppid()) + "-0"), "at work");
    for (const std::string& name : {"odoledger-" + dead + "-0", ".odoledger-" + dead, ".odoledger-" + dead + "-",
             ".odoledger-" + dead + "-0.dat", std::string{".odoledger--0"}, "." + dead + "-0"})
        Write(Documents() / name, "the user's");
    std::filesystem::create_directory(Documents() / (".odoledger-" + dead + "-1"));
    std::filesystem::create_symlink("My Vehicles.dat", Documents() / (".odoledger-" + dead + "-2"));
    Write(Documents() / (".odoledger-" + dead + "-4"), "of another container");
    const device::FileDescriptor used{open((Documents() / (".odoledger-" + dead + "-4")).c_str(), O_RDONLY)};
    ASSERT_EQ(flock(used.Get(), LOCK_EX), 0);
    ASSERT_EQ(CountFiles(Documents()), 11U);
    device::ClearLeftovers();
    EXPECT_EQ(CountFiles(Documents()), 10U);
    EXPECT_FALSE(std::filesystem::exists(Documents() / (".odoledger-" + dead + "-0")));
    EXPECT_EQ(CountFiles(Storage()), 1U);
}

TEST_F(FilesTest, ADocumentsFolderThatCannotBeMadeHasItsNameNevertheless) {
    Write(Documents(), "a file");
    wchar_t path[MAX_PATH] = L"";
    EXPECT_FALSE(SHGetSpecialFolderPath(nullptr, path, CSIDL_PERSONAL, TRUE));
    EXPECT_STREQ(path, L"\\My Documents");
}

TEST_F(FilesTest, TheDocumentsFolderIsMadeOnDemandAndListed) {
    EXPECT_EQ(GetFileAttributesW(L"\\My Documents"), INVALID_FILE_ATTRIBUTES);
    wchar_t program[MAX_PATH] = L"";
    EXPECT_EQ(GetModuleFileNameW(nullptr, program, 20), 0U);
    ASSERT_NE(GetModuleFileNameW(nullptr, program, MAX_PATH), 0U);
    ASSERT_TRUE(CopyFileW(program, Source, TRUE));
    EXPECT_EQ(GetFileAttributesW(L"\\My Documents"), FILE_ATTRIBUTE_DIRECTORY);
    Write(Documents() / "a\xFF", "12345");
    Write(Documents() / "folder" / "c", "");
    ASSERT_TRUE(MoveFileW(Source, L"\\My Documents\\Ä"));
    std::filesystem::permissions(Documents() / "Ä", std::filesystem::perms::owner_read);
    const auto files = device::ListDocuments();
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0].name, "a\uFFFD");
    EXPECT_EQ(files[0].size, 5U);
    EXPECT_TRUE(files[1].readOnly);
}

} // namespace
