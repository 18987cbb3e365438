#include "settings/app_settings.h"
#include "tally/command_line.h"
#include "tally/commands.h"
#include "tally/failure.h"

#include <exception>
#include <new>
#include <sysexits.h>

namespace tally {
namespace {

struct Command {
    const char* name;
    int (*run)(const Request& request, Surroundings& surroundings);
};

constexpr Command Commands[] = {{"check", Check}, {"backup", Backup}, {"list", List}, {"stats", Stats},
    {"chart", Chart}, {"report", Report}, {"due", Due}, {"calendar", Calendar}, {"export", Export}, {"import", Import},
    {"imports", Imports}, {"undo", Undo}, {"add", Add}};

int Perform(const Request& request, Surroundings& surroundings) {
    theSettings.LoadSettings();
    for (const Command& command : Commands)
        if (request.command == command.name)
            return command.run(request, surroundings);
    return EX_SOFTWARE;
}

} // namespace

int Run(const std::vector<std::string>& arguments, Surroundings& surroundings) {
    const auto tell = [&](const std::string& words) {
        surroundings.progress("");
        surroundings.err << "odoledger-tally: " << words << std::endl;
    };
    try {
        const auto read = ReadCommandLine(arguments, surroundings);
        if (const int* status = std::get_if<int>(&read))
            return *status;
        return Perform(std::get<Request>(read), surroundings);
    } catch (const Failure& failure) {
        tell(failure.what());
        return failure.Status();
    } catch (const std::bad_alloc&) {
        tell("there is not enough memory");
        return EX_OSERR;
    } catch (const std::exception& failure) {
        tell(failure.what());
        return EX_SOFTWARE;
    }
}

} // namespace tally
