#include "selection/gillnet_plot.h"

#include <algorithm>
#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "base/format.h"
#include "chart/kind_a.h"

namespace norvo {

namespace {

constexpr Colour kNetA = Rgb(0, 0, 160);
constexpr Colour kNetB = Rgb(200, 0, 0);
constexpr double kRatioLeft = 30, kRatioWidth = 65, kRatioHeight = 80;

// Midlength labels every few classes along a 20..95 axis of nC + 1 slots.
void LengthAxis(ChartCanvas& canvas, const GillnetResult& run, double xScale) {
    const int every = LengthLabelEvery(run.nC);
    for (int i = 1; i <= run.nC; ++i) {
        const double x = 20 + i * xScale;
        DrawXTick(canvas, x);
        if ((i - 1) % every == 0) DrawXLabel(canvas, x, Format(run.midlength(i), "0.0"));
    }
}

}  // namespace

std::string GillnetRatioXTitle(const std::string& unit, bool logNormal) {
    const std::string t = "Midlength (" + unit + ")";
    return logNormal ? "ln(" + t + ")" : t;
}

std::string GillnetCatchTitle(double largest) {
    if (largest <= 100) return kGnCatchTitle;
    const PowerOfTen p = ReduceByPowerOfTen(largest);
    if (p.exponent == 1) return std::string(kGnCatchTitle) + " (10)";
    return std::string(kGnCatchTitle) + " (10^" + std::to_string(p.exponent) + ")";
}

RatioRange GillnetRatioRange(const GillnetResult& run) {
    RatioRange rr;
    double lo = run.lengthX[1], hi = run.lengthX[1], yLo = run.lnRatio[1], yHi = run.lnRatio[1];
    for (int i = 1; i <= run.points; ++i) {
        lo = std::min<double>(lo, run.lengthX[i]);
        hi = std::max<double>(hi, run.lengthX[i]);
        yLo = std::min<double>(yLo, run.lnRatio[i]);
        yHi = std::max<double>(yHi, run.lnRatio[i]);
    }
    // One class each side; on the log scale the class is taken at each end of the range.
    if (run.logNormal) {
        const double lMin = std::exp(lo), lMax = std::exp(hi);
        lo -= Ln(Div(lMin + run.w, lMin));
        hi = Ln(lMax + run.w);
    } else {
        lo -= run.w;
        hi += run.w;
    }
    rr.xLo = Int(lo * 2) / 2;
    rr.xHi = -Int(-hi * 2) / 2;
    rr.yLo = Int(yLo * 2) / 2;
    rr.yHi = -Int(-yHi * 2) / 2;
    if (rr.yHi == rr.yLo) rr.yHi = rr.yLo + 1;
    return rr;
}

void DrawGillnetRatio(ChartCanvas& canvas, const GillnetResult& run, const std::string& unit) {
    const RatioRange rr = GillnetRatioRange(run);
    const double xScale = kRatioWidth / (rr.xHi - rr.xLo);
    const double yScale = kRatioHeight / (rr.yHi - rr.yLo);
    auto at = [&](double x, double y) -> UserPoint {
        return {kRatioLeft + (x - rr.xLo) * xScale, 85 - (y - rr.yLo) * yScale};
    };
    BeginPercentCanvas(canvas);
    canvas.Line(kRatioLeft, 85, 95, 85, kBlack);
    canvas.Line(20, 85, 20, 85 - kRatioHeight, kBlack);
    for (int k = 0; k <= 2; ++k) {
        const double x = rr.xLo + k * (rr.xHi - rr.xLo) / 2;
        DrawXTick(canvas, at(x, 0).x);
        DrawXLabel(canvas, at(x, 0).x, Format(x, "0.0"));
    }
    for (int k = 0; k <= 3; ++k) {
        const double y = rr.yLo + k * (rr.yHi - rr.yLo) / 3;
        DrawYTick(canvas, at(0, y).y);
        DrawYLabel(canvas, at(0, y).y, Format(y, "0.0"));
    }
    DrawPlotTitle(canvas, kGnRatioTitle, 0);
    DrawYTitle(canvas, kGnRatioTitle);
    DrawXTitle(canvas, GillnetRatioXTitle(unit, run.logNormal));
    for (int i = 1; i <= run.points; ++i)
        DrawPointMark(canvas, at(run.lengthX[i], run.lnRatio[i]), kBlack, true);
    const double a = run.fit.a(), b = run.fit.b();
    const double x1 = run.lengthX[1], x2 = run.lengthX[run.points];
    const UserPoint p1 = at(x1, a + b * x1), p2 = at(x2, a + b * x2);
    canvas.SetPen(PenStyle::Solid, 2);
    canvas.Line(p1.x, p1.y, p2.x, p2.y, kNetB);
    canvas.SetPen(PenStyle::Solid, 1);
}

void DrawGillnetCurves(ChartCanvas& canvas, const GillnetResult& run, const std::string& unit) {
    const double xScale = 75.0 / (run.nC + 1), yScale = 70;
    BeginPercentCanvas(canvas);
    DrawPercentFrame(canvas, kFrameTop);
    for (int k = 0; k <= 4; ++k) {
        DrawYTick(canvas, 85 - k / 4.0 * yScale);
        DrawYLabel(canvas, 85 - k / 4.0 * yScale, Format(k / 4.0, "0.00"));
    }
    LengthAxis(canvas, run, xScale);
    DrawPlotTitle(canvas, kGnCurveTitle, 2);
    DrawXTitle(canvas, "Length (" + unit + ")");
    const std::vector<float>* curves[] = {&run.selectionA, &run.selectionB};
    const Colour colours[] = {kNetA, kNetB};
    canvas.SetPen(PenStyle::Solid, 2);
    for (int c = 0; c < 2; ++c) {
        std::vector<UserPoint> line;
        for (int i = 1; i <= run.nC; ++i)
            line.push_back({20 + i * xScale, 85 - (*curves[c])[i] * yScale});
        canvas.Polyline(line, colours[c]);
    }
    canvas.SetPen(PenStyle::Solid, 1);
    canvas.MoveTo(75, 10);
    canvas.SetForeColour(kNetA);
    canvas.Print("m(A) = " + Format(run.meshA, "0.00"));
    canvas.MoveTo(75, 14);
    canvas.SetForeColour(kNetB);
    canvas.Print("m(B) = " + Format(run.meshB, "0.00"));
    canvas.SetForeColour(kBlack);
}

void DrawGillnetCatches(ChartCanvas& canvas, const GillnetResult& run, const std::string& unit) {
    double largest = 0;
    for (int i = 1; i <= run.nC; ++i)
        largest = std::max(
            {largest, static_cast<double>(run.catchA[i]), static_cast<double>(run.catchB[i])});
    const std::string yTitle = GillnetCatchTitle(largest);
    double unitScale = 1;
    if (largest > 100) unitScale = std::pow(10.0, ReduceByPowerOfTen(largest).exponent);
    const double top = TopWholePlusOne(largest / unitScale);
    const double xScale = 65.0 / (run.nC + 1), yScale = 77 / top;
    BeginPercentCanvas(canvas);
    DrawPercentFrame(canvas, kFrameTopTall);
    for (double y : FixedStepTicks(top)) {
        DrawYTick(canvas, 85 - y * yScale);
        DrawYLabel(canvas, 85 - y * yScale, Format(y, "0.0"));
    }
    const int every = LengthLabelEvery(run.nC);
    for (int i = 1; i <= run.nC; ++i) {
        const double x = 20 + i * xScale;
        DrawXTick(canvas, x);
        if ((i - 1) % every == 0) DrawXLabel(canvas, x, Format(run.midlength(i), "0.0"));
        const double hA = run.catchA[i] / unitScale * yScale;
        const double hB = run.catchB[i] / unitScale * yScale;
        if (hA > 0) canvas.FilledBox(x - xScale * 0.4, 85 - hA, x, 85, kNetA);
        if (hB > 0) canvas.FilledBox(x, 85 - hB, x + xScale * 0.4, 85, kNetB);
    }
    DrawYTitle(canvas, yTitle);
    DrawXTitle(canvas, "Length (" + unit + ")");
}

ReportDescriptor GillnetReport(const LfqData& source, const GillnetResult& run, std::time_t when) {
    auto rep = MakeReport("frmOutProbability", kGnReportTitle, source.speciesname, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", source.path});
    in.fields.push_back({"Species:", source.speciesname});
    in.fields.push_back({"Identifiers:", source.otherId});
    in.fields.push_back({"Plot:", run.logNormal ? "log-normal plot" : "normal plot"});
    auto& out = rep.addSection("Results", true);
    out.fields.push_back(NumberField("L(A):", run.lA, "0.00"));
    out.fields.push_back(NumberField("L(B):", run.lB, "0.00"));
    out.fields.push_back(NumberField("m(A):", run.meshA, "0.00"));
    out.fields.push_back(NumberField("m(B):", run.meshB, "0.00"));
    out.fields.push_back(NumberField("s:", run.s, "0.000"));
    return rep;
}

}  // namespace norvo
