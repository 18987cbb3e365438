#include "device_fixture.h"
#include "platform/registry.h"
#include "platform/system/host_file.h"
#include "platform/system/registry_file.h"
#include "platform/utf8.h"

#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using device::RegistryValue;

constexpr const wchar_t* Key = L"Software\\Larkfield Software\\Odoledger";

class RegistryTest : public DeviceTest {
protected:
    static HKEY Create() {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, Key, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key, nullptr),
            ERROR_SUCCESS);
        return key;
    }
    static LONG Put(HKEY key, const wchar_t* name, const RegistryValue& value) {
        return RegSetValueExW(key, name, 0, value.type, value.data.data(), static_cast<DWORD>(value.data.size()));
    }
    static DWORD NumberOf(HKEY key, const wchar_t* name) {
        DWORD number = 0;
        DWORD size = sizeof number;
        RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size);
        return number;
    }
    /// As the console tells them: name, kind, value.
    static std::string All() {
        std::string all;
        for (const auto& [name, value] : device::ListRegistryValues(Key)) {
            all += device::ToUtf8(name) + ' ' + std::to_string(value.type) + ' ';
            all += value.type == REG_DWORD ? std::to_string(value.Number())
                : value.type == REG_BINARY ? std::to_string(value.data.size()) + " bytes"
                                           : device::ToUtf8(value.Text());
            all += '\n';
        }
        return all;
    }
    std::filesystem::path File() const { return Storage() / "registry"; }
    static std::string Section(const std::string& lines) {
        return "[Software\\Larkfield Software\\Odoledger]\n" + lines;
    }
};

TEST_F(RegistryTest, EveryKindOfValueSurvivesThePowerCut) {
    HKEY key = Create();
    EXPECT_EQ(Put(key, L"Bytes", {REG_BINARY, {0, 0xFF, 0x10, 0x0A}}), ERROR_SUCCESS);
    EXPECT_EQ(Put(key, L"", RegistryValue::OfText(L"\\My Documents\\Kürbis \U0001F697.dat ", REG_SZ)), ERROR_SUCCESS);
    EXPECT_EQ(Put(key, L"t 1=ä]", RegistryValue::OfText(L" two\r\nlines\t=[x]\\n#;", REG_SZ)), ERROR_SUCCESS);
    EXPECT_EQ(Put(key, L"t 2=ä]", RegistryValue::OfText(L"€", REG_EXPAND_SZ)), ERROR_SUCCESS);
    EXPECT_FALSE(std::filesystem::exists(File()));
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);

    EXPECT_EQ(std::filesystem::status(File()).permissions(), std::filesystem::perms{0600});
    device::ReplaceEnvironment(variables_);
    EXPECT_EQ(All(),
        " 1 \\My Documents\\Kürbis \U0001F697.dat \nBytes 3 4 bytes\n"
        "t 1=ä] 1  two\r\nlines\t=[x]\\n#;\nt 2=ä] 2 €\n");
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"SOFTWARE\\larkfield software\\Odoledger", 0, KEY_READ, &key), 0);
    BYTE back[5] = {0, 0, 0, 0, 7};
    DWORD size = 3;
    EXPECT_EQ(RegQueryValueExW(key, L"Bytes", nullptr, nullptr, back, &size), ERROR_MORE_DATA);
    EXPECT_EQ(size, 4U);
    EXPECT_EQ(RegQueryValueExW(key, L"Bytes", nullptr, nullptr, back, &size), ERROR_SUCCESS);
    EXPECT_EQ(std::memcmp(back, "\x00\xFF\x10\x0A\x07", 5), 0);
    EXPECT_EQ(Put(key, L"Bytes", RegistryValue::OfNumber(1)), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
}

TEST_F(RegistryTest, WaitingChangesShowAtOnceAndLeaveAllElseAlone) {
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, Key, 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    Write(File(), "# by hand\n" + Section("Old=dword:1\nStrange=multi:a\n# kept\n") + "\n[Other]\nMine=anything\n");
    key = Create();
    for (const auto& [name, value] : {std::pair{L"New", 5U}, {L"OLD", 2}, {L"New", 6}})
        EXPECT_EQ(Put(key, name, RegistryValue::OfNumber(value)), ERROR_SUCCESS);
    EXPECT_EQ(NumberOf(key, L"New"), 6U);
    // Another program changes the file before the key is closed.
    EXPECT_EQ(device::SetRegistryValue(Key, L"Foreign", RegistryValue::OfNumber(9)), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(All(), "Foreign 4 9\nNew 4 6\nOld 4 2\n");
    const std::string file = Read(File());
    for (const char* kept : {"# by hand", "# kept", "Strange=multi:a", "[Other]\nMine=anything"})
        EXPECT_NE(file.find(kept), std::string::npos) << kept << " in\n" << file;
    EXPECT_EQ(device::DeleteRegistryValue(Key, L"old"), ERROR_SUCCESS);
    EXPECT_EQ(device::DeleteRegistryValue(Key, L"old"), ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryTest, AValueThatCannotBeReadIsMissing) {
    for (const char* text : {"5", "dword:", "dword:-1", "dword:4294967296", "dword:0x5", "hex:0", "hex:00,", "hex:0g",
             "sz:a\\", "DWORD:5", "sz:\xFF"}) {
        Write(File(), Section(std::string{"Value="} + text + "\n"));
        EXPECT_EQ(All(), "") << text;
    }
    Write(File(), Section("a=dword:4294967295\nb=hex:\nc=hex:fF\nd=sz:\n"));
    EXPECT_EQ(All(), "a 4 4294967295\nb 3 0 bytes\nc 3 1 bytes\nd 1 \n");
}

TEST_F(RegistryTest, ADamagedFileGivesWhatItCanAndKeepsTheRest) {
    const std::string rubbish = std::string("\x00\x01\xFE\xFF garbage\n", 13)
        + Section("Good=dword:1\n??\nx\xFF=sz:a\n") + std::string("Nul=sz:a\0b\n", 11) + "[broken\nLost=dword:2\n"
        + Section(" good = dword:2\nMore=sz:b\r\n\n# the end");
    Write(File(), rubbish);
    EXPECT_EQ(All(), "Good 4 2\nMore 1 b\n");
    EXPECT_EQ(Read(File()), rubbish);
    EXPECT_EQ(device::SetRegistryValue(Key, L"New", RegistryValue::OfNumber(3)), ERROR_SUCCESS);
    EXPECT_EQ(All(), "Good 4 2\nMore 1 b\nNew 4 3\n");
    EXPECT_EQ(Read(File()), rubbish + "\nNew=dword:3\n");
    EXPECT_EQ(device::DeleteRegistryValue(Key, L"good"), ERROR_SUCCESS);
    EXPECT_EQ(All(), "More 1 b\nNew 4 3\n") << "both of them";
    // A linked file stays linked.
    std::filesystem::rename(File(), folder_ / "mine");
    std::filesystem::create_symlink(folder_ / "mine", File());
    EXPECT_EQ(device::SetRegistryValue(Key, L"b", RegistryValue::OfNumber(2)), ERROR_SUCCESS);
    EXPECT_TRUE(std::filesystem::is_symlink(File()));
}

TEST_F(RegistryTest, AWriteThatFailsIsToldAndChangesNothing) {
    // Something in the way of the file that the new one is written to is no failure.
    std::filesystem::create_directories(Storage() / (".odoledger-" + std::to_string(getpid()) + "-0"));
    ASSERT_EQ(device::SetRegistryValue(Key, L"Kept", RegistryValue::OfNumber(1)), ERROR_SUCCESS);
    const HKEY key = Create();
    ASSERT_EQ(Put(key, L"Lost", RegistryValue::OfNumber(2)), ERROR_SUCCESS);
    const LONG error = WithoutRoom(16, [key] { return RegCloseKey(key); });
    EXPECT_NE(error, ERROR_SUCCESS);
    EXPECT_EQ(All(), "Kept 4 1\n");
    EXPECT_EQ(CountFiles(Storage()), 2U);
}

// Whatever it is that keeps the file from being written, the program goes on with the values, and they are written with
// the next ones that can be.
TEST_F(RegistryTest, WhatCannotBeWrittenWaitsForTheNextWriteThatCan) {
    ASSERT_EQ(device::SetRegistryValue(Key, L"Kept", RegistryValue::OfNumber(1)), ERROR_SUCCESS);
    std::filesystem::permissions(File(), std::filesystem::perms{0640});
    const int folder = open(Storage().c_str(), O_RDONLY | O_DIRECTORY);
    const auto locked = [folder](bool begin) { return flock(folder, begin ? LOCK_EX : LOCK_UN) == 0; };
    const auto readOnly = [this](bool begin) {
        std::filesystem::permissions(File(), std::filesystem::perms{begin ? 0440U : 0640U});
        return true;
    };
    const std::function<bool(bool)> obstacles[] = {locked, readOnly};
    DWORD count = 0;
    for (const auto& obstacle : obstacles) {
        ASSERT_TRUE(obstacle(true));
        const auto begin = std::chrono::steady_clock::now();
        HKEY key = Create();
        ASSERT_EQ(Put(key, L"Kept", RegistryValue::OfNumber(1)), ERROR_SUCCESS);
        EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS); // no news
        key = Create();
        ASSERT_EQ(Put(key, L"Waits", RegistryValue::OfNumber(++count)), ERROR_SUCCESS);
        EXPECT_NE(RegCloseKey(key), ERROR_SUCCESS);
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds{30}); // no wait without an end
        key = Create();
        EXPECT_EQ(NumberOf(key, L"Waits"), count);
        ASSERT_TRUE(obstacle(false));
        ASSERT_EQ(Put(key, L"Next", RegistryValue::OfNumber(count)), ERROR_SUCCESS);
        EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
        const std::string told = std::to_string(count);
        EXPECT_EQ(All(), "Kept 4 1\nNext 4 " + told + "\nWaits 4 " + told + "\n");
    }
    close(folder);
    EXPECT_EQ(std::filesystem::status(File()).permissions(), std::filesystem::perms{0640}); // as the user set it
}

TEST_F(RegistryTest, TwoProcessesLoseNothingOfEachOther) {
    constexpr int Count = 40;
    const pid_t child = fork();
    for (int i = 0; i < Count; ++i) {
        const std::wstring name = (child == 0 ? L"child" : L"parent") + std::to_wstring(i);
        // Whose turn does not come within the patience with a lock is told so.
        while (device::SetRegistryValue(Key, name, RegistryValue::OfNumber(1)) == device::ERROR_LOCK_VIOLATION) { }
    }
    if (child == 0)
        _exit(0);
    waitpid(child, nullptr, 0);
    EXPECT_EQ(device::ListRegistryValues(Key).size(), 2U * Count);
}

} // namespace
