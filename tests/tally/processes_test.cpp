// The companion beside other processes, and where its own ends at any moment.

#include "tally_device.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <set>
#include <sys/wait.h>
#include <thread>

namespace {

class Processes : public TallyDevice {
protected:
    Processes() {
        Sql("INSERT INTO vehicles VALUES (1, 1001, 'Van', '', '', '', 0, 2001, '', '', '', '', 1, '', '', '');"
            "UPDATE sequence SET next_ref = 1100");
    }
    pid_t Start(Lines arguments) const {
        arguments.insert(arguments.begin(), TALLY);
        std::vector<char*> pointers;
        for (std::string& each : arguments)
            pointers.push_back(each.data());
        pointers.push_back(nullptr);
        const pid_t process = fork();
        if (process == 0) {
            for (const auto& [name, value] : Surroundings())
                setenv(name.c_str(), value.c_str(), 1);
            dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
            execv(TALLY, pointers.data());
            _exit(127);
        }
        return process;
    }
    static int End(pid_t process) {
        int status = 0;
        EXPECT_EQ(waitpid(process, &status, 0), process);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    std::string FileOf(const std::string& name, int rows) const {
        std::string text = "record,vehicle,date,odometer (mi),total,volume (usgal),name,marks\n";
        for (int row = 0; row < rows; ++row)
            text += "repair,Van,2024-01-01," + std::to_string(row) + ',' + std::to_string(name.size()) + ",," + name
                + ",\n";
        const std::string path = folder_ / name;
        Write(path, text);
        return path;
    }
    static std::string Count() { return Sql("SELECT count(*) FROM entries"); }
};

TEST_F(Processes, AnImportThatIsKilledIsWholeOrNothing) {
    constexpr int Rows = 3000;
    const std::string file = FileOf("file", Rows);
    const std::string all = std::to_string(Rows);
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ(End(Start({"import", file})), 0);
    const std::chrono::nanoseconds whole = std::chrono::steady_clock::now() - begin;
    ASSERT_EQ(Run({"undo"}).status, 0);
    constexpr int Runs = 25;
    int killed = 0;
    for (int run = 0; run < Runs; ++run) {
        const pid_t process = Start({"import", file});
        std::this_thread::sleep_for(whole * (run + 1) / Runs);
        kill(process, SIGKILL);
        killed += End(process) == -SIGKILL ? 1 : 0;
        const std::string count = (Run({"list"}), Count());
        EXPECT_TRUE(count == "0" || count == all) << count;
        EXPECT_EQ(Run({"check"}).out, HostPath() + ": sound\n");
        EXPECT_EQ(Run({"undo"}).status, count == all ? 0 : 1);
    }
    EXPECT_GT(killed, 2) << "of imports that take " << whole.count() / 1'000'000 << " ms";
}

TEST_F(Processes, ADiskThatIsFullAtAnyStepLeavesAllOrNothing) {
    constexpr int Rows = 300;
    const std::string file = FileOf("file", Rows);
    const auto base = std::filesystem::file_size(HostPath());
    std::set<int> statuses;
    for (rlim_t room = 0; room < base + 60'000; room += 2048) {
        const int status = WithoutRoom(room, [&] { return Run({"import", file}).status; });
        statuses.insert(status);
        EXPECT_EQ(Count(), status == 0 ? std::to_string(Rows) : "0") << room;
        EXPECT_EQ(Run({"undo"}).status, status == 0 ? 0 : 1);
    }
    EXPECT_TRUE(statuses.count(0) == 1 && statuses.count(EX_IOERR) == 1) << testing::PrintToString(statuses);
}

TEST_F(Processes, ImportsAtOnceLoseNothing) {
    const std::vector<std::string> imports[] = {{"import", FileOf("first", 800)}, {"import", FileOf("second", 900)}};
    const auto begin = std::chrono::steady_clock::now();
    const pid_t processes[] = {Start(imports[0]), Start(imports[1])};
    for (int i = 0; i < 2; ++i) {
        int status = End(processes[i]);
        // Where the machine is so slow that the other one keeps its lock for longer than that, it is given up.
        if (status == EX_TEMPFAIL && std::chrono::steady_clock::now() - begin >= std::chrono::seconds{2})
            status = End(Start(imports[i]));
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(Sql("SELECT name, count(*) FROM entries GROUP BY name ORDER BY name"), "first|800\nsecond|900");
    EXPECT_EQ(Sql("SELECT count(*), count(DISTINCT ref) FROM entries"), "1700|1700");
    EXPECT_EQ(Sql("SELECT sum(added) FROM tally_batches"), "1700");
}

TEST_F(Processes, ARunningProgramShowsWhatWasAdded) {
    ConsoleProcess console(CONSOLE);
    console.Start(Surroundings());
    console.AskAll({"registry set UnitSetupMsgShown dword 1", "registry set LastActiveVehicle dword 1001", "boot"});
    EXPECT_EQ(End(Start({"add", "repair", "--name", "New tyres", "--odometer", "+5"})), 0);
    const auto shows = [&] {
        const Lines screen = console.Ask("screen");
        return std::any_of(screen.begin(), screen.end(),
            [](const std::string& line) { return line.find("New tyres") != std::string::npos; });
    };
    bool isShown = false;
    for (int look = 0; look < 3000 && !(isShown = shows()); ++look)
        usleep(20'000);
    EXPECT_TRUE(isShown);
    console.AskAll({"key action", "key down", "type 7", "key soft1"});
    EXPECT_EQ(Count(), "1") << "the program edits the record of the companion";
    EXPECT_EQ(End(Start({"backup", folder_ / "copy.dat"})), 0);
    console.Kill();
}

} // namespace
