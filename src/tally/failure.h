#pragma once

#include <stdexcept>
#include <string>

namespace tally {

/// Ends a command: words for standard error, and the status that the process ends with (sysexits.h).
class Failure : public std::runtime_error {
public:
    Failure(int status, const std::string& words)
        : std::runtime_error(words)
        , status_(status) { }

    int Status() const { return status_; }

private:
    int status_;
};

} // namespace tally
