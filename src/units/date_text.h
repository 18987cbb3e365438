#pragma once

#include <string>

/// The locale's short date of an OLE date, without its time of day. Empty for what is no date.
std::wstring DateText(double date);
