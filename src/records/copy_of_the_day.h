#pragma once

#include "platform/daily_copy.h"

/// Copies a data file that is open to the copies of the day, as it is on the disk, while the program goes on. It is no
/// hindrance to a change for longer than it takes to read the file.
class CCopyOfTheDay {
public:
    explicit CCopyOfTheDay(const wchar_t* path);

private:
    device::BackgroundJob job_;
};
