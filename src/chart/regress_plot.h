#pragma once
// The picture and the report of the regression tool: the pairs and the fitted line in the
// transformed space, on the percentage canvas with the frame from x = 20 (70 wide) and y = 85
// (65 high); the axes show their numbers back through the form's inverse.
#include <ctime>
#include <string>
#include <vector>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "data/xyf_file.h"
#include "numerics/regression_tool.h"

namespace norvo {

inline constexpr double kRegressFrameWidth = 70.0;
inline constexpr double kRegressFrameHeight = 65.0;
inline constexpr int kRegressTickSteps = 5;
inline constexpr const char* kRegressReportScreen = "frmOutRegress";
inline constexpr const char* kRegressReportTitle = "Regression Analysis (Function: ";

// The world ranges of the plot: the data's extent widened by a twentieth on each side, or
// the value +-0.5 when all values are alike.
struct RegressPlotRange {
    double xMin = 0, xMax = 1, yMin = 0, yMax = 1;
    // Canvas position of a point of the transformed space.
    UserPoint toUser(double x, double y) const;
};
RegressPlotRange RegressionPlotRange(const RegressRun& run);

// The number of a tick: on an axis shown through an inverse, the inverse with three significant
// digits (at most six decimals); elsewhere the value with the decimals its step needs.
std::string RegressTickText(int form, bool yAxis, double v, double step,
                            char decimalSeparator = '.');

// Draws the run's pairs and line under the file's titles; returns the ranges used.
RegressPlotRange DrawRegression(ChartCanvas& canvas, const XyfData& file, const RegressRun& run,
                                char decimalSeparator = '.');

// The report: "Regression Analysis (Function: " + form + ")", the file and its titles, C when
// the form has one, and the read-outs of the screen.
ReportDescriptor RegressionReport(const XyfData& file, const RegressRun& run,
                                  std::time_t when = std::time(nullptr));

}  // namespace norvo
