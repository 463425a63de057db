#include "stock/thompson_bell_plot.h"

#include <algorithm>

#include <fmt/format.h>

#include "base/format.h"
#include "chart/kind_a.h"

namespace norvo {

namespace {

constexpr Colour kCurve = Rgb(0, 0, 160);
constexpr double kLargestFFactor = 4.0;

const std::vector<double>& Column(const ThompsonBellTable& t, ThompsonBellQuantity q) {
    switch (q) {
        case ThompsonBellQuantity::Yield:
            return t.yield;
        case ThompsonBellQuantity::Biomass:
            return t.biomass;
        case ThompsonBellQuantity::Value:
            break;
    }
    return t.value;
}

}  // namespace

const char* ThompsonBellQuantityName(ThompsonBellQuantity q) {
    switch (q) {
        case ThompsonBellQuantity::Yield:
            return kThompsonBellYield;
        case ThompsonBellQuantity::Biomass:
            return kThompsonBellBiomass;
        case ThompsonBellQuantity::Value:
            break;
    }
    return kThompsonBellValue;
}

int ThompsonBellPowerOf(const ThompsonBellTable& t, ThompsonBellQuantity q) {
    switch (q) {
        case ThompsonBellQuantity::Yield:
            return t.pYield;
        case ThompsonBellQuantity::Biomass:
            return t.pBiomass;
        case ThompsonBellQuantity::Value:
            break;
    }
    return t.pValue;
}

std::string ThompsonBellAxisTitle(ThompsonBellQuantity q, int p, bool cumulative) {
    const std::string name = ThompsonBellQuantityName(q);
    if (cumulative && p == 1 && q != ThompsonBellQuantity::Yield) return name + " x 10";
    if (!cumulative && p == 0) return name;
    return ThompsonBellColumnTitle(name, p);
}

void DrawThompsonBellPlot(ChartCanvas& canvas, const ThompsonBellTable& t, ThompsonBellQuantity q,
                          bool cumulative) {
    BeginPercentCanvas(canvas);
    DrawPercentFrame(canvas);
    const std::vector<double>& v = Column(t, q);
    const int p = ThompsonBellPowerOf(t, q);
    const double largest = v.empty() ? 0.0 : *std::max_element(v.begin(), v.end());
    const double top = TopWholePlusOne(ThompsonBellShown(largest, p));
    const double yScale = PercentScaleY(top);
    const double xScale = (kFrameRight - kFrameLeft) / kLargestFFactor;

    for (int k = 0; k <= 8; ++k) {
        const double x = PercentX(k * 0.5, xScale);
        DrawXTick(canvas, x);
        DrawXLabel(canvas, x, Format(k * 0.5, "0.0"));
    }
    for (double tick : FixedStepTicks(top)) {
        const double y = PercentY(tick, yScale);
        DrawYTick(canvas, y);
        DrawYLabel(canvas, y, Format(tick, "0.0"));
    }
    DrawXTitle(canvas, kThompsonBellFFactor);
    DrawYTitle(canvas, ThompsonBellAxisTitle(q, p, cumulative));
    DrawPlotTitle(canvas,
                  cumulative
                      ? fmt::format("{} ({})", ThompsonBellQuantityName(q), kThompsonBellCumulative)
                      : std::string(ThompsonBellQuantityName(q)),
                  6);

    std::vector<UserPoint> curve;
    for (size_t i = 0; i < v.size() && i < t.ffactor.size(); ++i)
        curve.push_back(
            {PercentX(t.ffactor[i], xScale), PercentY(ThompsonBellShown(v[i], p), yScale)});
    if (curve.size() < 2) return;
    canvas.SetPen(PenStyle::Solid, 2);
    canvas.Polyline(curve, kCurve);
    canvas.SetPen(PenStyle::Solid, 1);
}

}  // namespace norvo
