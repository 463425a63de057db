#include "growth/increment_plots.h"

#include <algorithm>
#include <cmath>

#include "base/format.h"
#include "chart/kind_a.h"
#include "chart/rotated_text.h"
#include "growth/growth_increments.h"
#include "growth/vbgf.h"

namespace norvo {

namespace {

constexpr Colour kSelectedColour = kBlack;
constexpr Colour kDeselectedColour = Rgb(128, 128, 128);
constexpr Colour kLineColour = kRed;
constexpr int kSteps = 5;

// The smallest of 1, 2, 2.5, 5 times a power of ten at or above v (v > 0).
double NiceTop(double v) {
    if (!(v > 0)) return 1;
    const double p = std::pow(10.0, std::floor(std::log10(v)));
    for (double m : {1.0, 2.0, 2.5, 5.0, 10.0})
        if (m * p >= v * (1 - 1e-12)) return m * p;
    return 10 * p;
}

// A frame of `kSteps` equal steps that holds lo..hi, starting at 0 when the data allow.
void FitRange(double lo, double hi, double& outMin, double& outMax) {
    lo = std::min(lo, 0.0);
    hi = std::max(hi, 0.0);
    if (hi - lo <= 0) hi = lo + 1;
    const double step = NiceTop((hi - lo) / kSteps);
    outMin = std::floor(lo / step) * step;
    outMax = outMin + step * std::ceil((hi - outMin) / step - 1e-9);
}

void DrawFrame(ChartCanvas& canvas, const IncrementFrame& f, const std::string& xPattern,
               const std::string& yPattern, const std::string& xTitle, const std::string& yTitle,
               bool xLabels = true) {
    BeginPercentCanvas(canvas);
    canvas.Line(f.kLeft, f.kBottom, f.kRight, f.kBottom, kBlack);
    canvas.Line(f.kLeft, f.kBottom, f.kLeft, f.kTop, kBlack);
    for (int i = 0; i <= kSteps; ++i) {
        const double y = f.yMin + (f.yMax - f.yMin) * i / kSteps;
        const double cy = f.toY(y);
        canvas.Line(f.kLeft - 1, cy, f.kLeft, cy, kBlack);
        const std::string text = Format(y, yPattern);
        const double width = canvas.PointsToUserX(EstimatedTextWidthPoints(kKindALabelSize, text));
        DrawRotatedText(canvas, text, 0, kKindALabelSize, f.kLeft - 1.5 - width, cy - 1.5);
        if (!xLabels) continue;
        const double x = f.xMin + (f.xMax - f.xMin) * i / kSteps;
        const double cx = f.toX(x);
        canvas.Line(cx, f.kBottom, cx, f.kBottom + 1, kBlack);
        DrawRotatedText(canvas, Format(x, xPattern), 0, kKindALabelSize, cx - 2, f.kBottom + 2);
    }
    DrawRotatedText(canvas, yTitle, 900, kKindALabelSize, 2, 55);
    DrawRotatedText(canvas, xTitle, 0, kKindALabelSize, 45, f.kBottom + 7);
}

// The part of the line a + b x inside the frame, if any.
bool ClipLine(const IncrementFrame& f, double a, double b, UserPoint& p1, UserPoint& p2) {
    double x1 = f.xMin, x2 = f.xMax;
    if (b != 0) {
        double xa = (f.yMin - a) / b, xb = (f.yMax - a) / b;
        if (xa > xb) std::swap(xa, xb);
        x1 = std::max(x1, xa);
        x2 = std::min(x2, xb);
    } else if (a < f.yMin || a > f.yMax) {
        return false;
    }
    if (x1 >= x2) return false;
    p1 = {f.toX(x1), f.toY(a + b * x1)};
    p2 = {f.toX(x2), f.toY(a + b * x2)};
    return true;
}

double RelativeAge(double length, double loo, double k) {
    return -std::log(1 - length / loo) / k;
}

}  // namespace

std::string MeanLengthTitle(const std::string& unit) {
    return "Mean length (" + unit + ")";
}
std::string LengthTitle(const std::string& unit) {
    return "Length (" + unit + ")";
}

int NearestPoint(const std::vector<UserPoint>& points, double x, double y, double maxDistance) {
    int best = -1;
    double bestDistance = maxDistance;
    for (size_t i = 0; i < points.size(); ++i) {
        const double d = std::hypot(points[i].x - x, points[i].y - y);
        if (d < bestDistance) {
            bestDistance = d;
            best = static_cast<int>(i);
        }
    }
    return best;
}

RatePoints RowRates(const std::vector<GinRow>& rows, bool absolute) {
    RatePoints p;
    for (const auto& row : rows) {
        const int days = DaysAtLiberty(row);
        double rate = days > 0 ? (static_cast<double>(row[kLength2]) - row[kLength1]) / days : 0;
        if (absolute) rate = std::fabs(rate);
        p.rate.push_back(static_cast<float>(rate));
        p.meanLength.push_back(
            static_cast<float>((static_cast<double>(row[kLength1]) + row[kLength2]) / 2));
    }
    return p;
}

PickablePlot DrawRatePlot(ChartCanvas& canvas, const RatePoints& points,
                          const std::vector<bool>& selected, bool withLine, double a, double b,
                          const std::string& unit, const std::string& title) {
    PickablePlot plot;
    auto& f = plot.frame;
    double xHi = 0, yLo = 0, yHi = 0;
    for (size_t i = 0; i < points.rate.size(); ++i) {
        xHi = std::max<double>(xHi, points.meanLength[i]);
        yLo = std::min<double>(yLo, points.rate[i]);
        yHi = std::max<double>(yHi, points.rate[i]);
    }
    xHi *= 1.05;
    // Show where the line meets the length axis when it is not too far out.
    if (withLine && b < 0 && -a / b > xHi && -a / b < 3 * xHi) xHi = -a / b;
    FitRange(0, xHi, f.xMin, f.xMax);
    FitRange(yLo, yHi * 1.05, f.yMin, f.yMax);
    DrawFrame(canvas, f, "#0.0", "#0.000", MeanLengthTitle(unit), kRateAxisTitle);
    DrawPlotTitle(canvas, title, 0.5);
    for (size_t i = 0; i < points.rate.size(); ++i) {
        const UserPoint p{f.toX(points.meanLength[i]), f.toY(points.rate[i])};
        const bool on = i < selected.size() ? selected[i] : true;
        DrawPointMark(canvas, p, on ? kSelectedColour : kDeselectedColour, on);
        plot.points.push_back(p);
        plot.rowOf.push_back(static_cast<int>(i));
    }
    UserPoint p1, p2;
    if (withLine && ClipLine(f, a, b, p1, p2)) {
        canvas.SetPen(PenStyle::Solid, 2);
        canvas.Line(p1.x, p1.y, p2.x, p2.y, kLineColour);
        canvas.SetPen(PenStyle::Solid, 1);
    }
    plot.drawn = true;
    return plot;
}

void DrawSeasonalPlot(ChartCanvas& canvas, const SeasonalFit& fit) {
    IncrementFrame f;
    f.xMin = 0;
    f.xMax = 365;
    double hi = 1;
    for (const auto& p : fit.points) hi = std::max(hi, std::fabs(p.deviation));
    hi = std::max(hi, 100 * fit.c);
    const double top = NiceTop(hi * 1.05);
    f.yMin = -top;
    f.yMax = top;
    DrawFrame(canvas, f, "0", "0", "", kDeviationAxisTitle, false);
    DrawPlotTitle(canvas, fit.text, 0.5);
    for (int m = 1; m <= 12; ++m) {
        const double cx = f.toX(MonthStart(m));
        canvas.Line(cx, f.kBottom, cx, f.kBottom + 1, kBlack);
        DrawRotatedText(canvas, kMonthNames[m - 1], 0, kKindALabelSize, cx + 0.5, f.kBottom + 2);
    }
    canvas.Line(f.kLeft, f.toY(0), f.kRight, f.toY(0), kDeselectedColour);
    for (const auto& p : fit.points)
        DrawPointMark(canvas, {f.toX(p.day), f.toY(p.deviation)}, kSelectedColour, true);
    if (!fit.degenerate) {
        std::vector<UserPoint> curve;
        for (int d = 0; d <= 365; d += 5) curve.push_back({f.toX(d), f.toY(fit.curve(d))});
        canvas.SetPen(PenStyle::Solid, 2);
        canvas.Polyline(curve, kLineColour);
        canvas.SetPen(PenStyle::Solid, 1);
    }
    const double wx = f.toX(fit.winterDay);
    canvas.SetPen(PenStyle::Dashed, 1);
    canvas.Line(wx, f.kTop, wx, f.kBottom, kLineColour);
    canvas.SetPen(PenStyle::Solid, 1);
    DrawRotatedText(canvas, Format(fit.winterPoint(), "0.00") + " " + kWinterPointLabel, 0,
                    kKindALabelSize, std::min(wx + 1, 70.0), f.kTop + 1);
}

PickablePlot DrawRelativeAgePlot(ChartCanvas& canvas, const std::vector<GinRow>& rows,
                                 const std::vector<bool>& selected, float loo, float k,
                                 const std::string& unit, const std::string& title) {
    PickablePlot plot;
    auto& f = plot.frame;
    double tHi = 0;
    const bool usable = loo > 0 && k > 0;
    if (usable)
        for (const auto& row : rows)
            if (row[kLength1] < loo && row[kLength2] < loo)
                tHi = std::max(tHi, RelativeAge(row[kLength2], loo, k));
    FitRange(0, std::max(tHi * 1.05, 0.1), f.xMin, f.xMax);
    FitRange(0, usable ? loo * 1.05 : LargestLength(rows) * 1.05, f.yMin, f.yMax);
    DrawFrame(canvas, f, "0.0", "#0.0", kRelativeAgeTitle, LengthTitle(unit));
    DrawPlotTitle(canvas, title, 0.5);
    if (!usable) return plot;
    std::vector<UserPoint> curve;
    for (int i = 0; i <= 100; ++i) {
        const double t = f.xMax * i / 100;
        curve.push_back({f.toX(t), f.toY(loo * (1 - std::exp(-k * t)))});
    }
    canvas.SetPen(PenStyle::Solid, 1);
    canvas.Polyline(curve, kDeselectedColour);
    canvas.Line(f.kLeft, f.toY(loo), f.kRight, f.toY(loo), kDeselectedColour);
    DrawRotatedText(canvas, "Loo", 0, kKindALabelSize, f.kRight + 1, f.toY(loo) - 1.5);
    for (size_t i = 0; i < rows.size(); ++i) {
        const auto& row = rows[i];
        if (row[kLength1] >= loo || row[kLength2] >= loo) continue;
        const bool on = i < selected.size() ? selected[i] : true;
        const Colour c = on ? kLineColour : kDeselectedColour;
        const UserPoint p1{f.toX(RelativeAge(row[kLength1], loo, k)), f.toY(row[kLength1])};
        const UserPoint p2{f.toX(RelativeAge(row[kLength2], loo, k)), f.toY(row[kLength2])};
        canvas.Line(p1.x, p1.y, p2.x, p2.y, c);
        for (const auto& p : {p1, p2}) {
            DrawPointMark(canvas, p, c, on);
            plot.points.push_back(p);
            plot.rowOf.push_back(static_cast<int>(i));
        }
    }
    plot.drawn = true;
    return plot;
}

void DrawMunroCvPlot(ChartCanvas& canvas, const MunroResult& run) {
    IncrementFrame f;
    if (run.curve.empty()) {
        DrawFrame(canvas, f, "0.00", "0.000", kLooAxisTitle, kCvAxisTitle);
        return;
    }
    f.xMin = run.curve.front().loo;
    f.xMax = std::max<double>(run.curve.back().loo, f.xMin + 0.01);
    double hi = 0;
    for (const auto& p : run.curve) hi = std::max(hi, p.cv);
    FitRange(0, hi * 1.05, f.yMin, f.yMax);
    DrawFrame(canvas, f, "0.00", "0.000", kLooAxisTitle, kCvAxisTitle);
    std::vector<UserPoint> line;
    for (const auto& p : run.curve) line.push_back({f.toX(p.loo), f.toY(p.cv)});
    canvas.Polyline(line, kSelectedColour);
    DrawPointMark(canvas, line.back(), kLineColour, true);
}

namespace {
ReportDescriptor BaseReport(const char* screen, const std::string& title, const LfqData& header,
                            int n, std::time_t when) {
    auto rep = MakeReport(screen, title, header.speciesname, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", header.path});
    in.fields.push_back({"Species:", header.speciesname});
    in.fields.push_back({"Identifiers:", header.otherId});
    in.fields.push_back({"Unit:", header.unitOfMeasurement});
    in.fields.push_back(NumberField("Rows used:", n, "0"));
    return rep;
}
}  // namespace

ReportDescriptor GullandHoltReport(const LfqData& header, const GullandHoltResult& run,
                                   std::time_t when) {
    auto rep = BaseReport("frmOutGulland", kGhTitle, header, run.n(), when);
    auto& out = rep.addSection("Results", true);
    if (run.fixedLoo) out.fields.push_back(NumberField("Fixed Loo:", *run.fixedLoo, "0.00"));
    out.fields.push_back(NumberField("Loo:", run.loo, "0.00"));
    out.fields.push_back(NumberField("K:", run.k, "0.000"));
    out.fields.push_back(NumberField("a:", run.a, "0.00000"));
    out.fields.push_back(NumberField("b:", run.b, "0.00000"));
    out.fields.push_back(NumberField("r:", run.regression.r(), "0.0000"));
    out.fields.push_back(NumberField("C:", run.seasonal.c, "0.000"));
    out.fields.push_back(NumberField(std::string("WP ") + kWinterPointLabel + ":",
                                     run.seasonal.winterPoint(), "0.00"));
    rep.note = run.seasonal.text;
    return rep;
}

ReportDescriptor MunroReport(const LfqData& header, const MunroResult& run, std::time_t when) {
    auto rep = BaseReport("frmOutGulland", kMunroReportTitle, header, run.estimate.m, when);
    auto& out = rep.addSection("Computed Parameters", true);
    out.fields.push_back(NumberField("Loo:", run.loo, "0.00"));
    out.fields.push_back(NumberField("K:", run.k, "0.000"));
    out.fields.push_back(NumberField("CV of K:", run.estimate.cv, "0.0000"));
    out.fields.push_back(NumberField("Lmax:", run.lmax, "0.00"));
    out.fields.push_back(NumberField("Passes:", run.passes, "0"));
    return rep;
}

ReportDescriptor FabensReport(const LfqData& header, const FabensResult& run, std::time_t when) {
    auto rep = BaseReport("frmOutGulland", kFabensTitle, header,
                          static_cast<int>(run.data.dt.size()), when);
    auto& out = rep.addSection("Results", true);
    out.fields.push_back(NumberField("Loo:", run.loo, "0.00"));
    out.fields.push_back(NumberField("K:", run.k, "0.000"));
    out.fields.push_back(NumberField("Iterations:", run.iterations, "0"));
    out.fields.push_back(NumberField("Starting Loo:", run.startLoo, "0.00"));
    out.fields.push_back(NumberField("Starting K:", run.startK, "0.000"));
    return rep;
}

}  // namespace norvo
