#pragma once
// Natural mortality from the age at first maturity (Rikhter and Efanov).
#include "base/outcome.h"

namespace norvo {

inline constexpr const char* kRikhterInvalidTitle = "Invalid Data";
inline constexpr const char* kRikhterLimitMessage =
    "Input exceeds limit (0.10 - 22 years) only. Please check entry.";

inline constexpr const char* kRikhterMFormat = "#0.000";

struct RikhterEfanovInput {
    float tm = 0;  // age at first maturity, years
};

struct RikhterEfanovResult : Outcome {
    double m = 0;  // close to 0 at the upper age limit; shown as it is
};

// M = 1.52 / tm^0.72 - 0.16.
RikhterEfanovResult ComputeRikhterEfanov(const RikhterEfanovInput& in);

}  // namespace norvo
