#pragma once
// The VBGF and length-frequency plot: the samples of a grouped file as sideways bars on their
// dates, with growth curves through a starting point laid across them.
//
// The time axis counts days from the first sample (a year is 365 days). Without "Display all"
// the window shows 200 days across the plot and a scroll bar moves it; with it, the window
// widens by `zoom` so the whole file fits, and bars shrink by the same factor.
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "chart/chart_canvas.h"
#include "data/lfq_data.h"
#include "growth/vbgf.h"

namespace norvo {

inline constexpr const char* kVbgfInvalidLoo =
    "The input for the asymptotic length (Loo) is invalid. Please check input.";
inline constexpr const char* kVbgfInvalidK =
    "The input for the VBGF growth constant (K) is invalid. Please check input.";
inline constexpr const char* kVbgfInvalidC =
    "The input for the seasonalised VBGF amplitude of oscillation (C) parameter is invalid. "
    "Please check input.";
inline constexpr const char* kVbgfInvalidWP =
    "The input for the seasonalised VBGF winter point (WP) parameter is invalid. Please check "
    "input.";
inline constexpr const char* kVbgfInvalidSS =
    "The sample number introduced is not valid. Please check input!";
inline constexpr const char* kVbgfInvalidSL =
    "The starting length introduced is not valid. Please check input!";
inline constexpr std::array<const char*, 12> kMonthLabels = {
    "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

inline constexpr int kMaxCohorts = 12;
inline constexpr int kMaxCohortPoints = 37;
// Plot geometry on the percentage canvas.
inline constexpr double kTimeAxisLeft = 15.0;
inline constexpr double kTimeAxisRight = 98.0;
inline constexpr double kTimeAxisY = 85.0;
inline constexpr double kLengthAxisTop = 8.0;
inline constexpr double kWindowDays = 200.0;  // days shown across the plot at zoom 1
inline constexpr double kMaxBarUnits = 12.0;  // longest bar at zoom 1, in plot units
// Days a longest bar covers; the time axis leaves this room after the last sample.
inline constexpr double kBarRoomDays =
    kMaxBarUnits * kWindowDays / (kTimeAxisRight - kTimeAxisLeft);

// The curve of this plot at time t (years) with origin t0: the seasonal term depends on t
// alone. Stored as a float, raised by 0.005, floored at 0.
float ComputeL(double t, const GrowthParams& p, float t0);
// The origin that puts length `sl` on the curve at time t (the same origin as GrowthT0).
float ComputeT0(float sl, float t, const GrowthParams& p);

// year * 365 + month start + day of sample s (0-based).
int SampleDayCount(const LfqData& data, int s);
// The day counts of all samples, less the first sample's.
std::vector<int> SampleDays(const LfqData& data);

// Lengths and day positions (days from the first sample) of up to 12 cohorts of up to 37
// points. Cohort 0 passes through the starting point; the others are shifted by whole years.
struct CurveTable {
    int cohorts = 0;
    std::array<int, kMaxCohorts> points{};
    std::array<std::array<float, kMaxCohortPoints>, kMaxCohorts> length{};
    std::array<std::array<float, kMaxCohortPoints>, kMaxCohorts> day{};
};

// Fills the table for parameters p with the starting point (p.ss sample number from 1, p.sl).
CurveTable ComputePoints(const LfqData& data, const GrowthParams& p);

// The restructured points of each class and sample, [c][s] as LfqData::freq.
std::vector<std::vector<double>> RestructureData(const LfqData& data);

// Where things land on the plot.
struct PlotLayout {
    double zoom = 1;            // ZoomFactor
    double windowStartDay = 0;  // first day shown at the left end of the time axis
    double xPerDay = 0;
    double yPerClass = 0;
    double firstLower = 0;  // lower limit of the first class
    double classInterval = 1;
    int classes = 0;

    double X(double day) const { return kTimeAxisLeft + (day - windowStartDay) * xPerDay; }
    // Lengths in class units from the first lower limit.
    double Y(double length) const {
        return kTimeAxisY - yPerClass * (length - firstLower) / classInterval;
    }
};

struct HistoOptions {
    bool restructured = false;
    bool solid = true;
    bool displayAll = false;
    double scrollDay = 0;  // the scroll bar's value: first day of the window
    Colour barColour = Rgb(0, 0, 255);
};

// The scroll bar's largest value in days (0 when everything fits).
int ScrollRangeDays(const LfqData& data);
// Zoom factor that fits the whole time axis (at least 1).
double DisplayAllZoom(const LfqData& data);
// Tick step of the length axis in classes: 1 below 10 classes, 2 to 30, 5 to 80, 10 above.
int LengthTickStep(int classes);

// Draws the axes and bars (a fresh picture) and returns the layout for the curves.
// `restructured` holds RestructureData's table when options.restructured is on.
PlotLayout PlotHisto(ChartCanvas& canvas, const LfqData& data, const HistoOptions& options,
                     const std::vector<std::vector<double>>* restructured = nullptr);
// Draws each cohort from point to point, clipped to the plot window.
void PlotCurve(ChartCanvas& canvas, const PlotLayout& layout, const CurveTable& table,
               Colour colour);

// The six parameter boxes as numbers (an empty box is 0), each nothing when its text is not a
// number. Kept in double until checked, as the checks compare the typed values.
struct CurveInputs {
    std::optional<double> loo, k, c, wp, ss, sl;
};
// The parameters to draw with, stored in 32 bits, when every check passed.
struct CurveCheck : Outcome {
    GrowthParams params;
};
// The checks before a curve is drawn, in order; the first that fails refuses with its notice.
CurveCheck CheckCurveInputs(const CurveInputs& in, const LfqData& data);

}  // namespace norvo
