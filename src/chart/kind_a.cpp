#include "chart/kind_a.h"

#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "chart/rotated_text.h"

namespace norvo {

void BeginPercentCanvas(ChartCanvas& canvas) {
    canvas.Scale(0, 0, 100, 100);
    // Clearing first drops the previous drawing, so that redrawing does not pile up.
    canvas.Clear();
    canvas.FilledBox(0, 0, 100, 100, kWhite);
    canvas.SetPen(PenStyle::Solid, 1);
}

void DrawPercentFrame(ChartCanvas& canvas, double top, Colour colour) {
    canvas.Line(kFrameLeft, kFrameBottom, kFrameRight, kFrameBottom, colour);
    canvas.Line(kFrameLeft, kFrameBottom, kFrameLeft, top, colour);
}

double PercentY(double value, double scale) {
    return CheckFinite(kFrameBottom - value * scale);
}

double PercentScaleY(double rangeTop, double frameTop) {
    return Div(kFrameBottom - frameTop, rangeTop);
}

double PercentX(double value, double scale) {
    return CheckFinite(kFrameLeft + value * scale);
}

void DrawXTick(ChartCanvas& canvas, double x, double length) {
    canvas.Line(x, kFrameBottom, x, kFrameBottom + length, kBlack);
}

void DrawYTick(ChartCanvas& canvas, double y, double length) {
    canvas.Line(kFrameLeft - length, y, kFrameLeft, y, kBlack);
}

void DrawXLabel(ChartCanvas& canvas, double x, const std::string& text, double below) {
    DrawRotatedText(canvas, text, 0, kKindALabelSize, x - 2.0, kFrameBottom + below);
}

void DrawYLabel(ChartCanvas& canvas, double y, const std::string& text, double lift) {
    // Placed by its estimated width, so a long label simply extends further to the left.
    const double width = canvas.PointsToUserX(EstimatedTextWidthPoints(kKindALabelSize, text));
    DrawRotatedText(canvas, text, 0, kKindALabelSize, kFrameLeft - 1.5 - width, y - lift);
}

void DrawYTitle(ChartCanvas& canvas, const std::string& text, double x, double y) {
    DrawRotatedText(canvas, text, 900, kKindALabelSize, x, y);
}

void DrawXTitle(ChartCanvas& canvas, const std::string& text, double x) {
    DrawRotatedText(canvas, text, 0, kKindALabelSize, x, kXTitleY);
}

double TopWholePlusOne(double largest) {
    return Int(largest) + 1.0;
}

double TopTimesOnePointOne(double largest) {
    return Int(CheckFinite(largest * 1.1) * 100.0) / 100.0;
}

std::string PowerOfTen::titleSuffix() const {
    return "(10^" + std::to_string(exponent) + ")";
}

PowerOfTen ReduceByPowerOfTen(double largest) {
    PowerOfTen p;
    double v = CheckFinite(largest);
    while (v > 10.0) {
        v /= 10.0;
        ++p.exponent;
    }
    p.reduced = v;
    p.top = Int(v) + 1.0;
    return p;
}

std::vector<double> FixedStepTicks(double top, int steps, double tolerance) {
    std::vector<double> ticks;
    if (steps < 1 || !(top > 0.0)) return {0.0};
    const double step = Div(top, steps);
    const double end = top + tolerance;
    double v = 0.0;
    // The loop accumulates like a classic For ... Step loop; the bound keeps it finite.
    for (int i = 0; v <= end && i <= steps + 1000; ++i) {
        ticks.push_back(v);
        v += step;
    }
    return ticks;
}

double CategoryWidth(int groups) {
    return Div(75.0, groups);
}

double CategoryLeft(int index, int groups) {
    return kFrameLeft + index * CategoryWidth(groups);
}

int LengthLabelEvery(int groups) {
    if (groups <= 15) return 2;
    if (groups <= 26) return 5;
    if (groups <= 50) return 10;
    return 25;
}

void DrawPlotTitle(ChartCanvas& canvas, const std::string& text, double y) {
    FontStyle font;
    font.sizePoints = 10;
    font.bold = true;
    canvas.SetFont(font);
    // Estimated width in points, over 8 points per canvas unit at the nominal size.
    const double width =
        EstimatedTextWidthPoints(font.sizePoints, text) * 96.0 / 72.0 * 100.0 / canvas.widthPx();
    canvas.MoveTo(57.5 - width / 2, y);
    canvas.Print(text);
    FontStyle plain;
    plain.sizePoints = kKindALabelSize;
    canvas.SetFont(plain);
}

void DrawPointMark(ChartCanvas& canvas, UserPoint p, Colour colour, bool filled) {
    if (filled) canvas.FilledBox(p.x - 0.7, p.y - 0.7, p.x + 0.7, p.y + 0.7, colour);
    canvas.Circle(p.x, p.y, 1.1, colour);
}

bool ClipToFrame(UserPoint& p1, UserPoint& p2, double top) {
    // Liang-Barsky: the segment as p1 + t (p2 - p1), t in 0..1, cut by each of the four edges.
    const double dx = p2.x - p1.x, dy = p2.y - p1.y;
    double t0 = 0, t1 = 1;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {p1.x - kFrameLeft, kFrameRight - p1.x, p1.y - top, kFrameBottom - p1.y};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0) return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0) {
            if (t > t1) return false;
            if (t > t0) t0 = t;
        } else {
            if (t < t0) return false;
            if (t < t1) t1 = t;
        }
    }
    const UserPoint a{p1.x + t0 * dx, p1.y + t0 * dy}, b{p1.x + t1 * dx, p1.y + t1 * dy};
    p1 = a;
    p2 = b;
    return true;
}

}  // namespace norvo
