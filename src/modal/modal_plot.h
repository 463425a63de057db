#pragma once
// Pictures and reports of the modal progression screens on the percentage canvas: the sample's
// histogram with the fitted normal curves, Bhattacharya's log-difference plot and the linking
// plot of means against time. Each picture comes with the canvas positions of its points, so
// that the screens and tests can find the point under the pointer.
#include <ctime>
#include <optional>
#include <vector>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "modal/bhattacharya.h"
#include "modal/linking.h"
#include "modal/normsep.h"

namespace norvo {

inline constexpr const char* kBhHistogramTitle = "Length-frequency sample and components";
inline constexpr const char* kBhLogTitle = "Log differences";
inline constexpr const char* kBhLogYTitle = "ln(F[k+1]) - ln(F[k])";
inline constexpr const char* kLengthTitle = "Length";
inline constexpr const char* kFrequencyTitle = "Frequency";
inline constexpr const char* kLkTimeTitle = "Time";

struct NormalCurve {
    double mean = 0, sd = 0, population = 0;
};

// The histogram of `freq` (classes 1..nC, index 0 unused) with the expected numbers per class
// of each curve, and of their sum when there are several.
void DrawSeparationHistogram(ChartCanvas& canvas, const std::vector<float>& freq, double firstMid,
                             double w, const std::vector<NormalCurve>& curves,
                             const std::string& title);

// Canvas positions of the log-difference points 1..nC-1 (index 0 and absent points: none).
std::vector<std::optional<UserPoint>> LogPointPositions(const BhSample& s);
// The point within one unit of (x, y), or 0.
int HitLogPoint(const std::vector<std::optional<UserPoint>>& points, double x, double y);
// The log plot: points, the first chosen point, the line of a prepared component over its
// used points, and the point under the pointer.
void DrawLogPlot(ChartCanvas& canvas, const BhSample& s, int firstPick,
                 const BhTake* take = nullptr, int hover = 0);

// Canvas positions of the linking points 1..n (index 0 unused).
std::vector<UserPoint> LinkPointPositions(const std::vector<MsdRow>& points);
// The point within 1 unit in x and 3 in y of (x, y), or 0.
int HitLinkPoint(const std::vector<UserPoint>& points, double x, double y);
void DrawLinkingPlot(ChartCanvas& canvas, const LinkState& s, int hover = 0);

// Reports.
ReportDescriptor BhattacharyaReport(const LfqData& data, const BhSample& s,
                                    std::time_t when = std::time(nullptr));
ReportDescriptor NormsepReport(const LfqData& data, int sample, const NormsepResult& r,
                               std::time_t when = std::time(nullptr));
ReportDescriptor LinkingReport(const MsdData& msd, const LinkState& s, const LinkGrowth& g,
                               std::time_t when = std::time(nullptr));

}  // namespace norvo
