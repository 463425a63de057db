#include "growth/growth_fit.h"

#include <cmath>

#include "base/checked.h"
#include "base/format.h"

namespace norvo {

float CeilTwoDecimals(double v) {
    const double hundredths = std::round(v * 100 * 1e6) / 1e6;
    return R4(std::ceil(hundredths) / 100);
}

std::string StdErrText(float se, const char* pattern) {
    return se == 0 ? std::string(kGrowthFitNa) : Format(se, pattern);
}

}  // namespace norvo
