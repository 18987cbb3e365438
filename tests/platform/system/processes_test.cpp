#include "device_fixture.h"
#include "platform/files.h"
#include "platform/process.h"
#include "platform/registry.h"
#include "platform/system/ipc.h"
#include "platform/system/posix/local_socket.h"
#include "platform/system/posix/runtime_folder.h"

#include <csignal>
#include <semaphore>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class ProcessesTest : public DeviceTest {
protected:
    ~ProcessesTest() override { EndOther(); }

    /// Runs `work` in another process of the same device, which then stays until it is ended.
    template <typename Work> void StartOther(Work work) {
        int ends[2] = {};
        ASSERT_EQ(pipe(ends), 0);
        other_ = fork();
        if (other_ == 0) {
            work();
            _exit(write(ends[1], "r", 1) == 1 && pause() == -1 ? 0 : 1);
        }
        close(ends[1]);
        char ready = 0;
        ASSERT_EQ(read(ends[0], &ready, 1), 1);
        close(ends[0]);
    }
    void EndOther() {
        if (other_ > 0) {
            kill(other_, SIGKILL);
            waitpid(other_, nullptr, 0);
            other_ = 0;
        }
    }
    static DWORD Create(const wchar_t* name, HANDLE& handle) {
        handle = CreateMutexW(nullptr, FALSE, name);
        return GetLastError();
    }
    static bool IsFree(const wchar_t* name) {
        HANDLE handle = nullptr;
        const DWORD error = Create(name, handle);
        return handle != nullptr && CloseHandle(handle) != FALSE && error == ERROR_SUCCESS;
    }
    static auto Publish() {
        return device::PublishedWindow::Publish(L"Odoledger", [] {});
    }
    /// As by those who want it: the other one is asked again and again, since a busy machine may keep it from
    /// answering.
    static bool ComesToFront() {
        constexpr int Trials = 200;
        for (int trial = 0; trial < Trials; ++trial)
            if (device::BringToFront(L"Odoledger"))
                return true;
        return false;
    }
    static std::filesystem::path Folder() {
        const auto folders = device::RuntimeFolders();
        return folders.empty() ? "" : folders.front();
    }
    static std::filesystem::path OnlyFile() {
        const std::filesystem::directory_iterator files{Folder()};
        return files->path();
    }
    static unsigned ModeOf(const std::filesystem::path& path) {
        return static_cast<unsigned>(std::filesystem::status(path).permissions() & std::filesystem::perms::all);
    }

    pid_t other_ = 0;
};

TEST_F(ProcessesTest, AMutexLastsAsLongAsItsLastHandleHere) {
    HANDLE first = nullptr;
    HANDLE second = nullptr;
    EXPECT_EQ(Create(L"Odoledger / é", first), 0U);
    EXPECT_EQ(Create(L"Odoledger / é", second), static_cast<DWORD>(ERROR_ALREADY_EXISTS));
    EXPECT_TRUE(CloseHandle(first));
    EXPECT_TRUE(!IsFree(L"Odoledger / é") && IsFree(L"another"));
    EXPECT_TRUE(CloseHandle(second));
    EXPECT_TRUE(IsFree(L"Odoledger / é"));
}

TEST_F(ProcessesTest, AMutexIsSharedWithinOneStoragePlaceAndEndsWithItsProcess) {
    StartOther([] { CreateMutexW(nullptr, FALSE, L"Odoledger"); });
    std::filesystem::create_directory(Storage());
    std::filesystem::create_directory_symlink(Storage(), folder_ / "link");
    Set("HANDSET_STORAGE", folder_ / "another");
    EXPECT_TRUE(IsFree(L"Odoledger"));
    Set("HANDSET_STORAGE", folder_ / "link" / ".");
    EXPECT_FALSE(IsFree(L"Odoledger"));
    EndOther();
    EXPECT_TRUE(IsFree(L"Odoledger"));
}

TEST_F(ProcessesTest, RequestsComeInOrderAndOnlyThoseTwo) {
    std::counting_semaphore<> wakeUps{0};
    EXPECT_FALSE(device::BringToFront(L"Odoledger"));
    const auto window = device::PublishedWindow::Publish(L"Odoledger", [&] { wakeUps.release(); });
    ASSERT_NE(window, nullptr);
    // Silent clients take nobody's turn.
    std::vector<device::FileDescriptor> silent;
    for (int i = 0; i < 20; ++i)
        silent.push_back(device::ConnectTo(OnlyFile(), std::chrono::seconds{1}));
    for (const std::string& wrong : {std::string{"quit"}, std::string{"post "}, std::string{"frontx"},
             std::string("post a\0b", 8), std::string{"post \xFF"}, std::string(device::LargestPacket, 'x')}) {
        const auto socket = device::ConnectTo(OnlyFile(), std::chrono::seconds{2});
        ASSERT_TRUE(socket.IsOpen() && device::SendPacket(socket, wrong));
        EXPECT_EQ(device::ReceivePacket(socket), std::nullopt) << wrong;
    }
    EXPECT_FALSE(device::PostRegistered(L"Odoledger", std::wstring(1000, L'x')));
    EXPECT_EQ(window->Take(), std::nullopt);

    EXPECT_TRUE(ComesToFront());
    EXPECT_TRUE(device::PostRegistered(L"Odoledger", L"{5E75CC96} é"));
    for (int i = 0; i < 2; ++i)
        ASSERT_TRUE(wakeUps.try_acquire_for(std::chrono::seconds{60}));
    EXPECT_EQ(window->Take().value().kind, device::WindowRequest::Kind::BringToFront);
    EXPECT_EQ(window->Take().value().messageName, L"{5E75CC96} é");
}

TEST_F(ProcessesTest, WhatIsSharedIsPrivateWhateverTheMask) {
    const std::filesystem::path folder = Folder();
    EXPECT_EQ(folder.parent_path(), folder_ / "run");
    chmod(folder.c_str(), 0777);
    const mode_t former = umask(0);
    HANDLE handle = nullptr;
    EXPECT_EQ(Create(L"Odoledger", handle), 0U);
    const auto window = Publish();
    ASSERT_NE(window, nullptr);
    umask(former);
    EXPECT_EQ(ModeOf(folder), 0700U);
    EXPECT_EQ(CountFiles(folder), 2U);
    for (const auto& file : std::filesystem::directory_iterator{folder})
        EXPECT_EQ(ModeOf(file.path()), 0600U) << file.path();
    CloseHandle(handle);
}

TEST_F(ProcessesTest, AFolderOrALockOfAnotherSortIsNotUsed) {
    Set("XDG_RUNTIME_DIR", folder_ / "missing"); // then below the temporary folder
    Set("TMPDIR", folder_ / "run");
    const std::filesystem::path place = Folder();
    const std::filesystem::path users = folder_ / "run" / ("odoledger-" + std::to_string(geteuid()));
    EXPECT_EQ(place.parent_path(), users);
    EXPECT_TRUE(IsFree(L"Odoledger"));
    const std::filesystem::path lock = OnlyFile();
    std::filesystem::remove(lock);
    std::filesystem::create_symlink(folder_ / "precious", lock);
    HANDLE handle = nullptr;
    EXPECT_NE(Create(L"Odoledger", handle), 0U);
    EXPECT_EQ(handle, nullptr);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "precious"));
    // What cannot be used there gives way to the storage place: a file where the folder should be, a folder that is
    // somebody else's, a link that was planted.
    const std::filesystem::path last = Storage() / "locks";
    std::filesystem::remove_all(place);
    Write(place, "x");
    EXPECT_EQ(Folder(), last);
    std::filesystem::remove(place);
    EXPECT_EQ(Folder(), place);
    if (geteuid() == 0) { // only root can give a folder away
        ASSERT_EQ(chown(users.c_str(), 4711, 4711), 0);
        EXPECT_EQ(Folder(), last);
    }
    std::filesystem::remove_all(users);
    std::filesystem::create_directory(folder_ / "elsewhere");
    std::filesystem::create_directory_symlink(folder_ / "elsewhere", users);
    EXPECT_EQ(Folder(), last);
    EXPECT_EQ(CountFiles(folder_ / "elsewhere"), 0U);
}

// One that was started without a session, and one within, whichever comes first.
TEST_F(ProcessesTest, AProcessOfOtherSurroundingsIsFoundAllTheSame) {
    const std::string session = folder_ / "run";
    const std::string none;
    for (const auto& [temporary, first, second] :
        {std::tuple{"nowhere", none, session}, std::tuple{".", none, session}, std::tuple{".", session, none}}) {
        Set("TMPDIR", folder_ / temporary);
        Set("XDG_RUNTIME_DIR", first);
        StartOther([] {
            CreateMutexW(nullptr, FALSE, L"Odoledger");
            Publish().release();
        });
        Set("XDG_RUNTIME_DIR", second);
        EXPECT_FALSE(IsFree(L"Odoledger"));
        EXPECT_TRUE(device::WindowExists(L"Odoledger") && ComesToFront());
        EndOther();
        EXPECT_TRUE(IsFree(L"Odoledger"));
        EXPECT_FALSE(device::WindowExists(L"Odoledger"));
    }
}

TEST_F(ProcessesTest, LongRuntimePathsAndStoppedProcessesAreNoHindrance) {
    const std::filesystem::path deep = folder_ / std::string(100, 'd') / std::string(100, 'e');
    std::filesystem::create_directories(deep);
    Set("XDG_RUNTIME_DIR", deep);
    StartOther([] { Publish().release(); });
    EXPECT_TRUE(ComesToFront());
    kill(other_, SIGSTOP);
    waitpid(other_, nullptr, WUNTRACED); // stopped in all its threads
    // Also when more have asked than it lets wait. Each pass takes 60 ms, and time for the machine to be slow in.
    const auto begin = std::chrono::steady_clock::now();
    for (int pass = 0; pass < 25; ++pass)
        EXPECT_TRUE(device::WindowExists(L"Odoledger") && !device::BringToFront(L"Odoledger"));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds{5});
}

TEST_F(ProcessesTest, WithoutDescriptorsThereIsNoWindowAndNoThreadWithoutAnEnd) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "The sanitizers ask through a pipe whether memory is there, and take a refusal for damage.";
#endif
    Set("TMPDIR", folder_);
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    std::vector<device::FileDescriptor> taken;
    do
        taken.emplace_back(dup(STDERR_FILENO));
    while (taken.back().IsOpen() && taken.back().Get() < 200);
    const rlim_t highest = static_cast<rlim_t>(taken.back().Get()) + 1;
    // At each number of descriptors that are left, one more of those that a window needs is missing.
    int published = 0;
    for (rlim_t left = 0; left < 12; ++left) {
        const rlimit limit{highest + left, before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &limit);
        published += Publish() == nullptr ? 0 : 1;
    }
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_TRUE(published > 0 && published < 12) << published;
    EXPECT_NE(Publish(), nullptr);
    EXPECT_EQ(CountFiles(Folder()), 0U);
}

} // namespace
