#pragma once

#include "console_process.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <random>

struct sqlite3;

/// Random choices that a seed repeats on every machine.
class Random {
public:
    explicit Random(unsigned long seed)
        : engine_(seed) { }

    /// 0 to `limit` - 1.
    unsigned long Below(unsigned long limit) { return limit == 0 ? 0 : engine_() % limit; }
    bool Chance(unsigned percent) { return Below(100) < percent; }
    template <typename List> const auto& Pick(const List& list) { return list[Below(std::size(list))]; }

private:
    std::mt19937_64 engine_;
};

/// A handset of a test's own: its storage, and the environment of the processes on it. Where nothing depends on a real
/// disk it lies in memory, which spares the waiting for thousands of syncs.
class Handset {
public:
    enum class Place { Memory, Disk };

    explicit Handset(Place place = Place::Memory);
    ~Handset();
    Handset(const Handset&) = delete;
    Handset& operator=(const Handset&) = delete;

    std::filesystem::path Documents() const { return Folder / "storage" / "My Documents"; }
    std::string DataFile() const { return Documents() / "My Vehicles.dat"; }
    std::filesystem::path Registry() const { return Folder / "storage" / "registry"; }

    std::filesystem::path Folder;
    ConsoleProcess::Surroundings Surroundings;
};

/// A data file as another program sees it: through a connection of its own.
class LogFile {
public:
    explicit LogFile(const std::string& path);

    /// Runs the statements; the first column of all their rows.
    Lines Column(const std::string& sql);
    std::string Text(const std::string& sql);
    /// Throws when the file does not stand an integrity check.
    void RequireIntegrity();

private:
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> connection_;
};

/// What stands on a console's screen, as far as `controls` tells it.
struct View {
    std::string title;
    std::string left; ///< soft keys
    std::string right;
    std::string text; ///< of a message
    bool isMenu = false;
    bool isLog = false; ///< the main frame, showing the entries
    bool isVehicles = false; ///< the main frame, showing the vehicles
    Lines items; ///< of an open menu
    Lines rows; ///< of the visible list, without what is selected

    bool IsHome() const { return isLog || isVehicles; }
};

View Look(ConsoleProcess& console);
/// Leaves whatever is open, storing nothing, until the main frame stands without a menu, or the program has ended in
/// order because it was told to before. A fault when so many steps lead to neither.
View GoHome(ConsoleProcess& console, int mostSteps = 20);
/// Ends the program in order; a fault when it ends in another way.
void PostClose(ConsoleProcess& console);

std::string FileBytes(const std::filesystem::path& path);
void WriteBytes(const std::filesystem::path& path, const std::string& bytes);
/// Throws what is then told as the failure of the step.
void Require(bool holds, const std::string& what);

/// A program that repeats rounds, each with a seed of its own: PROGRAM CONSOLE [--count N] [--seed S] [--seconds T].
struct Soak {
    const char* name;
    long count; ///< unless told otherwise
    std::function<long(const std::string& console, unsigned long seed)> round; ///< how much of the count it did
    std::function<std::string()> summary;
};

int RunSoak(int count, char** arguments, const Soak& soak);
