#include "stock/vpa_plot.h"

#include <algorithm>
#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "base/format.h"
#include "chart/kind_a.h"
#include "chart/rotated_text.h"

namespace norvo {

namespace {

constexpr double kTop = 8;  // both vertical axes run from y = 85 up to here
constexpr double kHeight = 77;
constexpr double kFAxisX = 9;
constexpr double kHatchStep = 1.5;

void Text(ChartCanvas& canvas, double x, double y, const std::string& text) {
    canvas.MoveTo(x, y);
    canvas.Print(text);
}

// Black diagonal lines over a box (x1 < x2, yTop < yBottom), clipped to it.
void Hatch(ChartCanvas& canvas, double x1, double yTop, double x2, double yBottom) {
    const double width = x2 - x1, height = yBottom - yTop;
    if (width <= 0 || height <= 0) return;
    // Lines x - y = const, walking the constant across the box.
    for (double s = -height + kHatchStep / 2; s < width; s += kHatchStep) {
        // Segment from the bottom edge (or left edge) up to the top edge (or right edge).
        double ax = x1 + std::max(s, 0.0), ay = yBottom - std::max(-s, 0.0);
        double bx = x1 + std::min(s + height, width), by = yBottom - (bx - x1 - s);
        canvas.Line(ax, ay, bx, by, kBlack);
    }
}

}  // namespace

VpaBars BarsOf(const LengthVpaResult& r) {
    VpaBars b;
    b.n = r.n;
    b.nUsed = r.nUsed;
    b.C = r.C;
    b.N = r.N;
    b.F = r.F;
    b.label.assign(static_cast<size_t>(r.n) + 1, 0.0);
    for (int i = 1; i <= r.n; ++i) b.label[i] = r.L1 + (i - 1) * r.dL;
    b.xTitle = kVpaLengthGroups;
    return b;
}

VpaBars BarsOf(const AgeVpaResult& r, const std::vector<float>& ages) {
    VpaBars b;
    b.n = r.n;
    b.nUsed = r.n;
    b.C = r.C;
    b.N = r.N;
    b.F = r.F;
    b.label.assign(static_cast<size_t>(r.n) + 1, 0.0);
    for (int i = 1; i <= r.n && i <= static_cast<int>(ages.size()); ++i) b.label[i] = ages[i - 1];
    b.xTitle = kVpaAgeGroups;
    return b;
}

VpaScale DrawVpaBars(ChartCanvas& canvas, const VpaBars& bars) {
    VpaScale s;
    BeginPercentCanvas(canvas);
    if (bars.n < 1) return s;
    canvas.Line(kFrameLeft, kFrameBottom, kFrameLeft, kTop, kBlack);
    canvas.Line(kFAxisX, kFrameBottom, kFAxisX, kTop, kBlack);
    canvas.Line(kFrameLeft, kFrameBottom, kFrameRight, kFrameBottom, kBlack);
    s.w = 75.0 / bars.n;

    float largestF = 0, largestN = 0;
    for (int i = 1; i <= bars.n; ++i) {
        largestF = std::max(largestF, bars.F[i]);
        largestN = std::max(largestN, bars.N[i]);
    }
    s.fTop = TopWholePlusOne(largestF);
    s.fScale = kHeight / s.fTop;
    DrawRotatedText(canvas, kVpaFAxisTitle, 900, kKindALabelSize, 1, 65);
    for (double f : FixedStepTicks(s.fTop, 5, 0.05)) {
        const double y = kFrameBottom - f * s.fScale;
        canvas.Line(kFAxisX, y, kFAxisX + 1, y, kBlack);
        Text(canvas, 5, y - 3, Format(f, "0.0"));
    }

    const PowerOfTen p = ReduceByPowerOfTen(largestN);
    s.exponent = p.exponent;
    s.nScale = kHeight / p.top;
    DrawRotatedText(canvas, kVpaPopulationTitle + std::to_string(p.exponent) + ")", 900,
                    kKindALabelSize, 11, 65);
    for (double v : FixedStepTicks(p.top, 5, 0.01)) {
        const double y = kFrameBottom - v * s.nScale;
        canvas.Line(kFrameLeft, y, kFrameLeft + 1, y, kBlack);
        Text(canvas, 15, y - 3, Format(v, "0.0"));
    }

    const double unit = std::pow(10.0, p.exponent);
    const auto height = [&](double v) { return kFrameBottom - v / unit * s.nScale; };
    for (int i = 1; i <= bars.nUsed; ++i) {
        const double left = i * s.w + kFrameLeft - s.w / 2, right = left + s.w;
        const double top = height(bars.N[i]);
        canvas.FilledBox(left, top, right, kFrameBottom, kVpaSurvivors);
        Hatch(canvas, left, top, right, kFrameBottom);
        canvas.Box(left, top, right, kFrameBottom, kBlack);
        const double lossBottom = i < bars.nUsed ? height(bars.N[i + 1]) : kFrameBottom;
        canvas.FilledBox(left, top, right, lossBottom, kVpaNaturalLosses);
        canvas.Box(left, top, right, lossBottom, kBlack);
        const double catchBottom = height(bars.N[i] - bars.C[i]);
        canvas.FilledBox(left, top, right, catchBottom, kVpaCatches);
        canvas.Box(left, top, right, catchBottom, kBlack);
    }

    const int every = LengthLabelEvery(bars.n);
    for (int i = 1; i <= bars.n; i += every) {
        const double x = i * s.w + kFrameLeft - s.w / 2;
        canvas.Line(x, kFrameBottom, x, kFrameBottom - 2, kBlack);
        Text(canvas, x - 2, 86, Format(bars.label[i], "0.0"));
    }
    DrawXTitle(canvas, bars.xTitle);

    canvas.SetPen(PenStyle::Solid, 2);
    for (int i = 1; i < bars.n; ++i)
        canvas.Line(i * s.w + kFrameLeft, kFrameBottom - s.fScale * bars.F[i],
                    (i + 1) * s.w + kFrameLeft, kFrameBottom - s.fScale * bars.F[i + 1], kRed);
    canvas.SetPen(PenStyle::Solid, 1);
    return s;
}

void PutLegend(ChartCanvas& canvas, const VpaLegend& legend, UserPoint at) {
    const struct {
        const char* text;
        Colour colour;
    } rows[] = {{legend.survivors, kVpaSurvivors},
                {legend.losses, kVpaNaturalLosses},
                {legend.catches, kVpaCatches},
                {legend.mortality, kRed}};
    double y = at.y;
    for (const auto& row : rows) {
        canvas.FilledBox(at.x, y + 0.5, at.x + 2, y + 2.5, row.colour);
        canvas.Box(at.x, y + 0.5, at.x + 2, y + 2.5, kBlack);
        Text(canvas, at.x + 3, y, row.text);
        y += 3.5;
    }
}

TerminalPick PickTerminal(const VpaScale& s, int n, double x, double y) {
    TerminalPick pick;
    if (s.fScale > 0) pick.ft = std::max(0.0, (kFrameBottom - y) / s.fScale);
    if (s.w > 0) pick.plusGroups = std::max(0, n - static_cast<int>(Fix((x - kFrameLeft) / s.w)));
    return pick;
}

ReportDescriptor LengthVpaReport(const LfqData& data, const LengthVpaOptions& o,
                                 const LengthVpaResult& r, std::time_t when) {
    auto rep = MakeReport("frmOutVPA1", kVpaLengthReportTitle, data.speciesname, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", data.path});
    in.fields.push_back({"Species:", data.speciesname});
    in.fields.push_back(NumberField("Raising exponent:", o.raise, "0"));
    in.fields.push_back(NumberField("a:", o.a, "0.00000"));
    in.fields.push_back(NumberField("b:", o.b, "0.000"));
    in.fields.push_back(NumberField("M:", o.m, "0.000"));
    in.fields.push_back(NumberField("Terminal F:", o.ft, "0.000"));
    in.fields.push_back(NumberField("Loo:", o.loo, "0.00"));
    in.fields.push_back(NumberField("K:", o.k, "0.000"));
    in.fields.push_back({"+Groups:", std::to_string(r.plusGroups)});
    auto& out = rep.addSection("Results", true);
    double biomass = 0;
    for (int i = 1; i <= r.nUsed; ++i) biomass += r.Biomass[i];
    out.fields.push_back({"Length groups used:", std::to_string(r.nUsed)});
    out.fields.push_back(NumberField("Recruits (N of the first group):", r.N[1], "0"));
    out.fields.push_back(NumberField("Steady-state biomass (tonnes):", biomass / 1e6, "0.000"));
    return rep;
}

ReportDescriptor AgeVpaReport(const CaaData& data, const AgeVpaOptions& o, const AgeVpaResult& r,
                              std::time_t when) {
    auto rep = MakeReport("frmOutVPA1", kVpaAgeReportTitle, data.header.speciesname, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", data.header.path});
    in.fields.push_back({"Species:", data.header.speciesname});
    in.fields.push_back({"Unit of age measurement:", data.unitOfAge});
    in.fields.push_back({"Unit of catch measurement:", data.unitOfWeight});
    in.fields.push_back(NumberField("M:", o.m, "0.000"));
    in.fields.push_back(NumberField("Terminal F:", o.ft, "0.000"));
    in.fields.push_back(NumberField("Time interval:", o.dt, "0.00"));
    auto& out = rep.addSection("Results", true);
    out.fields.push_back({"Age groups:", std::to_string(r.n)});
    if (r.n > 0) out.fields.push_back(NumberField("Population of the first group:", r.N[1], "0"));
    return rep;
}

}  // namespace norvo
