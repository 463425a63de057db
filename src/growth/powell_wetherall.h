#pragma once
// Powell-Wetherall plot: Loo and Z/K from a grouped length-frequency file by a straight line of
// the mean length above a cut-off (less the cut-off) on the cut-off length, weighted by the
// number of fish above the cut-off. Arrays are 1-based by class (index 0 unused).
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/lfq_data.h"
#include "mortality/catch_curve.h"

namespace norvo {

inline constexpr const char* kPwCaption = "Powell - Wetherall Plot";
inline constexpr const char* kPwPseudoCaption = "Pseudo-catch Curve";
inline constexpr const char* kPwReportTitle = "Powell - Wetherall's Plot";
inline constexpr const char* kPwPlotTitle = "POWELL - WETHERALL PLOT";
inline constexpr const char* kPwYTitle = "Mean L - L'";
inline constexpr const char* kPwXTitlePrefix = "Cut-off Lenth (L';";
inline constexpr const char* kPwPseudoTitle = "PSEUDO-CATCH CURVE";
inline constexpr const char* kPwPseudoXTitlePrefix = "Midlength (";
inline constexpr const char* kPwPseudoYTitle = "  Frequency (N)";
inline constexpr const char* kPwPseudoYTitlePrefix = "Frequency (Nx10^";
inline constexpr const char* kPwPseudoNote =
    "NOTE: This plot is a pseudo-catch curve to help identify the age group fully recruited to "
    "the fishery and size (age) not affected by gear selection. Identify the group with a  mouse "
    "click.";
inline constexpr const char* kPwListHint = "Select/deselect data to include in the analysis.";
inline constexpr const char* kPwNoDataTitle = "Invalid Action";
inline constexpr const char* kPwNoDataText =
    "No data was selected. Please select a data to include in the analysis to continue.";
inline constexpr const char* kPwSelectionTitle = "Invalid Selection";
inline constexpr const char* kPwTooFewText = "ERROR! Please select 3 or more points.";
inline constexpr const char* kPwPositiveSlopeText =
    "ERROR! The regression slope is positive, please reselect points.";
inline constexpr const char* kPwZkUndefined = "Z/K is undefined";

struct PowellWetherallOptions {
    std::vector<bool> selected;  // by sample, 0-based; empty selects all
    CcTransform transform = CcTransform::Raw;
    bool temporal = false;
};

// The points of one run, classes 1..lastClass, in 32-bit floats.
struct PowellWetherallData : Outcome {
    int nC = 0;
    int lastClass = 0;  // the top class with fish
    double smallestMl = 0, classInterval = 0;
    std::vector<float> pooled;     // pooled frequency, 1..nC
    std::vector<float> cumF;       // fish at or above the class, the point's weight
    std::vector<float> cutOff;     // L': the class's lower limit
    std::vector<float> meanAbove;  // mean length at or above L', less L'

    double midlength(int i) const { return (i - 1) * classInterval + smallestMl; }
};

// Pools the chosen samples and builds the points. Refused when no sample is chosen or a sample
// cannot be transformed.
PowellWetherallData PowellWetherallMethod(const LfqData& data, const PowellWetherallOptions& o);

// The weighted fit from a first point to lastClass. Sums, means, the centred sums, a, b and r
// are stored in 32 bits; each product is formed in 64 bits.
struct PowellWetherallFit : Outcome {
    int firstPoint = 0, lastPoint = 0;
    float sw = 0, sx = 0, sy = 0, sxx = 0, syy = 0, sxy = 0;
    float meanX = 0, meanY = 0, cxy = 0, cxx = 0, cyy = 0;
    float a = 0, b = 0, r = 0;
    // Set when the slope is negative (r below 0); Z/K absent when b is exactly -1.
    std::optional<double> loo;
    std::optional<double> zk;

    bool zkUndefined() const { return loo && !zk; }
    bool positiveSlope() const { return ok() && !loo; }
};

// The fit from `firstPoint`. Refused ("3 or more points") when fewer than three points remain;
// a fit whose r is 0 or above carries the positive-slope notice and no estimates. A fit whose
// centred sums leave no correlation (Cxx * Cyy <= 0) raises the arithmetic fault.
PowellWetherallFit PowellWetherallFitFrom(const PowellWetherallData& data, int firstPoint);

// "Y =<a> + (<b> )* X" from the two numbers as shown ("0.00", "0.000").
std::string PwFunctionText(const std::string& a, const std::string& b);

}  // namespace norvo
