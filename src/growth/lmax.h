#pragma once
// Prediction of the maximum length of a species from the largest lengths found in a set of
// samples, by the asymptotic distribution of extreme values (Gumbel, type I).
#include <string>
#include <vector>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "data/lfq_data.h"

namespace norvo {

inline constexpr const char* kLmaxReportTitle =
    "Prediction of the Maximum Length from Extreme Values";
inline constexpr const char* kLmaxCalcErrorTitle = "Calculation Error";
inline constexpr const char* kLmaxCalcErrorMessage =
    "Calculation error. Please check data and if problem persist, please contact the authors.";
inline constexpr const char* kLmaxTooFewTitle = "Invalid Data";
inline constexpr const char* kLmaxTooFewMessage =
    "The prediction needs the extreme lengths of at least two samples. Please select a file with "
    "two or more samples.";
inline constexpr const char* kLmaxOpenTitle = "Open...";
inline constexpr const char* kLmaxOpenFilter =
    "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";
inline constexpr const char* kExtremeLengthsTable = "Extreme lengths";
inline constexpr const char* kCumulativeProbabilities = "Cumulative probabilities";
inline constexpr const char* kPointsOfCurvesTable = "Points of the curves";
inline constexpr const char* kCumProbColumn = "Cum. Prob.";
inline constexpr const char* kPredictedColumn = "Predicted";
inline constexpr const char* kLowerLimitColumn = "Lower Limit";
inline constexpr const char* kUpperLimitColumn = "Upper Limit";
inline constexpr const char* kCumulativeProbabilityAxis = "Cumulative probability";
inline constexpr const char* kLmaxValueFormat = "#,##0.00";
// A limit reads: value, " ", unit, " - ", and which limit it is.
inline constexpr const char* kLowerLimitText = "lower limit";
inline constexpr const char* kUpperLimitText = "upper limit";

// The predicted maximum length is the length whose cumulative probability among sample
// maxima is this: exceeded by the largest fish of only one sample in a hundred.
inline constexpr double kLmaxTargetProbability = 0.99;
// The curve runs over the probability axis's range, evenly spaced in the reduced variate.
inline constexpr double kCurveLowProbability = 0.001;
inline constexpr double kCurveHighProbability = 0.999;
inline constexpr int kMaxCurvePoints = 500;
// Skewness and (kurtosis - 1) / 4 of the type I extreme-value distribution, which enter the
// standard error of a predicted extreme.
inline constexpr double kGumbelSkewness = 1.1396;
inline constexpr double kGumbelKurtosisTerm = 1.1;

// The probability axis: labels and the cumulative probabilities they stand for.
struct ProbabilityTick {
    const char* label;
    double probability;
};
inline constexpr ProbabilityTick kProbabilityTicks[] = {
    {".001", 0.001}, {".1", 0.1},   {".5", 0.5},     {".9", 0.9},
    {".96", 0.96},   {".99", 0.99}, {".999", 0.999},
};

// For each sample with a frequency above 0, the mid-length of its last such class; sorted
// ascending, ties kept. Samples with no frequency at all give nothing.
std::vector<double> ExtremeLengths(const LfqData& data);

// -ln(-ln P): the reduced variate of a cumulative probability.
double ReducedVariate(double probability);

struct GumbelCurvePoint {
    double probability = 0;
    double predicted = 0;
    double lower = 0;
    double upper = 0;
};

struct GumbelFitResult {
    bool ok = false;  // false: the extremes do not spread (no scale); nothing to predict
    int n = 0;
    std::vector<double> extremes;       // sorted
    std::vector<double> probabilities;  // plotting positions i / (n + 1)
    std::vector<double> reduced;        // their reduced variates
    double meanX = 0, sdX = 0, meanY = 0, sdY = 0;
    double beta = 0;                                                // scale
    double u = 0;                                                   // location (mode)
    double predicted = 0, standardError = 0, lower = 0, upper = 0;  // at the target probability
    std::vector<GumbelCurvePoint> curve;
};

// Standard error of the length predicted at reduced variate y.
double PredictionStandardError(const GumbelFitResult& fit, double y);

// Moment fit of the Gumbel distribution to n >= 2 extremes (sorted here), with the predicted
// maximum length, its limits and the curve. Fewer than two extremes is a caller's error.
GumbelFitResult GumbelFit(std::vector<double> extremes);

// Where a reduced variate falls on the probability axis of the plot (x from 20 to 95 over the
// range .001 to .999).
double ProbabilityAxisX(double reducedVariate);

// The plot: extremes at their plotting positions, the predicted line and its limits, on a
// percentage canvas with the probability axis below and the lengths at the left.
void GraphResults(ChartCanvas& canvas, const GumbelFitResult& fit, const std::string& unit);

// The printed page: the file and its samples, the fit and the prediction with its limits.
ReportDescriptor LmaxReport(const LfqData& data, const GumbelFitResult& fit,
                            std::time_t when = std::time(nullptr));

}  // namespace norvo
