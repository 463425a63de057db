#include "chart/demo_plots.h"

#include <cmath>
#include <numbers>

#include "base/format.h"
#include "chart/kind_a.h"
#include "chart/rotated_text.h"

namespace norvo {

double GrowthDemo::lengthAt(double t) const {
    return linf * (1.0 - std::exp(-k * t));
}

double GrowthDemo::xAt(double t) const {
    return kFrameLeft + t * (kFrameRight - kFrameLeft) / tMax;
}

double GrowthDemo::yAt(double length) const {
    return PercentY(length, PercentScaleY(yTop));
}

void DrawPercentDemo(ChartCanvas& canvas, const GrowthDemo& demo) {
    BeginPercentCanvas(canvas);
    DrawPercentFrame(canvas);
    for (double v : FixedStepTicks(demo.yTop, 5, 0.05)) {
        const double y = demo.yAt(v);
        DrawYTick(canvas, y);
        DrawYLabel(canvas, y, Format(v, "0"));
    }
    for (int t = 0; t <= static_cast<int>(demo.tMax); t += 2) {
        const double x = demo.xAt(t);
        DrawXTick(canvas, x);
        DrawXLabel(canvas, x, Format(t, "0"));
    }
    DrawYTitle(canvas, "Length (cm)");
    DrawXTitle(canvas, "Relative age (years)", 48.0);
    DrawRotatedText(canvas, "Growth curve", 0, 10.0, 45.0, 3.0);
    std::vector<UserPoint> curve;
    for (int i = 0; i <= 100; ++i) {
        const double t = demo.tMax * i / 100.0;
        curve.push_back({demo.xAt(t), demo.yAt(demo.lengthAt(t))});
    }
    canvas.SetPen(PenStyle::Solid, 2);
    canvas.Polyline(curve, kRed);
    canvas.SetPen(PenStyle::Solid, 1);
}

FrequencyDemo MakeFrequencyDemo() {
    FrequencyDemo d;
    d.mean = 21.0f;
    d.sd = 5.0f;
    d.total = 600.0f;
    const int classes = 20;
    auto density = [&](double x) {
        const double z = (x - d.mean) / d.sd;
        return d.total * d.classWidth * std::exp(-0.5 * z * z) /
               (d.sd * std::sqrt(2 * std::numbers::pi));
    };
    for (int i = 0; i < classes; ++i) {
        const double mid = (i + 0.5) * d.classWidth;
        // A slightly irregular sample around the curve.
        d.frequencies.push_back(
            static_cast<float>(std::round(density(mid) * (1.0 + 0.15 * std::sin(i * 1.7)))));
    }
    for (int i = 0; i <= 80; ++i) {
        const double x = i * classes * d.classWidth / 80.0;
        d.curveX.push_back(static_cast<float>(x));
        d.curveY.push_back(static_cast<float>(density(x)));
    }
    return d;
}

void DrawEngineDemo(ChartCanvas& canvas, ChartPlot& plot, const FrequencyDemo& demo) {
    float largest = 0;
    for (float f : demo.frequencies) largest = std::max(largest, f);
    ChartFrequencyPlot(plot, demo.classWidth, static_cast<int>(demo.frequencies.size()), largest,
                       "cm");
    ChartDraw(canvas, plot);
    std::vector<float> mids;
    for (std::size_t i = 0; i < demo.frequencies.size(); ++i) {
        mids.push_back(static_cast<float>((i + 0.5) * demo.classWidth));
    }
    ChartBarStyle bars;
    bars.fillColour = kYellow;
    bars.barWidth = demo.classWidth;
    ChartDrawBars(canvas, plot, bars, mids, demo.frequencies);
    ChartDrawCurve(canvas, plot, {PenStyle::Solid, 2, kRed}, demo.curveX, demo.curveY);
}

}  // namespace norvo
