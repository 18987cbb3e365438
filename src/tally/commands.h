#pragma once

#include "tally/request.h"

#include <vector>

/// What the companion does, a function a command. Each gives the status to end with, or throws a Failure.
namespace tally {

int Check(const Request& request, Surroundings& surroundings);
int Backup(const Request& request, Surroundings& surroundings);
int List(const Request& request, Surroundings& surroundings);
int Stats(const Request& request, Surroundings& surroundings);
int Calendar(const Request& request, Surroundings& surroundings);
int Chart(const Request& request, Surroundings& surroundings);
int Report(const Request& request, Surroundings& surroundings);
int Export(const Request& request, Surroundings& surroundings);
int Import(const Request& request, Surroundings& surroundings);
int Imports(const Request& request, Surroundings& surroundings);
int Undo(const Request& request, Surroundings& surroundings);
int Add(const Request& request, Surroundings& surroundings);
int Due(const Request& request, Surroundings& surroundings);

/// A whole run, from the arguments (without the program's name) to the status.
int Run(const std::vector<std::string>& arguments, Surroundings& surroundings);

} // namespace tally
