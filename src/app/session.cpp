#include "app/session.h"

namespace norvo {

std::string MakeNumericKeys(char decimalSeparator) {
    return std::string("0123456789") + decimalSeparator;
}

}  // namespace norvo
