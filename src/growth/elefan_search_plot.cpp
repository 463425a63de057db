#include "growth/elefan_search_plot.h"

#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "base/format.h"
#include "chart/kind_a.h"
#include "chart/rotated_text.h"

namespace norvo {

namespace {

// 75 units for the two decades from K = 0.1 to K = 10.
double KScanUnitsPerDecade() {
    return 75.0 / std::fabs(std::log10(0.1) - 1.0);
}

constexpr double kAxisY = 70.0;  // score 0
constexpr double kLabelSize = 8.0;
constexpr double kPhiSize = 7.0;

}  // namespace

double KScanX(double k) {
    return Log10(k) * KScanUnitsPerDecade() + 57.5;
}

double KScanY(double rn) {
    return 70.0 - 65.0 * rn;
}

void DrawKScanFrame(ChartCanvas& canvas, float loo) {
    BeginPercentCanvas(canvas);
    // Score axis: 0 to 1 by 0.1, with light grid lines across the plot.
    for (int i = 0; i <= 10; ++i) {
        const double y = KScanY(i / 10.0);
        if (i > 0) canvas.Line(22, y, kFrameRight, y, kKScanGridColour);
        canvas.Line(kFrameLeft - 1, y, kFrameLeft, y, kBlack);
        const std::string text = Format(i / 10.0, "0.0");
        const double width = canvas.PointsToUserX(EstimatedTextWidthPoints(kLabelSize, text));
        DrawRotatedText(canvas, text, 0, kLabelSize, kFrameLeft - 1.5 - width, y - 1.5);
    }
    canvas.Line(kFrameLeft, kAxisY, kFrameLeft, KScanY(1.0), kBlack);
    canvas.Line(kFrameLeft, kAxisY, kFrameRight, kAxisY, kBlack);
    DrawRotatedText(canvas, kKScanYTitle, 900, kLabelSize, 5, 52);

    // K axis: ticks 0.1 to 1 by 0.1, then by 1 to 10; labels at 0.1, 0.5, 1, 5 and 10; the
    // growth performance index of each tick below it.
    const double logLoo2 = loo > 0 ? 2 * Log10(loo) : 0;
    auto tick = [&](double k) {
        const double x = KScanX(k);
        canvas.Line(x, kAxisY, x, kAxisY + 1, kBlack);
        const int tenths = static_cast<int>(std::lround(k * 10));
        if (tenths == 1 || tenths == 5 || tenths == 10 || tenths == 50 || tenths == 100) {
            const std::string text = Format(k, "0.0");
            const double width = canvas.PointsToUserX(EstimatedTextWidthPoints(kLabelSize, text));
            DrawRotatedText(canvas, text, 0, kLabelSize, x - width / 2, kAxisY + 1.5);
        }
        if (loo > 0) {
            const double phi = Int((Log10(k) + logLoo2) * 10) / 10;
            DrawRotatedText(canvas, Format(phi, "0.00"), 900, kPhiSize, x - 1, kAxisY + 14.5);
        }
    };
    for (int i = 1; i <= 10; ++i) tick(i / 10.0);
    for (int i = 2; i <= 10; ++i) tick(i);
    const double titleX = 57.5 - canvas.PointsToUserX(EstimatedTextWidthPoints(
                                     kLabelSize, std::string(kKScanXTitle).size())) /
                                     2;
    DrawRotatedText(canvas, kKScanXTitle, 0, kLabelSize, titleX, kAxisY + 4.5);
    const double phiTitleX = 57.5 - canvas.PointsToUserX(EstimatedTextWidthPoints(
                                        kLabelSize, std::string(kKScanPhiTitle).size() - 1)) /
                                        2;
    DrawRotatedText(canvas, kKScanPhiTitle, 0, kLabelSize, phiTitleX, kAxisY + 17);
}

namespace {

// Joins consecutive points right of the frame's left edge; points left of it are not drawn.
void DrawScoreLine(ChartCanvas& canvas, const std::vector<UserPoint>& points, Colour colour) {
    std::vector<UserPoint> run;
    auto flush = [&] {
        if (run.size() > 1) canvas.Polyline(run, colour);
        run.clear();
    };
    for (const auto& p : points) {
        if (p.x > kFrameLeft) {
            run.push_back(p);
        } else {
            flush();
        }
    }
    flush();
}

}  // namespace

void DrawKScanLine(ChartCanvas& canvas, const KScanTable& table, int columns, double scale) {
    std::vector<UserPoint> points;
    for (int c = 1; c <= columns && c < kKScanColumns; ++c)
        if (table[2][c] > 0) points.push_back({KScanX(table[2][c]), KScanY(table[1][c] / scale)});
    canvas.SetPen(PenStyle::Solid, 1);
    DrawScoreLine(canvas, points, kRed);
}

void DrawKScanTrend(ChartCanvas& canvas, const KScanTable& table, int w, double scale) {
    std::vector<UserPoint> points;
    for (int i = 1; i <= kKScanSmoothLength; ++i) {
        if (!(w - 3 < i + 1 && i + 1 < kKScanSmoothLength - w)) continue;
        if (table[2][i] > 0) points.push_back({KScanX(table[2][i]), KScanY(table[3][i] / scale)});
    }
    canvas.SetPen(PenStyle::Solid, 2);
    DrawScoreLine(canvas, points, kKScanTrendColour);
    canvas.SetPen(PenStyle::Solid, 1);
}

void DrawSurfaceHeatMap(ChartCanvas& canvas, const std::vector<float>& kValues,
                        const std::vector<float>& looValues, const std::vector<float>& grid,
                        float min, float max, const std::string& title) {
    BeginPercentCanvas(canvas);
    const int rows = static_cast<int>(kValues.size());
    const int cols = static_cast<int>(looValues.size());
    if (rows == 0 || cols == 0) return;
    const double top = 10, bottom = kFrameBottom;
    const double cellW = (kFrameRight - kFrameLeft) / cols;
    const double cellH = (bottom - top) / rows;
    for (int i = 0; i < rows; ++i) {
        for (int j = 0; j < cols; ++j) {
            const Colour c =
                BandColour(SurfaceBandOf(grid[static_cast<size_t>(i) * cols + j], min, max));
            const double x = kFrameLeft + j * cellW;
            const double y = bottom - (i + 1) * cellH;  // K grows upwards
            canvas.FilledBox(x, y, x + cellW, y + cellH, c);
        }
    }
    canvas.Box(kFrameLeft, top, kFrameRight, bottom, kBlack);
    // Five labels along each axis.
    for (int t = 0; t <= 4; ++t) {
        const int j = t * (cols - 1) / 4;
        const double x = kFrameLeft + (j + 0.5) * cellW;
        canvas.Line(x, bottom, x, bottom + 1, kBlack);
        const std::string lt = Format(looValues[j], "0.0");
        DrawRotatedText(canvas, lt, 0, kLabelSize,
                        x - canvas.PointsToUserX(EstimatedTextWidthPoints(kLabelSize, lt)) / 2,
                        bottom + 1.5);
        const int i = t * (rows - 1) / 4;
        const double y = bottom - (i + 0.5) * cellH;
        canvas.Line(kFrameLeft - 1, y, kFrameLeft, y, kBlack);
        const std::string kt = Format(kValues[i], "0.00");
        DrawRotatedText(
            canvas, kt, 0, kLabelSize,
            kFrameLeft - 1.5 - canvas.PointsToUserX(EstimatedTextWidthPoints(kLabelSize, kt)),
            y - 1.5);
    }
    DrawRotatedText(canvas, kHeatMapKTitle, 900, kLabelSize, 5, 55);
    DrawRotatedText(canvas, kHeatMapLooTitle, 0, kLabelSize, 56, 92);
    DrawRotatedText(canvas, title, 0, kLabelSize, kFrameLeft, 3);
}

void DrawSurfaceHeatMap(ChartCanvas& canvas, const SurfaceResult& s) {
    std::vector<float> k, loo, grid;
    for (int i = 0; i < kSurfaceSize; ++i) {
        k.push_back(static_cast<float>(s.kHeadings[i]));
        loo.push_back(static_cast<float>(s.looHeadings[i]));
        for (int j = 0; j < kSurfaceSize; ++j) grid.push_back(s.grid[i][j]);
    }
    DrawSurfaceHeatMap(canvas, k, loo, grid, s.min, s.max,
                       std::string(kHeatMapTitle) + " " + Format(s.min, "0.000") + " to " +
                           Format(s.max, "0.000"));
}

void DrawSurfaceHeatMap(ChartCanvas& canvas, const FineSurface& s) {
    DrawSurfaceHeatMap(canvas, s.k, s.loo, s.grid, s.min, s.max,
                       std::string(kHeatMapTitle) + " " + std::to_string(s.n) + " x " +
                           std::to_string(s.n) + ", " + Format(s.min, "0.000") + " to " +
                           Format(s.max, "0.000"));
}

}  // namespace norvo
