#pragma once
// Pictures and the report of the trawl-type selection: probabilities of capture with their
// curve, and the logit line, drawn on the percentage canvas (x 20..95, y 85 up to 15).
#include <ctime>
#include <string>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "data/lfq_data.h"
#include "selection/selection.h"

namespace norvo {

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

// The report of the selection screens.
ReportDescriptor SelectionReport(const std::string& title, const LfqData& header,
                                 const SelectionCurve& curve,
                                 std::time_t when = std::time(nullptr));

}  // namespace norvo
