#pragma once
// Pictures and reports of the growth-increment methods. The plots share one frame on the
// 0..100 canvas: data x maps into 20..85, data y into 70 (bottom) up to 5 (top). Each plot
// returns where its points were drawn and the row each one belongs to, for picking by mouse.
#include <ctime>
#include <string>
#include <vector>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "data/lfq_data.h"
#include "data/sample_readers.h"
#include "growth/fabens.h"
#include "growth/gulland_holt.h"
#include "growth/munro.h"

namespace norvo {

inline constexpr const char* kRateAxisTitle = "Growth rate (dL/dt)";
inline constexpr const char* kDeviationAxisTitle = "% Deviation";
inline constexpr const char* kRelativeAgeTitle = "Relative age (year-to)";
inline constexpr const char* kWinterPointLabel = "(Winter Point)";
inline constexpr const char* kCvAxisTitle = "Coefficient of variation of K";
inline constexpr const char* kLooAxisTitle = "Loo";
inline constexpr const char* kMonthNames[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
inline constexpr double kPickDistance = 1.0;

// "Mean length (cm)", "Length (cm)".
std::string MeanLengthTitle(const std::string& unit);
std::string LengthTitle(const std::string& unit);

// The data ranges of a plot and their mapping onto the canvas frame.
struct IncrementFrame {
    double xMin = 0, xMax = 1, yMin = 0, yMax = 1;
    static constexpr double kLeft = 20, kRight = 85, kTop = 5, kBottom = 70;
    double toX(double x) const { return kLeft + (x - xMin) / (xMax - xMin) * (kRight - kLeft); }
    double toY(double y) const { return kBottom - (y - yMin) / (yMax - yMin) * (kBottom - kTop); }
    double fromX(double x) const { return xMin + (x - kLeft) / (kRight - kLeft) * (xMax - xMin); }
    double fromY(double y) const { return yMin + (kBottom - y) / (kBottom - kTop) * (yMax - yMin); }
    bool inside(double x, double y) const {
        return x >= kLeft && x <= kRight && y >= kTop && y <= kBottom;
    }
};

// What a plot drew: its frame and the canvas position of each pickable point with its row.
struct PickablePlot {
    IncrementFrame frame;
    std::vector<UserPoint> points;
    std::vector<int> rowOf;
    bool drawn = false;
};
// Index of the point nearest (x, y) when closer than 1 canvas unit, or -1.
int NearestPoint(const std::vector<UserPoint>& points, double x, double y,
                 double maxDistance = kPickDistance);

// Growth rate per day and mean length of every row (rows without days at liberty give 0), the
// rate taken as its absolute value when `absolute`.
struct RatePoints {
    std::vector<float> meanLength, rate;
};
RatePoints RowRates(const std::vector<GinRow>& rows, bool absolute);

// The rate plot: every row as a point, filled when selected and hollow when not, and the line
// a + b x across the frame when `withLine`.
PickablePlot DrawRatePlot(ChartCanvas& canvas, const RatePoints& points,
                          const std::vector<bool>& selected, bool withLine, double a, double b,
                          const std::string& unit, const std::string& title);
// The seasonal plot: deviations by day of the year with the month names, the fitted curve and
// the winter point, and the text line.
void DrawSeasonalPlot(ChartCanvas& canvas, const SeasonalFit& fit);
// The relative-age plot: the curve Loo (1 - exp(-K t)) labelled "Loo", each row below Loo as a
// line between its two points at -ln(1 - L / Loo) / K. Nothing but the frame when Loo or K is
// not above 0.
PickablePlot DrawRelativeAgePlot(ChartCanvas& canvas, const std::vector<GinRow>& rows,
                                 const std::vector<bool>& selected, float loo, float k,
                                 const std::string& unit, const std::string& title);
// The CV of the search's passes against Loo, the stopping pass marked.
void DrawMunroCvPlot(ChartCanvas& canvas, const MunroResult& run);

// Reports.
ReportDescriptor GullandHoltReport(const LfqData& header, const GullandHoltResult& run,
                                   std::time_t when = std::time(nullptr));
ReportDescriptor MunroReport(const LfqData& header, const MunroResult& run,
                             std::time_t when = std::time(nullptr));
ReportDescriptor FabensReport(const LfqData& header, const FabensResult& run,
                              std::time_t when = std::time(nullptr));

}  // namespace norvo
