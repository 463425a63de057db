#pragma once
// Length-at-age analysis: the von Bertalanffy curve, plain or seasonal, fitted to the rows of
// a length-at-age file under the user's constraints, with weights as repetitions of a row.
#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/sample_readers.h"
#include "growth/growth_fit.h"
#include "numerics/marquardt.h"

namespace norvo {

inline constexpr const char* kLaaCaption = "Analysis of length-at-age...";
inline constexpr const char* kLaaReportTitle = "Length-at-Age Growth Analysis";
inline constexpr const char* kLaaFixNote =
    "Note: To fix a parameter, set the minimum and maximum constraints equal.";
inline constexpr const char* kLaaInsufficientTitle = "Insufficient Data";
inline constexpr const char* kLaaInsufficientText =
    "The algorithm employed requires more than 6 samples. Add more data points or you may repeat "
    "the same data points to estimate the parameters.";
inline constexpr const char* kLaaInvalidInputText =
    "Invalid input detected. Please check inputs for the constraints and starting estimates.";
inline constexpr const char* kLaaWeightsTitle = "Weighting Factor";
inline constexpr const char* kLaaWeightsQuestion = "Do you want to use the weighting factors?";
inline constexpr const char* kLaaMemoryText =
    "Memory overflow, please adjust the weigthing factors to vary only up to the first decimal "
    "place or reduce the number of samples.";
inline constexpr int kLaaMinRows = 7;                // more than 6 observations
inline constexpr size_t kLaaMaxWorkRows = 10000000;  // repeated rows the fit may hold

// Rows of the constraint table, in the screen's order.
enum LaaParam : int { kLaaLoo = 0, kLaaK, kLaaC, kLaaWP, kLaaT0, kLaaParams };
inline constexpr std::array<const char*, kLaaParams> kLaaParamNames = {"Loo", "K", "C", "WP", "t0"};
using LaaConstraints = std::array<ParamConstraint, kLaaParams>;

// The largest length of the file, every row counted (weight 0 included).
float LaaLargestLength(const LaaData& data);
// Defaults: Loo from the largest length (minimum it, start 1.1 x and maximum 3 x, rounded up
// to two decimals), K 0.01, 1, 10, and C, WP, t0 fixed at 0.
LaaConstraints DefaultLaaConstraints(const LaaData& data);
// Refused ("Insufficient Data") when the file has at most 6 rows.
Outcome CheckLaaRows(const LaaData& data);
// Refused ("Invalid Data") when a row is out of order or out of its limits.
Outcome ValidateLaaConstraints(const LaaConstraints& c, float largestLength);
// True when a weight differs from 1, so that the user is asked whether to use the weights.
bool LaaAsksWeights(const LaaData& data);
// Divisor of the ages by the unit: months 30, days 365, else 1 (first letter, any case).
double LaaAgeDivisor(const std::string& unitOfAge);

struct LaaOptions {
    LaaConstraints constraints{};
    bool useWeights = true;  // the answer to the weights question, when it is asked
    std::function<void(int)> progress;
    size_t maxWorkRows = kLaaMaxWorkRows;
};

struct LaaWeighting {
    bool asked = false;            // a weight differs from 1
    bool used = false;             // asked and answered Yes
    bool times10 = false;          // a weight had a decimal, all were multiplied by 10
    std::vector<int> repetitions;  // per file row
    double ageDivisor = 1;
};

struct LaaRun : Outcome {
    int model = 0;                   // 1 plain, 2 seasonal; 0 when nothing was fitted
    std::vector<std::string> names;  // the fit's parameters in its order
    LaaConstraints constraints{};
    LaaWeighting weights;
    std::vector<MarquardtObs> table;  // the working table: ages in years, rows repeated
    MarquardtResult fit;
    std::string remarks;

    bool fitted() const { return model != 0; }
    // Estimate, s.e. and mark of a parameter by its row; constants report their fixed value.
    float estimate(LaaParam p) const;
    float stdErr(LaaParam p) const;
    std::string stars(LaaParam p) const;
    // The caption of the fit: "Parameters: Loo=... ; K=... ;and to=...".
    std::string caption(char decimalSeparator = '.') const;
};

// Checks the rows and the constraints, builds the working table and fits.
LaaRun ComputeLAA(const LaaData& data, const LaaOptions& options);

// Model value of a fitted run at an age in years, with two pi as 6.2832 (for the curve).
double LaaCurve(const LaaRun& run, double age);

}  // namespace norvo
