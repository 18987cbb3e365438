#pragma once

#include "exchange/reading.h"

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace tally {

/// Where results and words go.
struct Surroundings {
    std::ostream& out;
    std::ostream& err;
    bool hasColours = false; ///< on `out`
    /// A line that tells how far the work is, in the place of the one before; the empty one at its end.
    std::function<void(const std::string& words)> progress = [](const std::string&) {};
    /// Tells a running program that its data file has changed.
    std::function<void()> tellProgram = [] {};
};

/// What the ends of commands mean beside EX_OK and the failures of sysexits.h.
inline constexpr int NothingToDo = 1;
inline constexpr int SomethingSoon = 1;
inline constexpr int SomethingOverdue = 2;

enum class Format { Text, Csv, Json };

/// An entry in one line, as it was typed; what was not given is empty.
struct NewEntry {
    std::string kind;
    std::optional<double> date;
    std::string odometer;
    std::string start;
    std::string end;
    std::optional<double> price;
    std::optional<double> volume;
    std::optional<double> total;
    std::string name;
    std::string vendor; ///< of a trip, its category
    std::string notes;
};

/// A command line that was understood. Dates are OLE dates of whole days.
struct Request {
    std::string command;
    std::string file; ///< the data file; empty for the program's
    std::string vehicle; ///< by name; empty for all, or the only one
    std::string output; ///< a file for the result; empty for standard output
    Format format = Format::Text;
    std::optional<double> from;
    std::optional<double> to;
    std::string period; ///< month, quarter or year; empty for none
    int withinDays = 30;
    int withinDistance = 500;
    std::string target; ///< the file of a backup, the kind of a chart
    std::vector<std::string> files; ///< to import
    bool isDryRun = false;
    bool skipsFaulty = false;
    exchange::ReadingOptions reading; ///< what the files do not say
    std::optional<LONGLONG> number; ///< of an import
    NewEntry entry;
};

} // namespace tally
