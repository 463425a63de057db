#pragma once
// The pictures and printed pages of the relative yield-per-recruit screens: the 2-D plot of
// Y'/R and B'/R over E with the reference points, the surfaces' titles, and the reports.
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "chart/surface3d.h"
#include "stock/relative_ypr.h"

namespace norvo {

inline constexpr const char* kYrKnifeCaption =
    "Yield per Recruit Analyses using Knife-edge Selection...";
inline constexpr const char* kYrSelectionCaption =
    "Yield per Recruit Analyses using Selection Ogive...";
inline constexpr const char* kYr2DCaption = "2D Y/R and B/R Plot...";
inline constexpr const char* kYrKnifeYieldTitle =
    "Relative Yield Per Recruit Analyses (Knife-edge Selection)";
inline constexpr const char* kYrKnifeBiomassTitle =
    "Relative Biomass Per Recruit Analyses (Knife-edge Selection)";
inline constexpr const char* kYrOgiveYieldTitle =
    "Relative Yield Per Recruit Analyses (Selection Ogive)";
inline constexpr const char* kYrOgiveBiomassTitle =
    "Relative Biomass Per Recruit Analyses (Selection Ogive)";
inline constexpr const char* kYrYieldLabel = "Y'/R :";
inline constexpr const char* kYrBiomassLabel = "B'/R :";
inline constexpr const char* kYrYieldAxis = "Yield/recruit";
inline constexpr const char* kYrBiomassAxis = "Biomass/recruit";
inline constexpr const char* kYrEAxis = "Exploitation ratio (E)";
inline constexpr const char* kYrLcLooAxis = "Lc/Loo";
inline constexpr const char* kYrL50LooAxis = "L50/Loo";
inline constexpr const char* kYr2DYieldTitle = "Relative Yield/ Recruit (Y'/ R)";
inline constexpr const char* kYr2DBiomassTitle = "Relative Biomass/ Recruit (B'/ R)";
inline constexpr const char* kYrKnife3DReportTitle =
    "Relative Yield/Recruit Analysis (Knife-edge Selection)";
inline constexpr const char* kYrKnife2DReportTitle = "Relative Yield/Recruit Analysis (Knife-edge)";
inline constexpr const char* kYrOgiveReportTitle =
    "Relative Yield/Recruit Analysis (Selection Ogive)";
inline constexpr const char* kYr2DHint =
    "To change the Lc/Loo value, enter a new value in the text box or move the slide bar "
    "(below) with the mouse.";
inline constexpr const char* kYr2DOgiveHint =
    "To change the L50/Loo value, enter a new value in the text box or move the slide bar "
    "(below) with the mouse.";

// What the 2-D plot shows.
struct YprPlotData {
    std::vector<CurvePoint> curveY, curveB;
    float yPrimeMax = 1;
    double e10 = 0, e50 = 0, eMax = 0;
    double yAtE10 = 0, bAtE50 = 0, yAtEmax = 0;
};

// The plot on the percentage canvas: E from x = 40 (55 per unit), Y' up from y = 85 on the axis
// at x = 40 (70 / top per unit), B' on the axis at x = 20 (70 per unit).
void DrawYprPlot(ChartCanvas& canvas, const YprPlotData& data);
// Positions on the plot.
double YprX(double e);
double YprYieldY(double y, float yPrimeMax);
double YprBiomassY(double b);

// The surface's style: titles by model and by what is shown.
SurfaceStyle YprSurfaceStyle(bool ogive, bool biomass);
// Rows of a surface as the renderer's grid (E along x, the length ratio along y).
SurfaceGrid YprSurfaceGrid(const std::vector<SurfaceRow>& rows);

// The 2-D report: title, date, the inputs and reference points in "#0.000", then Y'/R and
// B'/R by E, from 0.99 down to 0.10. `loo` adds the "Loo :" line of the ogive.
struct Ypr2DReportInput {
    std::string title;
    std::string ratioCaption;  // "Lc/Loo :" or "L50/Loo :"
    double ratio = 0, mk = 0;
    std::optional<double> loo;
    double eMax = 0, e10 = 0, e50 = 0;
    std::vector<YprRow> rows;
};
ReportDescriptor Ypr2DReport(const Ypr2DReportInput& in, std::time_t when = std::time(nullptr));
// The surface's page: title, date and M/K.
ReportDescriptor Ypr3DReport(const std::string& title, double mk,
                             std::time_t when = std::time(nullptr));

}  // namespace norvo
