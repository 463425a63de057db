#pragma once
// Pictures and reports of the catch curve and of the selection curves, drawn on the percentage
// canvas (x 20..95, y 85 up to 15).
#include <ctime>
#include <string>
#include <vector>

#include "mortality/catch_curve.h"
#include "plot/chart_canvas.h"
#include "plot/report.h"
#include "selection/selection.h"

namespace norvo {

// Canvas position of every class point 1..nC (index 0 unused) under the run's scale.
std::vector<UserPoint> CatchCurvePointPositions(const CatchCurveRun& run, const CcScale& scale);
// Index of the point within +-1 unit of (x, y), searched from FirstClass upward; -1 if none.
int HitCatchCurvePoint(const std::vector<UserPoint>& points, int first, int last, double x,
                       double y);

// The curve: points, the chosen stretch (`pickedFirst`/`pickedLast`, 0 when none) and its
// line when the run's points are set. With an extrapolation the extrapolated points, the line
// extended to the left and the second title line are added.
CcScale DrawCatchCurve(ChartCanvas& canvas, const CatchCurveRun& run, int pickedFirst = 0,
                       int pickedLast = 0, const Extrapolation* ex = nullptr);

// Probability of capture by class, with an estimated curve and its three lengths when given.
void DrawProbabilityPlot(ChartCanvas& canvas, const SelectionInput& in, const SelectionCurve* curve,
                         const std::string& unit);
// The logit points (selected ones filled) and the fitted line between the first and last
// selected point when `fit` is given.
struct LogitFrame {
    double xMin = 0, xScale = 1, yMin = 0, yScale = 1;
    UserPoint at(double x, double y) const {
        return {20 + (x - xMin) * xScale, 85 - (y - yMin) * yScale};
    }
};
LogitFrame DrawLogits(ChartCanvas& canvas, const LogitPoints& pts, int firstPoint,
                      const RegressionResult* fit, const std::string& unit);

// Reports of the catch curve and of the selection screens.
ReportDescriptor CatchCurveReport(const LfqData& data, const CatchCurveRun& run,
                                  std::time_t when = std::time(nullptr));
ReportDescriptor SelectionReport(const std::string& title, const LfqData& header,
                                 const SelectionCurve& curve,
                                 std::time_t when = std::time(nullptr));

}  // namespace norvo
