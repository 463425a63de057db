#pragma once
// Growth performance indices: phi' from Loo and K, phi from Woo and K.
#include <optional>

namespace norvo {

inline constexpr const char* kGrowthParametersFrame = "Growth Parameters";
inline constexpr const char* kGrowthPerformanceFrame = "Growth Performance Indices";
inline constexpr const char* kPhiLooCaption = "Asymptotic length (Loo):";
inline constexpr const char* kPhiWooCaption = "Asymptotic weight (Woo):";
inline constexpr const char* kPhiKCaption = "Curvature parameter (K):";
inline constexpr const char* kPhiPrimeFormula = "ø'=log K + 2 log Loo";
inline constexpr const char* kPhiFormat = "#0.000";

struct PhiPrimeInput {
    float loo = 0;
    float woo = 0;
    float k = 0;
};

// Each index is present only when its size and K are above 0.
struct PhiPrimeResult {
    std::optional<double> phiPrime;  // log10 K + 2 log10 Loo
    std::optional<double> phi;       // log10 K + (2/3) log10 Woo
};

PhiPrimeResult ComputeParameters(const PhiPrimeInput& in);

}  // namespace norvo
