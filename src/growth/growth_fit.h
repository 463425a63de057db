#pragma once
// Pieces shared by the growth fits that run MarquardtFit: a parameter's constraint row, the
// closing remarks of a fit and the rounding of default limits.
#include <string>

#include "numerics/marquardt.h"

namespace norvo {

inline constexpr const char* kGrowthFitRemarks =
    " Parameter(s) marked * are at minimum constraint, ** are at maximum constraint, and '***' "
    "are constant and have not been estimated. All asymptotic standard errors are approximate "
    "but are invalid if any parameter(s) are marked ***.";
inline constexpr const char* kMoreParamsText =
    "More parameters than observations. More data are required to compute for the parameters.";
inline constexpr const char* kGrowthFitNa = "n.a.";
// Two pi of the drawn seasonal curves (the fits use kMarquardtPiTwo).
inline constexpr double kCurveTwoPi = 6.2832;

// Minimum, starting estimate and maximum of one parameter; equal limits fix it.
struct ParamConstraint {
    float min = 0;
    float start = 0;
    float max = 0;
    bool fixed() const { return min == max; }
    bool ordered() const { return min <= start && start <= max; }
    bool operator==(const ParamConstraint&) const = default;
};

// v rounded up to two decimals, ignoring binary noise below a millionth of a hundredth.
float CeilTwoDecimals(double v);

// The fit's message followed by the closing remarks.
inline std::string FitRemarks(const MarquardtResult& fit) {
    return fit.message + kGrowthFitRemarks;
}

// A standard error as shown: "n.a." when it is 0, else in `pattern`.
std::string StdErrText(float se, const char* pattern);

}  // namespace norvo
