#pragma once
// Two sample pictures, one of each kind of plot: a growth curve on the percentage canvas and a
// length-frequency histogram with a fitted normal curve on the axis engine. They show the
// drawing conventions and serve as a check of each output device.
#include <vector>

#include "chart/chart_canvas.h"
#include "chart/chart_plot.h"

namespace norvo {

// Growth curve L(t) = 100 (1 - exp(-0.3 t)), t = 0 .. 10, drawn in red on the percentage
// canvas: frame at x = 20, y = 85, y scale 70 / 110.
struct GrowthDemo {
    double linf = 100.0, k = 0.3, tMax = 10.0;
    double yTop = 110.0;  // rounded top of the length axis
    double xAt(double t) const;
    double yAt(double length) const;
    double lengthAt(double t) const;
};
void DrawPercentDemo(ChartCanvas& canvas, const GrowthDemo& demo = {});

// Frequencies of 20 classes of width 2 cm (yellow bars) with a red normal curve.
struct FrequencyDemo {
    float classWidth = 2.0f;
    std::vector<float> frequencies;
    float mean = 0, sd = 0, total = 0;
    std::vector<float> curveX, curveY;
};
FrequencyDemo MakeFrequencyDemo();
// Draws the demo; `plot` receives the engine's record for mapping checks.
void DrawEngineDemo(ChartCanvas& canvas, ChartPlot& plot, const FrequencyDemo& demo);

}  // namespace norvo
