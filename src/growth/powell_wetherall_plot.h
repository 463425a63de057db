#pragma once
// The two pictures of the Powell-Wetherall plot on the percentage canvas (frame corner at
// x = 20, y = 85): mean length above the cut-off on the cut-off, and the pseudo-catch curve of
// the pooled frequencies; both mark the chosen first point. And the report.
#include <ctime>
#include <string>
#include <vector>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "growth/powell_wetherall.h"

namespace norvo {

// An axis from 0 to `top`, mapped onto `span` canvas units.
struct PwAxis {
    double top = 1, scale = 1, step = 1;
    double at(double v) const { return v * scale; }
};
// The axis over values up to `largest`: top Int(largest) + 1, made even, `span` units long.
PwAxis PwAxisOver(double largest, double span);

struct PwPlotFrame {
    PwAxis x, y;
    int power = 0;  // the pseudo-catch frequencies are shown divided by 10^power
};

// The frames of the two pictures for a run's points 1..lastClass.
PwPlotFrame PowellWetherallFrame(const PowellWetherallData& d);
PwPlotFrame PseudoCatchFrame(const PowellWetherallData& d);
// Canvas positions of points 1..lastClass (index 0 unused).
std::vector<UserPoint> PowellWetherallPositions(const PowellWetherallData& d);
std::vector<UserPoint> PseudoCatchPositions(const PowellWetherallData& d);
// "  Frequency (N)" or "Frequency (Nx10^p)".
std::string PseudoCatchYTitle(int power);

// The pictures; `picked` is the chosen first point (0 for none). The fitted line is drawn when
// `fit` holds estimates.
void DrawPowellWetherall(ChartCanvas& canvas, const PowellWetherallData& d, const std::string& unit,
                         int picked, const PowellWetherallFit* fit);
void DrawPseudoCatch(ChartCanvas& canvas, const PowellWetherallData& d, const std::string& unit,
                     int picked);

ReportDescriptor PowellWetherallReport(const LfqData& data, const PowellWetherallFit& fit,
                                       std::time_t when = std::time(nullptr));

}  // namespace norvo
