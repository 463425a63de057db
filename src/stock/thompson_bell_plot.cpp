#include "stock/thompson_bell_plot.h"

#include <fmt/format.h>
#include <algorithm>
#include <cmath>

#include "base/format.h"
#include "chart/kind_a.h"

namespace norvo {

namespace {

constexpr Colour kCurve = Rgb(0, 0, 160);
constexpr double kLargestFFactor = 4.0;

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

const std::vector<double>& ThompsonBellColumn(const ThompsonBellTable& t, ThompsonBellQuantity q) {
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

double ThompsonBellX(double ffactor) {
    return PercentX(ffactor, (kFrameRight - kFrameLeft) / kLargestFFactor);
}

void DrawThompsonBellPlot(ChartCanvas& canvas, const ThompsonBellTable& t, ThompsonBellQuantity q,
                          bool cumulative) {
    BeginPercentCanvas(canvas);
    DrawPercentFrame(canvas);
    const std::vector<double>& v = ThompsonBellColumn(t, q);
    const int p = ThompsonBellPowerOf(t, q);
    const double largest = v.empty() ? 0.0 : *std::max_element(v.begin(), v.end());
    const double top = TopWholePlusOne(ThompsonBellShown(largest, p));
    const double yScale = PercentScaleY(top);

    for (int k = 0; k <= 8; ++k) {
        const double x = ThompsonBellX(k * 0.5);
        DrawXTick(canvas, x);
        DrawXLabel(canvas, x, Format(k * 0.5, kThompsonBellFFactorFormat));
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
            {ThompsonBellX(t.ffactor[i]), PercentY(ThompsonBellShown(v[i], p), yScale)});
    if (curve.size() < 2) return;
    canvas.SetPen(PenStyle::Solid, 2);
    canvas.Polyline(curve, kCurve);
    canvas.SetPen(PenStyle::Solid, 1);
    // The present effort: f-factor 1.
    for (size_t i = 0; i < curve.size(); ++i)
        if (std::fabs(t.ffactor[i] - 1.0) < 1e-9) DrawPointMark(canvas, curve[i], kCurve, true);
}

ReportDescriptor ThompsonBellReport(const ThompsonBellReportInput& in, std::time_t when) {
    const std::string sub =
        in.combination.empty() ? std::string(kThompsonBellCumulative) : "(" + in.combination + ")";
    ReportDescriptor r = MakeReport("frmOutTB", kThompsonBellReportTitle, sub, when);
    auto& data = r.addSection("Scenario", false);
    data.fields.push_back({"File: ", in.scenario});
    for (const auto& s : in.fleetStates) data.fields.push_back({"Fleet: ", s});

    const ThompsonBellTable& t = in.table;
    auto& table =
        r.addSection(fmt::format("{}    {}    {}    {}", kThompsonBellFFactor,
                                 ThompsonBellColumnTitle(kThompsonBellYield, t.pYield),
                                 ThompsonBellColumnTitle(kThompsonBellBiomass, t.pBiomass),
                                 ThompsonBellColumnTitle(kThompsonBellValue, t.pValue)),
                     true);
    const auto shown = [](double v, int p) {
        return Format(ThompsonBellShown(v, p), kThompsonBellResultFormat);
    };
    for (size_t i = 0; i < t.ffactor.size(); ++i)
        table.fields.push_back(
            {Format(t.ffactor[i], kThompsonBellFFactorFormat),
             fmt::format("{}    {}    {}", shown(t.yield[i], t.pYield),
                         shown(t.biomass[i], t.pBiomass), shown(t.value[i], t.pValue))});
    return r;
}

}  // namespace norvo
