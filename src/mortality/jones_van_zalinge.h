#pragma once
// Jones and van Zalinge plot: Z/K from a grouped length-frequency file as the slope of the log
// of the cumulative catch on log(Loo - L), L the lower limit of each class. Arrays are 1-based
// by class (index 0 unused).
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/lfq_data.h"
#include "mortality/catch_curve.h"
#include "numerics/regression.h"

namespace norvo {

inline constexpr const char* kJvzCaption = "Jones & van Zalinge Plot...";
inline constexpr const char* kJvzNote =
    "Note: Use the length- converted catch curve if growth oscillates.";
inline constexpr const char* kJvzReportTitle = "Jones and van Zalinge Plot";
inline constexpr const char* kJvzPlotTitle = "Jones and van Zalinge Plot";
inline constexpr const char* kJvzYTitle = "log(Cum. Catch)";
inline constexpr const char* kJvzXTitle = "log(Loo - L)";
inline constexpr const char* kJvzTooSmallTitle = "Invalid Input...";
inline constexpr const char* kJvzTooSmallText =
    "The Loo input is too small to generate data points of the plot. Please adjust input.";
inline constexpr const char* kJvzNoDataTitle = "Invalid Action";
inline constexpr const char* kJvzNoDataText =
    "No data was selected. Please select a data to include in the analysis to continue.";
inline constexpr const char* kJvzSelectionTitle = "Invalid Selection";
inline constexpr const char* kJvzTooFewText = "ERROR! Please select 3 or more points.";
inline constexpr const char* kJvzStubTitle = "WARNING!";
inline constexpr const char* kJvzStubText = "Sorry, not yet implemented...";
inline constexpr const char* kJvzEmptyTopTitle = "Invalid Data";

// "Class 20 ... holds no fish ..." / "Classes 18 to 20 ...": the empty classes at the top of
// the file, whose cumulative catch is 0 and has no logarithm.
std::string JvzEmptyTopText(int first, int last);

struct JonesVanZalingeOptions {
    float loo = 0, k = 0;
    std::vector<bool> selected;  // by sample, 0-based; empty selects all
    CcTransform transform = CcTransform::Raw;
    bool temporal = false;
    std::optional<PointRange> points;  // for RunJonesVanZalinge: the classes to fit
};

struct JonesVanZalingeRun : Outcome {
    float loo = 0, k = 0;
    int nC = 0;
    int usable = 0;                               // the last class whose lower limit lies below Loo
    std::vector<float> pooled, cumCatch, logCum;  // 1..nC
    std::vector<float> logLoo;                    // 1..usable (0 beyond)
    int first = 0, last = 0;                      // the fitted classes, 0 when none
    RegressionResult fit;
    bool growthRefused = false;  // the refusal concerns Loo or K

    bool fitted() const { return first > 0; }
    double zk() const { return fit.b(); }
    double zkLow() const { return fit[RegressionResult::kBLow]; }
    double zkHigh() const { return fit[RegressionResult::kBHigh]; }
};

// Loo and K as the growth boxes are checked: each must be above 0 (NaN is refused too); then Loo
// must lie above the midlength of the first class plus three class widths.
Outcome CheckJonesVanZalingeInput(const LfqData& data, float loo, float k);

// The points of one run (no fit). Refused when no sample is chosen, a sample cannot be
// transformed, or the top classes are empty.
JonesVanZalingeRun JonesVanZalingeMethod(const LfqData& data, const JonesVanZalingeOptions& o);

// Fits the classes between two picks (either order). Refused with the run unchanged when a pick
// is not a usable class ("No Selection") or fewer than three classes lie between them.
Outcome JvzChoosePoints(JonesVanZalingeRun& run, int first, int last);

// The checks, the points and, when options.points is set, the fit.
JonesVanZalingeRun RunJonesVanZalinge(const LfqData& data, const JonesVanZalingeOptions& o);

// Plot frame: axes from 0 to Int(largest) + 1 on both sides, y over 70 units, x over 75.
struct JvzScale {
    double xTop = 1, yTop = 1, xScale = 75, yScale = 70;
};
JvzScale JonesVanZalingeScale(const JonesVanZalingeRun& run);

}  // namespace norvo
