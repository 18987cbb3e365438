#pragma once

#include "platform/resources.h"

/// The texts of the user interface, in ascending order of their numbers.
std::span<const StringResource> StringTable();
