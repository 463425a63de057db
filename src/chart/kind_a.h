#pragma once
// Conventions of the plots drawn on the percentage canvas: a 100 x 100 user scale with the
// frame's corner at x = 20, y = 85, and the rounding rules that those plots share.
#include <string>
#include <vector>

#include "chart/chart_canvas.h"

namespace norvo {

inline constexpr double kFrameLeft = 20.0;
inline constexpr double kFrameRight = 95.0;
inline constexpr double kFrameBottom = 85.0;
inline constexpr double kFrameTopTall = 8.0;  // available height 77
inline constexpr double kFrameTop = 15.0;     // available height 70
inline constexpr double kXTitleY = 92.0;
inline constexpr double kKindALabelSize = 8.0;  // points, labels and titles

// Scale(0, 0, 100, 100), a cleared white page and pen width 1.
void BeginPercentCanvas(ChartCanvas& canvas);
// The customary frame: bottom axis y = 85 from x = 20 to 95, left axis x = 20 from 85 to `top`.
void DrawPercentFrame(ChartCanvas& canvas, double top = kFrameTop, Colour colour = kBlack);
// The part of the segment p1-p2 inside the frame (x kFrameLeft..kFrameRight, y top..
// kFrameBottom); false when none of it is.
bool ClipToFrame(UserPoint& p1, UserPoint& p2, double top = kFrameTop);

// Maps a value to y on a vertical axis: 85 - value x scale, with scale = available / top.
double PercentY(double value, double scale);
// Scale of a vertical axis: available height (85 - top of frame) / rounded top of range.
double PercentScaleY(double rangeTop, double frameTop = kFrameTop);
// The same for a horizontal axis from x = 20 over `width` units (75 as a rule).
double PercentX(double value, double scale);

// Tick marks and labels.
void DrawXTick(ChartCanvas& canvas, double x, double length = 1.0);
void DrawYTick(ChartCanvas& canvas, double y, double length = 1.0);
// A bottom label: at the tick's x minus 2 units, `below` units under the axis.
void DrawXLabel(ChartCanvas& canvas, double x, const std::string& text, double below = 2.0);
// A left label: right-aligned by estimate against x = 20, at the tick's y minus `lift` units.
void DrawYLabel(ChartCanvas& canvas, double y, const std::string& text, double lift = 2.0);
// Y title upwards at angle 900 near the left edge; x title at y = 92.
void DrawYTitle(ChartCanvas& canvas, const std::string& text, double x = 2.0, double y = 70.0);
void DrawXTitle(ChartCanvas& canvas, const std::string& text, double x = 50.0);
// A bold 10-point title centred over the frame (x 20..95) at height y; the label font after.
void DrawPlotTitle(ChartCanvas& canvas, const std::string& text, double y);
// A point: a circle, with a filled box inside when `filled`.
void DrawPointMark(ChartCanvas& canvas, UserPoint p, Colour colour, bool filled);

// Top of a range: whole part of the largest value plus 1 (for values such as F).
double TopWholePlusOne(double largest);
// Top of a range for yield curves: largest x 1.1, rounded down to two decimals.
double TopTimesOnePointOne(double largest);

// A population-like axis: the largest value divided by 10 while above 10.
struct PowerOfTen {
    int exponent = 0;
    double reduced = 0;  // largest / 10^exponent
    double top = 1;      // whole part of reduced, plus 1
    // "(10^e)", the suffix of the axis title.
    std::string titleSuffix() const;
};
PowerOfTen ReduceByPowerOfTen(double largest);

// Tick values of a fixed number of steps from 0 to `top`, the loop end widened by
// `tolerance` so that the top tick survives rounding.
std::vector<double> FixedStepTicks(double top, int steps = 5, double tolerance = 0.05);

// Categories: each of n groups gets 75 / n units from x = 20.
double CategoryWidth(int groups);
double CategoryLeft(int index, int groups);  // index from 0

// Every how many length groups a label is written: 2, 5, 10 or 25.
int LengthLabelEvery(int groups);

}  // namespace norvo
