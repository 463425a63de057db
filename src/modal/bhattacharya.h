#pragma once
// Bhattacharya's method: one sample of a grouped length-frequency file split into normal
// components by the log differences of its frequencies, one component at a time. Values are
// 32-bit floats as the method has always stored them. Arrays are 1-based by class (index 0
// unused); log-difference point k lies between classes k and k + 1.
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/lfq_data.h"
#include "numerics/regression.h"

namespace norvo {

inline constexpr const char* kBhCaption = "Bhattacharya's Method...";
inline constexpr const char* kBhReportTitle =
    "Separation of Normal Distributions Using Bhattacharya's Method";
inline constexpr const char* kBhNotAvailable = "n.a";
inline constexpr const char* kBhSiWarningTitle = "WARNING: SI < 2";
inline constexpr const char* kBhPointTitle = "Invalid Action...";
inline constexpr const char* kBhAbsentPointText =
    "This point has no log difference (a class beside it is empty) and cannot be chosen.";
inline constexpr const char* kBhTooFewPointsText =
    "A line needs at least two points with a log difference between the chosen points.";
inline constexpr const char* kBhNoSampleTitle = "Invalid Action";

// "WARNING! The separation index (SI=...) is less than 2, ..."
std::string SeparationWarningText(float si);
// "Point numbers run from 1 to <n>." for a point outside the plot.
std::string PointRangeText(int points);
// "There is no sample <s> in the file."
std::string NoSampleText(int sample);

// Boundaries start + w, start + 2w, ... (n - 1 terms) at indexes 1..n-1.
std::vector<float> ClassBoundaries(float start, float w, int n);
// ln F[k+1] - ln F[k] for k = 1..nC-1 where both are positive; absent otherwise.
std::vector<std::optional<float>> LogDifferences(const std::vector<float>& f);
// The separation index |m1 - m2| / ((s1 + s2)/2), or -9999 when that mean sd is not positive.
float SeparationIndex(float m1, float s1, float m2, float s2);

// The line through the log differences between two chosen points (either order).
struct LogLine : Outcome {
    int from = 0, to = 0;   // the points in ascending order
    std::vector<int> used;  // the points of the fit: those between with a value
    RegressionResult fit;
};
LogLine FitLogLine(const std::vector<float>& x, const std::vector<std::optional<float>>& y,
                   int first, int second);

struct BhComponent {
    int from = 0, to = 0;
    std::vector<int> used;
    float a = 0, b = 0;
    float mean = 0, sd = 0, p = 0, sumF = 0, population = 0;
    std::optional<float> si;  // against the component before; none for the first
};
// Mean -a/b, sd sqrt(-w/b), and the population explaining the classes from..to. A slope of 0
// or above is the arithmetic fault.
BhComponent ComputeComponent(float a, float b, float start, float w,
                             const std::vector<float>& observed, int from, int to);
// Takes the component's expected numbers off the classes from..to, leaving no class below 0.
void SubtractComponent(std::vector<float>& observed, const BhComponent& c, float start, float w);

// The state of one sample under analysis, as the screen holds it.
struct BhSample {
    int sample = 0;          // 1-based
    float start = 0, w = 0;  // lower limit of class 1, class width
    int nC = 0;
    std::vector<float> observed;  // still unexplained, 1..nC
    std::vector<float> logX;      // boundaries, 1..nC-1
    std::vector<std::optional<float>> logDiff;
    std::vector<BhComponent> components;

    // The mean and sd of the last component taken (unrounded), for the separation index.
    float prevMean() const { return components.back().mean; }
    float prevSD() const { return components.back().sd; }
    int points() const { return nC - 1; }
};

// A sample of the file ready for its first component; refused when there is no such sample.
struct BhStart : Outcome {
    BhSample sample;
};
BhStart StartBhattacharya(const LfqData& data, int sample);

// The line and the component for two chosen points, with the separation index against the
// component before and its warning. Refused (sample unchanged) for a point off the plot, an
// absent end point or fewer than two usable points.
struct BhTake : Outcome {
    LogLine line;
    BhComponent component;
};
BhTake PrepareComponent(const BhSample& s, int first, int second);
// Keeps the component and takes it off the observed frequencies ("Continue").
void AcceptComponent(BhSample& s, const BhComponent& c);

}  // namespace norvo
