#pragma once

#include "platform/types.h"

#include <string>

/// Numbers for the screen, in the locale's form. Nothing reads them back.
///
/// Whole numbers (neither flag), decimals, or money (both flags). A whole number loses its fraction; so does a decimal
/// or an amount of money that is not greater than 0. What lies beyond a float shows as the greatest one, what is no
/// number as 0.
std::wstring NumberText(float value, bool decimals, bool currency);

/// What a number field holds is taken towards zero, and to the nearest 32-bit number where it lies beyond.
LONG WholeNumber(float value);
