#pragma once
// The stacked-bar picture of both VPAs on the percentage canvas: for each group a column of
// survivors (green, hatched), natural losses (magenta) and catches (yellow) against the
// population axis at x = 20, and the red curve of F against its own axis at x = 9. Also the
// legends and the reports.
#include <ctime>
#include <string>
#include <vector>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "data/lfq_data.h"
#include "data/sample_readers.h"
#include "stock/vpa_age.h"
#include "stock/vpa_length.h"

namespace norvo {

inline constexpr const char* kVpaFAxisTitle = "Fishing Mortality (F; /yr)";
inline constexpr const char* kVpaPopulationTitle = "Population (10^";
inline constexpr const char* kVpaLengthGroups = "Length groups";
inline constexpr const char* kVpaAgeGroups = "Age groups";
inline constexpr const char* kVpaLengthReportTitle = "Length-Structured VPA";
inline constexpr const char* kVpaAgeReportTitle = "Age-Structured VPA";

inline constexpr Colour kVpaSurvivors = kGreen;
inline constexpr Colour kVpaNaturalLosses = kMagenta;
inline constexpr Colour kVpaCatches = kYellow;

// What the picture needs, 1-based by group: n groups, the first `nUsed` with bars.
struct VpaBars {
    int n = 0, nUsed = 0;
    std::vector<float> C, N, F;
    std::vector<double> label;  // value written under a labelled group (lower limit, age)
    const char* xTitle = kVpaLengthGroups;
};
VpaBars BarsOf(const LengthVpaResult& r);
VpaBars BarsOf(const AgeVpaResult& r, const std::vector<float>& ages);

// The scales of a drawn picture, for reading a click back.
struct VpaScale {
    double w = 0;       // units per group
    double fScale = 0;  // units per unit of F
    double fTop = 0;
    double nScale = 0;  // units per 10^p of population
    int exponent = 0;
};
VpaScale DrawVpaBars(ChartCanvas& canvas, const VpaBars& bars);

// Legend entries of the two screens.
struct VpaLegend {
    const char* survivors;
    const char* losses;
    const char* catches;
    const char* mortality;
};
inline constexpr VpaLegend kLengthLegend = {"- survivors", "- nat. losses", "- catches",
                                            "- f. mortality"};
inline constexpr VpaLegend kAgeLegend = {"- survivors", "- natural losses", "- catches",
                                         "- fishing mortality"};
// Where a legend goes when the user has not moved it: top right of the frame.
inline constexpr UserPoint kVpaLegendHome = {72, 8};
void PutLegend(ChartCanvas& canvas, const VpaLegend& legend, UserPoint at);

// A click at (x, y) with "Modify terminal F from graph": the new terminal F (not below 0) and
// the number of plus-groups (n - Fix((x - 20) / w), not below 0).
struct TerminalPick {
    double ft = 0;
    int plusGroups = 0;
};
TerminalPick PickTerminal(const VpaScale& scale, int n, double x, double y);

ReportDescriptor LengthVpaReport(const LfqData& data, const LengthVpaOptions& options,
                                 const LengthVpaResult& r, std::time_t when = std::time(nullptr));
ReportDescriptor AgeVpaReport(const CaaData& data, const AgeVpaOptions& options,
                              const AgeVpaResult& r, std::time_t when = std::time(nullptr));

}  // namespace norvo
