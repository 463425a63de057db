#pragma once
// Pictures and report of the gillnet selection: the line of the log catch ratios, the two
// selection curves and the catches of the two nets.
#include <ctime>
#include <string>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "data/lfq_data.h"
#include "selection/gillnet.h"

namespace norvo {

inline constexpr const char* kGnRatioTitle = "ln of catch ratios";
inline constexpr const char* kGnCurveTitle = "Probability of Capture";
inline constexpr const char* kGnCatchTitle = "Catch";

// "Midlength (cm)" or, on the log-normal plot, "ln(Midlength (cm))".
std::string GillnetRatioXTitle(const std::string& unit, bool logNormal);
// "Catch", "Catch (10)" or "Catch (10^p)" as the largest catch needs.
std::string GillnetCatchTitle(double largest);

// The x range of the ratio plot: the abscissas widened by one class each side, then rounded
// out to the next 0.5.
struct RatioRange {
    double xLo = 0, xHi = 1, yLo = 0, yHi = 1;
};
RatioRange GillnetRatioRange(const GillnetResult& run);

void DrawGillnetRatio(ChartCanvas& canvas, const GillnetResult& run, const std::string& unit);
void DrawGillnetCurves(ChartCanvas& canvas, const GillnetResult& run, const std::string& unit);
void DrawGillnetCatches(ChartCanvas& canvas, const GillnetResult& run, const std::string& unit);

ReportDescriptor GillnetReport(const LfqData& source, const GillnetResult& run,
                               std::time_t when = std::time(nullptr));

}  // namespace norvo
