#pragma once

#include <cstddef>
#include <string>

// Numbers in the edit controls of the forms: short, without grouping, read back strictly.

/// A buffer that holds the text of a number field.
inline constexpr std::size_t FieldTextSize = 32;

/// The locale's decimal separator in place of a point (`toPoint` false), or a point in place of the separator. In
/// `text`, whose buffer has `capacity` characters; where the result does not fit, nothing changes.
void SwapDecimalSeparator(wchar_t* text, std::size_t capacity, bool toPoint);

/// `precision` significant digits, as "%.*g" has them, with the locale's decimal separator. Zero has no minus.
std::wstring PrintFieldFloat(float value, int precision);
/// The same, always with a point.
std::wstring PrintPlainFloat(float value, int precision);

/// Reads a decimal number with blanks around it, its separator the locale's or a point. False, `result` untouched, for
/// anything else: an empty text, grouped digits, a zero that does not begin with a digit, a number beyond a float.
bool ParseFieldFloat(const wchar_t* text, double* result);
/// The same with a point alone.
bool ParsePlainFloat(const wchar_t* text, double* result);
