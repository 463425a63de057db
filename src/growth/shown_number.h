#pragma once
// A number with the display pattern of the field that shows it ("0.00", "0").
#include <string>

namespace norvo {

struct ShownNumber {
    double value = 0;
    std::string pattern = "0.00";
};

}  // namespace norvo
