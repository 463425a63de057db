#pragma once
// Total mortality from the mean length of the catch (Beverton and Holt), and the input limits
// shared with the Ault and Ehrhardt method.
#include "base/outcome.h"

namespace norvo {

inline constexpr const char* kInvalidInputTitle = "Invalid Input";
inline constexpr const char* kLooLimitMessage =
    "Entry for Loo exceeds limits (0.25 to 9999). Please check entry.";
inline constexpr const char* kKLimitMessage =
    "Entry for K exceeds limits (0.01 to 10). Please check entry.";
inline constexpr const char* kLmeanLimitMessage =
    "Entry for Lmean exceeds limits (0.25 to 9999) or is greater than Loo. Please check entry.";
inline constexpr const char* kLcLimitMessage =
    "Entry for L' exceeds limits (0.25 to 9999) or greater than Lmean. Please check entry.";
inline constexpr const char* kLmaxLimitMessage =
    "Entry for Lmax exceeds limits (0.25 to 9999) or greater than Loo. Please check entry.";

// Captions of the mean-length screens.
inline constexpr const char* kBhMortTitle = "Beverton & Holt...";
inline constexpr const char* kCutOffLengthCaption = "Cut-off length (L'):";
inline constexpr const char* kComputedZCaption = "Computed total mortality (Z):";
inline constexpr const char* kPerYear = "/year";

// Z as shown on the mean-length screens.
inline constexpr const char* kZFormat = "#0.000";

struct MeanLengthInput {
    float loo = 0;
    float k = 0;
    float lmean = 0;
    float lc = 0;  // L', the cut-off length
};

struct BhMortalityResult : Outcome {
    float z = 0;
};

// The four common checks in their order (Loo, K, Lmean, L'); refused at the first that fails.
Outcome CheckMeanLengthInput(const MeanLengthInput& in);

// Z = K (Loo - Lmean) / (Lmean - L'). Lmean = L' is a division by zero.
double BevertonHoltZ(const MeanLengthInput& in);

BhMortalityResult ComputeBhMortality(const MeanLengthInput& in);

}  // namespace norvo
