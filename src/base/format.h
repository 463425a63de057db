#pragma once
// Number formatting with the display patterns used throughout the system ("0.00", "#0.000",
// "#,##0.00", "0000", ...). Values are taken to 15 significant digits and then rounded half away
// from zero at the last shown decimal, as the old platform's Format did, so 1.005 shows "1.01".
#include <string>
#include <string_view>

namespace norvo {

// Formats x with a numeric pattern: '0' a digit always shown, '#' a digit shown when
// significant, ',' in the integer part turns on thousands grouping, '.' the decimal point.
// The decimal separator is always '.'; use FormatLocal for the user's locale.
std::string Format(double x, std::string_view pattern);

// As Format, with the given decimal separator (the locale's) in place of '.'.
std::string FormatLocal(double x, std::string_view pattern, char decimalSeparator);

// A 32-bit value as the classic default conversion shows it: up to 7 significant digits, no
// trailing zeros ("39.375", "10", "0.01").
std::string FormatSingle(float x);

}  // namespace norvo
