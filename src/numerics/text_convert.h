#pragma once
// Text-to-number conversions used wherever a screen reads a numeric field. An empty text is 0;
// otherwise the text must be a decimal number written with the locale's decimal separator
// (surrounding blanks, a sign and an exponent allowed), else a ConversionFault is raised.
// A value outside the target type's range is an overflow (ArithmeticFault).
#include <cstdint>
#include <string_view>

namespace norvo {

// The locale's decimal separator. Taken from the C library's locale unless set explicitly
// (the GUI sets it from its own locale; tests set it to try other conventions).
char DecimalSeparator();
void SetDecimalSeparator(char separator);
// Forgets an explicit separator, so that the C library's locale is asked again.
void ResetDecimalSeparator();

// Parses a decimal number with the current separator; false when the text is not a number.
// An empty (or blank) text is not a number here.
bool ParseNumber(std::string_view text, double& value);

int16_t TextToInteger(std::string_view text);  // rounded half to even
int32_t TextToLong(std::string_view text);     // rounded half to even
float TextToSingle(std::string_view text);
double TextToDouble(std::string_view text);

}  // namespace norvo
