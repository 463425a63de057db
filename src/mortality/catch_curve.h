#pragma once
// Length-converted catch curve: total mortality Z from a grouped length-frequency file and a
// set of growth parameters, and the probabilities of capture extrapolated from its line.
// Arrays of a run are 1-based by class (index 0 unused) so that the class numbers shown to the
// user are the indexes used here.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/lfq_data.h"
#include "growth/vbgf.h"
#include "numerics/regression.h"

namespace norvo {

// Notice texts.
inline constexpr const char* kCcInvalidLooText =
    "The input for the asymptotic length (Loo) is invalid. Please check input.";
inline constexpr const char* kCcInvalidKText =
    "The input for the VBGF growth constant (K) is invalid. Please check input.";
inline constexpr const char* kCcInvalidT0Text =
    "The input for the t0 parameter is invalid. Please check input.";
inline constexpr const char* kCcInvalidWpText =
    "The input for the seasonalised VBGF winter point (WP) parameter is invalid. Please check "
    "input.";
inline constexpr const char* kCcInvalidCText =
    "The input for the seasonalised VBGF amplitude of oscillation (C) parameter is invalid. "
    "Please check input.";
inline constexpr const char* kCcInvalidInputTitle = "Invalid Input";
inline constexpr const char* kCcLooBelowDataText =
    "You have entered an invalid value for the Loo parameter. Please check.";
inline constexpr const char* kCcInvalidActionTitle = "Invalid Action";
inline constexpr const char* kCcNoDataSelectedText =
    "No data was selected. Please select a data in the 'DATA' tab to include in the analysis to "
    "continue.";
inline constexpr const char* kCcNotEnoughDataTitle = "Not Enough Data";
inline constexpr const char* kCcNoLineFromDataText =
    "No regression line can be estimated from the data points.";
inline constexpr const char* kCcFewerThanThreeText =
    "No regression line can be estimated for less than 3 points.";
inline constexpr const char* kCcNoticeTitle = "Notice";
inline constexpr const char* kCcEmptySampleTitle = "Invalid Data";
inline constexpr const char* kCcTemperatureTitle = "Invalid Data";
inline constexpr const char* kCcTooColdText = "The temperature is too cold. Please check input.";
inline constexpr const char* kCcTooWarmText = "The temperature is too warm. Please check input.";
inline constexpr const char* kCcMissingInputText =
    "A required inputs is missing or invalid. Please check.";
inline constexpr const char* kCcMAboveZTitle = "Invalid Data";
inline constexpr const char* kCcMAboveZText =
    "Please note that M entered is > Z, suggesting either: (i) wrong value of M, (ii) small "
    "animals have a higher mortality, (iii) wrong selection of points for catch curve, or (iv) "
    "assumptions of catch curve are not met.";
inline constexpr const char* kCcNoSelectionTitle = "No Selection";
inline constexpr const char* kCcNoSelectionText =
    "Position the cursor to the desired point that should be selected and click the mouse.";
inline constexpr const char* kCcResetFirstText =
    "Please click the <Reset Selections> command button to reselect points to include in the "
    "analysis.";
inline constexpr const char* kCcTooFewPickedText =
    "More than 2 data points are required for this method. Selection will be reset.";
inline constexpr const char* kCcSelectingTitle = "Selecting Data Points";
inline constexpr const char* kCcSelectingText =
    "Select only the first and last data points in the graph by clicking on the plotted data "
    "points.";
inline constexpr const char* kCcHelpTitle = "Help Message";
inline constexpr const char* kCcTemporalHelpText =
    "Temporal weighting will weight each sample by a factor proportional to the time separating "
    "it from the nearest other sample. This gives more emphasis to sample representing larger "
    "periods and less to samples collected at close intervals.";
inline constexpr const char* kCcTitle = "Length-Converted Catch Curve";
inline constexpr const char* kCcReportTitle = "Lenght-Converted Catch Curve";
inline constexpr const char* kCcYLabelPlain = "ln(N/dt)";
inline constexpr const char* kCcYLabelSeasonal = "ln(N)";
inline constexpr const char* kCcXLabelRelative = "Relative age (years-t0)";
inline constexpr const char* kCcXLabelAbsolute = "Absolute age (years)";

// Axis labels: ln(N/dt) or ln(N); relative age when t0 is 0, absolute otherwise.
inline const char* CatchCurveYLabel(double c) {
    return c == 0 ? kCcYLabelPlain : kCcYLabelSeasonal;
}
inline const char* CatchCurveXLabel(double t0) {
    return t0 == 0 ? kCcXLabelRelative : kCcXLabelAbsolute;
}

// "A zero frequency for age group <i> is compensated for by ..."
std::string ZeroCompensationText(int cls);
// The refusal of a sample without fish under the percent or square-root transformation.
std::string EmptySampleText(int sampleNo);
// The refusal of a negative frequency stored in the file.
std::string NegativeFrequencyText(int sampleNo, double midlength, double frequency);
// "Estimation of probability of capture not applicable. ... enter Z=<z> ..."
std::string SeasonalExtrapolationText(double z);

// Age helpers, in 64-bit floats.
// -9999 at or above Loo; otherwise -ln(1 - L/Loo)/K - t0.
double AgeOfLength(double length, double loo, double k, double t0);
// Time to grow from L1 to L2; -1 when L2 >= Loo or L1 >= L2.
double ClassDuration(double l1, double l2, double loo, double k);
// Durations of the classes from `lower` in steps of w below Loo, element i (1-based) at index i.
std::vector<double> ClassDurations(double lower, double w, double loo, double k);
// Ages of the class midpoints, same count and indexing as ClassDurations.
std::vector<double> MidpointAges(double lower, double w, double loo, double k, double t0);
// Seasonal age of a length by step search, in 32-bit floats; negative (callers negate it).
// Raises the arithmetic fault if the search does not settle.
float SeasonalAgeOfLength(float length, float tS, float loo, float k, float c, float wp);

// Sample transformations by kind: 1 raw, 2 percent of the sample total, 3 divided by the square
// root of the sample total. freq[c][s] as in LfqData.
enum class CcTransform : int { Raw = 1, Percent = 2, SquareRoot = 3 };
void TransformSamples(std::vector<std::vector<double>>& freq, CcTransform kind);
// Day number of a sample: days before its month plus its day.
int SampleDayNumber(const LfqData& data, int s);
// Temporal weight sqrt(d) of every sample (0-based), d the distance to the nearer neighbour.
std::vector<double> TemporalWeights(const LfqData& data);

// The growth parameters of a run: Loo and K required, t0, WP and C optional (an optional one
// left out is 0). A parameter that is no number is NaN. Refused with the notice of the first
// parameter out of its range, in the order Loo, K, t0, WP, C.
Outcome ValidateGrowthParams(const GrowthParams& growth);

// A stretch of the curve, first and last class; 0, 0 when none is set.
struct PointRange {
    int first = 0, last = 0;
    bool operator==(const PointRange&) const = default;
};

// The mortalities of the extrapolation: Z (the curve's own when absent) and M, typed or from
// the temperature by Pauly's formula.
struct MortalityOptions {
    std::optional<double> z;
    std::optional<double> m;
    std::optional<double> temperature;  // mean water temperature, deg C
};

struct CatchCurveOptions {
    GrowthParams growth;         // Loo, K, C, WP, t0; SS and SL play no part
    std::vector<bool> selected;  // by sample, 0-based; empty selects all
    CcTransform transform = CcTransform::Raw;
    bool temporal = false;
    // The rest is for RunCatchCurve: the stretch to fit (the default stretch when absent) and
    // the extrapolation of the probabilities of capture (none when absent).
    std::optional<PointRange> points;
    std::optional<MortalityOptions> extrapolate;
};

// Probabilities of capture by back-extrapolation with a ramp of mortality from M to Z, with the
// notices of the checks on the way.
struct Extrapolation : Outcome {
    double z = 0, m = 0, t = 0;
    std::vector<double> ne;     // expected numbers, 1..firstPoint
    std::vector<float> yExtra;  // extrapolated ln(Ne/dt), 1..firstPoint - 1
    // The observed ordinates redrawn from the numbers, ln(N/dt), firstPoint..lastPoint - 1
    // (0 elsewhere): a zero-compensated class shows its numbers, not its borrowed Y.
    std::vector<float> yWorking;
    std::vector<float> probability;  // by class, 1..nC
};

// One run of the catch curve. Arrays are 1-based, sized nC + 1. Refused when a notice stopped
// the run; its notices (zero compensation, the extrapolation's checks) in order.
struct CatchCurveRun : Outcome {
    bool seasonal = false;
    GrowthParams growth;
    double lower = 0, w = 0, firstMid = 0;
    int nC = 0;
    std::vector<float> X, Y, N;
    std::vector<double> dt;
    int firstClass = 0, lastClass = 0;
    int firstPoint = 0, lastPoint = 0;
    RegressionResult fit;
    // Set by RunCatchCurve: the stretch the rule chose, whether the refusal concerns a growth
    // parameter (the screen then shows its data tab), and the extrapolation when asked for.
    PointRange defaultPoints;
    bool growthRefused = false;
    std::optional<Extrapolation> extrapolation;

    bool fitted() const { return firstPoint > 0; }
};

// Steps of the catch curve from the pooled numbers to ln(N/dt) against age, with every notice.
// `data` is the file as read; growth values are taken as already validated.
CatchCurveRun CatchCurveMethod(const LfqData& data, const CatchCurveOptions& options);
// The default stretch by exhaustive search scored by F; leaves the points at 0 when nothing
// scores.
void ComputeDefaultPoints(CatchCurveRun& run);
// Fits the stretch firstPoint..lastPoint into run.fit.
void FitPoints(CatchCurveRun& run);
inline double CatchCurveZ(const CatchCurveRun& run) {
    return -run.fit.b();
}

// Plot frame of the catch curve (world 0..100).
struct CcScale {
    double yMin = 0, yMax = 0, yScale = 0, xMax = 0, xScale = 0, yStep = 0, xStep = 0;
};
// The scale over FirstClass..LastClass of the given ordinates (extra values widen it).
CcScale CatchCurveScale(const CatchCurveRun& run, const std::vector<float>& extraY = {});

// Checks a temperature: refused when out of -2..31.
Outcome CheckTemperature(double t);
// The Proceed check: refused unless Z > 0 and M > 0; M > Z warns and lets the run go on.
Outcome CheckMortalities(double z, double m);

// The extrapolation itself, on mortalities already checked; it carries no notices. Z, M and T
// are taken as 32-bit floats.
Extrapolation ExtrapolateProb(const CatchCurveRun& run, double z, double m, double t);
// "(for Z=...; M (at ...ºC)=...; F=...; E=...)"
std::string ExtrapolationSubtitle(const Extrapolation& e);

}  // namespace norvo
