#include "growth/powell_wetherall_plot.h"

#include <algorithm>
#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "base/format.h"
#include "chart/kind_a.h"

namespace norvo {

namespace {

constexpr double kPwXSpan = 65, kPwYSpan = 70;
constexpr Colour kPicked = kRed;

// Eight ticks at most, at 1, 2 or 5 times a power of ten.
double TickStep(double top) {
    const double unit = std::pow(10.0, std::floor(std::log10(top / 8)));
    for (double m : {1.0, 2.0, 5.0})
        if (top / (m * unit) <= 8) return m * unit;
    return 10 * unit;
}

void DrawAxes(ChartCanvas& canvas, const PwPlotFrame& f) {
    DrawPercentFrame(canvas, kFrameTop);
    const char* xPattern = f.x.step >= 1 ? "0" : "0.0";
    const char* yPattern = f.y.step >= 1 ? "0" : "0.0";
    for (double v = 0; v <= f.x.top + 1e-9; v += f.x.step) {
        DrawXTick(canvas, kFrameLeft + f.x.at(v));
        DrawXLabel(canvas, kFrameLeft + f.x.at(v), Format(v, xPattern));
    }
    for (double v = 0; v <= f.y.top + 1e-9; v += f.y.step) {
        DrawYTick(canvas, kFrameBottom - f.y.at(v));
        DrawYLabel(canvas, kFrameBottom - f.y.at(v), Format(v, yPattern));
    }
}

void DrawPoints(ChartCanvas& canvas, const std::vector<UserPoint>& pts, int picked,
                double pickedBox) {
    for (size_t i = 1; i < pts.size(); ++i) DrawPointMark(canvas, pts[i], kBlack, true);
    if (picked > 0 && picked < static_cast<int>(pts.size())) {
        const UserPoint p = pts[picked];
        canvas.FilledBox(p.x - pickedBox, p.y - pickedBox, p.x + pickedBox, p.y + pickedBox,
                         kPicked);
        canvas.Circle(p.x, p.y, 1.1, kPicked);
    }
}

}  // namespace

PwAxis PwAxisOver(double largest, double span) {
    PwAxis a;
    a.top = Int(std::max(largest, 0.0)) + 1;
    if (a.top / 2 != Int(a.top / 2)) a.top += 1;
    a.scale = Div(span, a.top);
    a.step = TickStep(a.top);
    return a;
}

PwPlotFrame PowellWetherallFrame(const PowellWetherallData& d) {
    double xMax = 0, yMax = 0;
    for (int i = 1; i <= d.lastClass; ++i) {
        xMax = std::max<double>(xMax, d.cutOff[i]);
        yMax = std::max<double>(yMax, d.meanAbove[i]);
    }
    return {PwAxisOver(xMax, kPwXSpan), PwAxisOver(yMax, kPwYSpan), 0};
}

PwPlotFrame PseudoCatchFrame(const PowellWetherallData& d) {
    double xMax = 0, yMax = 0;
    for (int i = 1; i <= d.lastClass; ++i) {
        xMax = std::max(xMax, d.midlength(i));
        yMax = std::max<double>(yMax, d.pooled[i]);
    }
    int power = 0;
    while (yMax >= 99) {
        yMax /= 10;
        ++power;
    }
    return {PwAxisOver(xMax, kPwXSpan), PwAxisOver(yMax, kPwYSpan), power};
}

std::vector<UserPoint> PowellWetherallPositions(const PowellWetherallData& d) {
    const PwPlotFrame f = PowellWetherallFrame(d);
    std::vector<UserPoint> pts(static_cast<size_t>(d.lastClass) + 1);
    for (int i = 1; i <= d.lastClass; ++i)
        pts[i] = {kFrameLeft + f.x.at(d.cutOff[i]), kFrameBottom - f.y.at(d.meanAbove[i])};
    return pts;
}

std::vector<UserPoint> PseudoCatchPositions(const PowellWetherallData& d) {
    const PwPlotFrame f = PseudoCatchFrame(d);
    const double divisor = Pow(10, f.power);
    std::vector<UserPoint> pts(static_cast<size_t>(d.lastClass) + 1);
    for (int i = 1; i <= d.lastClass; ++i)
        pts[i] = {kFrameLeft + f.x.at(d.midlength(i)),
                  kFrameBottom - f.y.at(d.pooled[i] / divisor)};
    return pts;
}

std::string PseudoCatchYTitle(int power) {
    if (power == 0) return kPwPseudoYTitle;
    return kPwPseudoYTitlePrefix + std::to_string(power) + ")";
}

void DrawPowellWetherall(ChartCanvas& canvas, const PowellWetherallData& d, const std::string& unit,
                         int picked, const PowellWetherallFit* fit) {
    BeginPercentCanvas(canvas);
    const PwPlotFrame f = PowellWetherallFrame(d);
    DrawAxes(canvas, f);
    DrawPlotTitle(canvas, kPwPlotTitle, 5);
    DrawYTitle(canvas, kPwYTitle);
    DrawXTitle(canvas, kPwXTitlePrefix + unit + ")");
    DrawPoints(canvas, PowellWetherallPositions(d), picked, 0.7);
    if (fit && fit->loo && fit->firstPoint > 0) {
        // From the first point down to the axis at Loo, cut at the frame's right edge.
        const double a = fit->a, b = fit->b, x1 = d.cutOff[fit->firstPoint], x2 = *fit->loo;
        UserPoint p1{kFrameLeft + f.x.at(x1), kFrameBottom - f.y.at(a + b * x1)};
        UserPoint p2{kFrameLeft + f.x.at(x2), kFrameBottom - f.y.at(a + b * x2)};
        if (ClipToFrame(p1, p2, kFrameTop)) {
            canvas.SetPen(PenStyle::Solid, 2);
            canvas.Line(p1.x, p1.y, p2.x, p2.y, kPicked);
            canvas.SetPen(PenStyle::Solid, 1);
        }
    }
}

void DrawPseudoCatch(ChartCanvas& canvas, const PowellWetherallData& d, const std::string& unit,
                     int picked) {
    BeginPercentCanvas(canvas);
    const PwPlotFrame f = PseudoCatchFrame(d);
    DrawAxes(canvas, f);
    DrawPlotTitle(canvas, kPwPseudoTitle, 5);
    DrawYTitle(canvas, PseudoCatchYTitle(f.power));
    DrawXTitle(canvas, kPwPseudoXTitlePrefix + unit + ")");
    DrawPoints(canvas, PseudoCatchPositions(d), picked, 0.8);
}

ReportDescriptor PowellWetherallReport(const LfqData& data, const PowellWetherallFit& fit,
                                       std::time_t when) {
    auto rep = MakeReport("frmOutPWPlot", kPwReportTitle, data.speciesname, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", data.path});
    in.fields.push_back({"Species:", data.speciesname});
    in.fields.push_back({"Identifier:", data.otherId});
    in.fields.push_back(
        {"Points used:", std::to_string(fit.firstPoint) + " to " + std::to_string(fit.lastPoint)});
    auto& out = rep.addSection("Estimates", true);
    if (fit.loo) out.fields.push_back(NumberField("Loo :", *fit.loo, "0.00"));
    if (fit.zk)
        out.fields.push_back(NumberField("Z/K:", *fit.zk, "0.000"));
    else if (fit.loo)
        out.fields.push_back({"Z/K:", kPwZkUndefined});
    out.fields.push_back(
        {"Function:", PwFunctionText(Format(fit.a, "0.00"), Format(fit.b, "0.000"))});
    out.fields.push_back(NumberField("r:", fit.r, "0.000"));
    return rep;
}

}  // namespace norvo
