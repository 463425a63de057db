#pragma once
// Pictures and the report of the catch curve, drawn on the percentage canvas (x 20..95, y 85
// up to 15).
#include <ctime>
#include <string>
#include <vector>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "mortality/catch_curve.h"

namespace norvo {

// Canvas position of every class point 1..nC (index 0 unused) under the run's scale; after an
// extrapolation the fitted stretch but its last point stands at the rebuilt ln(N/dt).
std::vector<UserPoint> CatchCurvePointPositions(const CatchCurveRun& run, const CcScale& scale,
                                                const Extrapolation* ex = nullptr);
// Index of the point within +-1 unit of (x, y), searched from FirstClass upward; -1 if none.
int HitCatchCurvePoint(const std::vector<UserPoint>& points, int first, int last, double x,
                       double y);

// The curve: points, the chosen stretch (`pickedFirst`/`pickedLast`, 0 when none) and its
// line when the run's points are set. With an extrapolation the extrapolated points, the line
// extended to the left and the second title line are added.
CcScale DrawCatchCurve(ChartCanvas& canvas, const CatchCurveRun& run, int pickedFirst = 0,
                       int pickedLast = 0, const Extrapolation* ex = nullptr);

// The report of the catch curve.
ReportDescriptor CatchCurveReport(const LfqData& data, const CatchCurveRun& run,
                                  std::time_t when = std::time(nullptr));
}  // namespace norvo
