#pragma once
// A number with the display pattern of the field that shows it ("0.00", "0"). The empty
// pattern shows the value as a 32-bit float in the classic default conversion (up to 7
// significant digits, no trailing zeros), for the fields that have no pattern of their own.
#include <string>

#include "base/format.h"

namespace norvo {

inline constexpr const char* kSinglePattern = "";

struct ShownNumber {
    double value = 0;
    std::string pattern = "0.00";
};

// The text of a shown number with '.' as the decimal separator.
inline std::string ShownText(const ShownNumber& n) {
    return n.pattern.empty() ? FormatSingle(static_cast<float>(n.value))
                             : Format(n.value, n.pattern);
}

}  // namespace norvo
