#pragma once
// Pictures of the ELEFAN I searches on the percentage canvas: the K-scan (score against a log K
// axis, with the growth performance index under the ticks), its trend line, and a heat map of a
// response surface.
#include <string>
#include <vector>

#include "chart/chart_canvas.h"
#include "growth/elefan_search.h"

namespace norvo {

inline constexpr const char* kKScanYTitle = "Score function";
inline constexpr const char* kKScanXTitle = "Growth constant K (/year)";
inline constexpr const char* kKScanPhiTitle = "Growth performance index (ø')";
inline constexpr const char* kHeatMapKTitle = "K (/year)";
inline constexpr const char* kHeatMapLooTitle = "Loo";
inline constexpr const char* kHeatMapTitle = "Response surface";
inline constexpr Colour kKScanGridColour = 0xE0E0E0;
inline constexpr Colour kKScanTrendColour = 0x0000FF;

// x of K on the log axis (K = 0.1 at 20, K = 10 at 95) and y of a score (0 at 70, 1 at 5).
double KScanX(double k);
double KScanY(double rn);

// The empty K-scan frame: score axis with grid lines, K axis with its ticks, labels and the
// growth performance index of `loo` under each tick.
void DrawKScanFrame(ChartCanvas& canvas, float loo);
// The red score line through columns 1..columns of row 1, drawn only right of x = 20. Scores
// are divided by `scale` first, for a score that is not bounded by 1.
void DrawKScanLine(ChartCanvas& canvas, const KScanTable& table, int columns, double scale = 1);
// The blue trend line through row 3 for the columns that a span of w has full windows for,
// divided by `scale` as the score line.
void DrawKScanTrend(ChartCanvas& canvas, const KScanTable& table, int w, double scale = 1);

// A heat map of scores over K (rows, upwards) and Loo (columns, rightwards), each cell in the
// colour band of the surface table. `grid` is row-major, kValues.size() x looValues.size().
void DrawSurfaceHeatMap(ChartCanvas& canvas, const std::vector<float>& kValues,
                        const std::vector<float>& looValues, const std::vector<float>& grid,
                        float min, float max, const std::string& title);
void DrawSurfaceHeatMap(ChartCanvas& canvas, const SurfaceResult& surface);
void DrawSurfaceHeatMap(ChartCanvas& canvas, const FineSurface& surface);

}  // namespace norvo
