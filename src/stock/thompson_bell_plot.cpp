#include "stock/thompson_bell_plot.h"

#include <fmt/format.h>
#include <algorithm>
#include <array>
#include <cmath>

#include "base/format.h"
#include "chart/kind_a.h"

namespace norvo {

namespace {

constexpr double kMaxFFactor = 4.0;
constexpr double kPlotTitleY = 4.0;
constexpr std::array<Colour, 3> kCurveColours = {Rgb(0, 0, 192), Rgb(0, 128, 0), Rgb(192, 0, 0)};

}  // namespace

const char* ThompsonBellName(ThompsonBellQuantity q) {
    switch (q) {
        case ThompsonBellQuantity::Biomass:
            return kThompsonBellBiomass;
        case ThompsonBellQuantity::Value:
            return kThompsonBellValue;
        case ThompsonBellQuantity::Yield:
            break;
    }
    return kThompsonBellYield;
}

const std::vector<double>& ThompsonBellColumn(const ThompsonBellTable& t, ThompsonBellQuantity q) {
    switch (q) {
        case ThompsonBellQuantity::Biomass:
            return t.biomass;
        case ThompsonBellQuantity::Value:
            return t.value;
        case ThompsonBellQuantity::Yield:
            break;
    }
    return t.yield;
}

int ThompsonBellPowerOf(const ThompsonBellTable& t, ThompsonBellQuantity q) {
    switch (q) {
        case ThompsonBellQuantity::Biomass:
            return t.pBiomass;
        case ThompsonBellQuantity::Value:
            return t.pValue;
        case ThompsonBellQuantity::Yield:
            break;
    }
    return t.pYield;
}

std::string ThompsonBellAxisTitle(ThompsonBellQuantity q, int p, bool cumulative) {
    if (cumulative && p == 1 && q != ThompsonBellQuantity::Yield)
        return fmt::format("{} x 10", ThompsonBellName(q));
    return ThompsonBellColumnTitle(ThompsonBellName(q), p);
}

double ThompsonBellX(double ffactor) {
    return kFrameLeft + ffactor * (kFrameRight - kFrameLeft) / kMaxFFactor;
}

void DrawThompsonBellPlot(ChartCanvas& canvas, const ThompsonBellTable& t, ThompsonBellQuantity q,
                          bool cumulative) {
    BeginPercentCanvas(canvas);
    DrawPlotTitle(canvas, ThompsonBellName(q), kPlotTitleY);
    DrawPercentFrame(canvas);

    // f-factor 0 to 4: a tick every 0.5, a label every 1.
    for (int k = 0; k <= 8; ++k) {
        const double x = ThompsonBellX(k * 0.5);
        DrawXTick(canvas, x, k % 2 == 0 ? 2.0 : 1.0);
        if (k % 2 == 0) DrawXLabel(canvas, x, Format(k * 0.5, kThompsonBellFFactorFormat), 3.0);
    }
    DrawXTitle(canvas, kThompsonBellFFactor, 52.0);

    const auto& column = ThompsonBellColumn(t, q);
    const int p = ThompsonBellPowerOf(t, q);
    double largest = 0;
    for (const double v : column) largest = std::max(largest, ThompsonBellShown(v, p));
    // The axis tops at the next whole number above the largest shown value.
    const double top = std::floor(largest) + 1.0;
    const double scale = PercentScaleY(top);
    for (const double v : FixedStepTicks(top)) {
        const double y = PercentY(v, scale);
        DrawYTick(canvas, y);
        DrawYLabel(canvas, y, Format(v, "0.0"));
    }
    DrawYTitle(canvas, ThompsonBellAxisTitle(q, p, cumulative), 2.0, 75.0);

    const std::size_t n = std::min(column.size(), t.ffactor.size());
    if (n == 0) return;
    std::vector<UserPoint> curve;
    curve.reserve(n);
    for (std::size_t i = 0; i < n; ++i)
        curve.push_back(
            {ThompsonBellX(t.ffactor[i]), PercentY(ThompsonBellShown(column[i], p), scale)});
    const Colour colour = kCurveColours[static_cast<std::size_t>(q)];
    canvas.SetPen(PenStyle::Solid, 2);
    canvas.Polyline(curve, colour);
    canvas.SetPen(PenStyle::Solid, 1);
    // The present effort: f-factor 1.
    for (std::size_t i = 0; i < n; ++i)
        if (std::fabs(t.ffactor[i] - 1.0) < 1e-9) DrawPointMark(canvas, curve[i], colour, true);
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
    for (std::size_t i = 0; i < t.ffactor.size(); ++i)
        table.fields.push_back(
            {Format(t.ffactor[i], kThompsonBellFFactorFormat),
             fmt::format("{}    {}    {}", shown(t.yield[i], t.pYield),
                         shown(t.biomass[i], t.pBiomass), shown(t.value[i], t.pValue))});
    return r;
}

}  // namespace norvo
