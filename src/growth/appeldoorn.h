#pragma once
// Appeldoorn's method: the seasonal growth curve (Loo, K, C, WP) fitted directly to the
// increments of tag-and-recapture data, with the release and recapture dates in years.
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/sample_readers.h"
#include "growth/growth_fit.h"
#include "numerics/marquardt.h"

namespace norvo {

inline constexpr const char* kApCaption = "Appeldoorn's Method...";
inline constexpr const char* kApReportTitle = "Appledoorn's Method";
inline constexpr const char* kApInvalidInputTitle = "Invalid Input...";
inline constexpr const char* kApLooBelowTaggedText =
    "The minimum constraint for the Loo value cannot be less than the largest tagged length.";
inline constexpr const char* kApLooOrderText = "Please check the constraints for the Loo value.";
inline constexpr const char* kApKOrderText = "Please check the constraints for the K value.";
inline constexpr const char* kApCOrderText = "Please check the constraints for the C value.";
inline constexpr const char* kApWPOrderText = "Please check the constraints for the WP value.";
inline constexpr const char* kApSuccessTitle = "Successful Data Processing...";
inline constexpr const char* kApSuccessText =
    "Convergence criteria met and growth parameters computed.";
inline constexpr const char* kApBadDateText =
    "A release or recapture date of the file has no valid month (1 to 12). Please check the "
    "data.";

enum ApParam : int { kApLoo = 0, kApK, kApC, kApWP, kApParams };
inline constexpr std::array<const char*, kApParams> kApParamNames = {"Loo", "K", "C", "WP"};
inline constexpr std::array<const char*, kApParams> kApRowLabels = {
    "Loo (asymptotic length)", "K (VBGF curvature parameter)", "C (degree of oscillation)",
    "WP ('Winter Point')"};
using ApConstraints = std::array<ParamConstraint, kApParams>;

// The largest length at tagging.
float LargestTaggedLength(const GinData& data);
// Starting boxes: Loo from the largest tagged length (minimum), 1.1 x and 3 x the largest
// recaptured length (rounded up to two decimals); K 0.01, 1, 10; C and WP 0, 0.5, 1.
ApConstraints DefaultAppeldoornConstraints(const GinData& data);
// The checks of the constraints, in order; the first failure refuses.
Outcome CheckAppeldoornConstraints(const ApConstraints& c, float largestTagged);
// The model's table: x the recapture time ta, tb the release time (calendar years), y the
// increment, and the length at tagging. Refused when a month is not 1 to 12.
struct ApTable : Outcome {
    std::vector<MarquardtObs> rows;
};
ApTable AppeldoornTable(const GinData& data);

struct AppeldoornOptions {
    ApConstraints constraints{};
    std::function<void(int)> progress;
};

struct AppeldoornRun : Outcome {
    ApConstraints constraints{};
    std::vector<MarquardtObs> table;
    bool fitted = false;  // false after the count refusal
    MarquardtResult fit;
    std::string remarks;
    // s.e. / estimate; empty ("n.a.") when the s.e. is 0 or the estimate is 0.
    std::array<std::optional<double>, kApParams> cv{};
};

// Checks, the table, the count test, the fit and the closing notice. After the count refusal
// the run is refused and still carries the success notice last, as the screen shows them.
AppeldoornRun RunAppeldoorn(const GinData& data, const AppeldoornOptions& options);

// The drawn curve at a relative age: the seasonal form with two pi as 6.2832 and t0 = 0.
double AppeldoornCurve(const MarquardtResult& fit, double relativeAge);

}  // namespace norvo
