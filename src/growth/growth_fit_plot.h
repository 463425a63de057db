#pragma once
// Pictures and reports of the fits on MarquardtFit: the length-at-age curve with its points,
// its residuals, and Appeldoorn's growth curve. The frame runs from x = 14 to 85 and from
// y = 85 up to 15 on the percentage canvas.
#include <ctime>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "growth/appeldoorn.h"
#include "growth/increment_plots.h"
#include "growth/length_at_age.h"

namespace norvo {

inline constexpr const char* kLaaReportScreen = "frmOutLAA";
inline constexpr const char* kApReportScreen = "frmOutAppledoorn";
inline constexpr const char* kLaaResidualTitle = "Residuals";
inline constexpr const char* kLooLabel = "Loo";
inline constexpr int kCurveSteps = 81;

// World ranges of a fit plot and the mapping into the frame.
struct FitPlotRange {
    double xMin = 0, xMax = 1, yMin = 0, yMax = 1;
    UserPoint toUser(double x, double y) const;
    // The world point under a canvas point; false outside the frame.
    bool toWorld(UserPoint p, double& x, double& y) const;
};

// "Species: name (identifier)".
std::string SpeciesTitle(const LfqData& header);

// The observations and the fitted curve of a length-at-age run.
FitPlotRange DrawLaaFit(ChartCanvas& canvas, const LaaData& data, const LaaRun& run,
                        char decimalSeparator = '.');
// Residuals (observed - fitted) against age, around the zero line.
FitPlotRange DrawLaaResiduals(ChartCanvas& canvas, const LaaData& data, const LaaRun& run,
                              char decimalSeparator = '.');
// Appeldoorn's curve against relative age, the asymptote labelled "Loo", and each tagged fish
// as a line from release to recapture.
FitPlotRange DrawAppeldoornCurve(ChartCanvas& canvas, const GinData& data, const AppeldoornRun& run,
                                 char decimalSeparator = '.');

ReportDescriptor LaaReport(const LaaData& data, const LaaRun& run,
                           std::time_t when = std::time(nullptr));
ReportDescriptor AppeldoornReport(const GinData& data, const AppeldoornRun& run,
                                  std::time_t when = std::time(nullptr));

}  // namespace norvo
