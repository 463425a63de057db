#include "modal/modal_plot.h"

#include <algorithm>
#include <cmath>

#include "base/format.h"
#include "chart/kind_a.h"
#include "numerics/normal_dist.h"

namespace norvo {

namespace {

constexpr Colour kBlue = Rgb(0, 0, 192);
constexpr Colour kDarkGreen = Rgb(0, 128, 0);
constexpr Colour kGrey = Rgb(160, 160, 160);
constexpr Colour kCurveColours[] = {kRed, kBlue, Rgb(192, 0, 192), Rgb(0, 128, 128),
                                    Rgb(192, 96, 0)};

// A step of 1, 2 or 5 times a power of ten giving about five intervals over `range`.
double NiceStep(double range) {
    if (!(range > 0)) return 1;
    const double raw = range / 5;
    const double p = std::pow(10.0, std::floor(std::log10(raw)));
    for (double m : {1.0, 2.0, 5.0})
        if (raw <= m * p) return m * p;
    return 10 * p;
}

std::string TickText(double v, double step) {
    return Format(v, step >= 1 ? "0" : step >= 0.1 ? "0.0" : "0.00");
}

// A linear axis mapping [lo, hi] onto [from, to] of the canvas.
struct Axis {
    double lo = 0, hi = 1, from = 0, to = 1;
    double at(double v) const { return from + (v - lo) / (hi - lo) * (to - from); }
};

void YTicks(ChartCanvas& c, const Axis& y) {
    const double step = NiceStep(y.hi - y.lo);
    for (double v = std::ceil(y.lo / step) * step; v <= y.hi + step * 1e-6; v += step) {
        DrawYTick(c, y.at(v));
        DrawYLabel(c, y.at(v), TickText(v, step));
    }
}

void XTicks(ChartCanvas& c, const Axis& x) {
    const double step = NiceStep(x.hi - x.lo);
    for (double v = std::ceil(x.lo / step) * step; v <= x.hi + step * 1e-6; v += step) {
        DrawXTick(c, x.at(v));
        DrawXLabel(c, x.at(v), TickText(v, step));
    }
}

Axis LogXAxis(const BhSample& s) {
    return {s.start, s.start + static_cast<double>(s.nC) * s.w, kFrameLeft, kFrameRight};
}

Axis LogYAxis(const BhSample& s) {
    double lo = 0, hi = 0;
    bool any = false;
    for (const auto& v : s.logDiff)
        if (v) {
            lo = any ? std::min<double>(lo, *v) : *v;
            hi = any ? std::max<double>(hi, *v) : *v;
            any = true;
        }
    if (!any || hi - lo < 1e-6) {
        lo -= 1;
        hi += 1;
    }
    const double pad = (hi - lo) * 0.1;
    return {lo - pad, hi + pad, kFrameBottom, kFrameTop};
}

// The time axis of the linking plot: days from the start of the first year.
double DayOf(const MsdRow& r, int firstYear) {
    return (r.year - firstYear) * 365.0 + r.month * 30.0 + r.day;
}

struct LinkAxes {
    Axis x, y;
    int firstYear = 0;
};

LinkAxes LinkingAxes(const std::vector<MsdRow>& points) {
    LinkAxes a;
    a.firstYear = points.empty() ? 0 : points.front().year;
    double last = 365, top = 1;
    for (const MsdRow& r : points) {
        a.firstYear = std::min(a.firstYear, static_cast<int>(r.year));
    }
    for (const MsdRow& r : points) {
        last = std::max(last, DayOf(r, a.firstYear) + 15);
        top = std::max(top, static_cast<double>(r.length));
    }
    a.x = {0, last, 12, 92};
    a.y = {0, top * 1.1, kFrameBottom, kFrameTop};
    return a;
}

}  // namespace

void DrawSeparationHistogram(ChartCanvas& c, const std::vector<float>& freq, double firstMid,
                             double w, const std::vector<NormalCurve>& curves,
                             const std::string& title) {
    BeginPercentCanvas(c);
    DrawPercentFrame(c, kFrameTop);
    const int nC = static_cast<int>(freq.size()) - 1;
    double top = 1;
    for (int k = 1; k <= nC; ++k) top = std::max(top, static_cast<double>(freq[k]));
    const double lo = firstMid - w / 2, hi = lo + std::max(nC, 1) * w;
    const Axis x{lo, hi, kFrameLeft, kFrameRight};
    const Axis y{0, top * 1.1, kFrameBottom, kFrameTop};
    YTicks(c, y);
    XTicks(c, x);
    DrawPlotTitle(c, title, 5);
    DrawYTitle(c, kFrequencyTitle);
    DrawXTitle(c, kLengthTitle);
    for (int k = 1; k <= nC; ++k) {
        if (!(freq[k] > 0)) continue;
        const double l = lo + (k - 1) * w;
        c.FilledBox(x.at(l), y.at(freq[k]), x.at(l + w), y.at(0), Rgb(200, 200, 230));
        c.Box(x.at(l), y.at(freq[k]), x.at(l + w), y.at(0), kBlack);
    }
    constexpr int kSteps = 200;
    std::vector<UserPoint> sum(kSteps + 1);
    for (size_t i = 0; i < curves.size(); ++i) {
        const NormalCurve& n = curves[i];
        if (!(n.sd > 0)) continue;
        std::vector<UserPoint> line;
        for (int j = 0; j <= kSteps; ++j) {
            const double v = lo + (hi - lo) * j / kSteps;
            const double e = n.population * NormalPdf(v, n.mean, n.sd) * w;
            line.push_back({x.at(v), y.at(std::min(e, y.hi))});
            sum[static_cast<size_t>(j)].x = x.at(v);
            sum[static_cast<size_t>(j)].y += e;
        }
        c.SetPen(PenStyle::Solid, 2);
        c.Polyline(line, kCurveColours[i % std::size(kCurveColours)]);
    }
    if (curves.size() > 1) {
        for (auto& p : sum) p.y = y.at(std::min(p.y, y.hi));
        c.SetPen(PenStyle::Solid, 1);
        c.Polyline(sum, kDarkGreen);
    }
    c.SetPen(PenStyle::Solid, 1);
}

std::vector<std::optional<UserPoint>> LogPointPositions(const BhSample& s) {
    const Axis x = LogXAxis(s), y = LogYAxis(s);
    std::vector<std::optional<UserPoint>> pts(s.logDiff.size());
    for (size_t k = 1; k < s.logDiff.size(); ++k)
        if (s.logDiff[k]) pts[k] = UserPoint{x.at(s.logX[k]), y.at(*s.logDiff[k])};
    return pts;
}

int HitLogPoint(const std::vector<std::optional<UserPoint>>& points, double x, double y) {
    int best = 0;
    double bestD = 0;
    for (size_t k = 1; k < points.size(); ++k) {
        if (!points[k]) continue;
        const double dx = std::fabs(points[k]->x - x), dy = std::fabs(points[k]->y - y);
        if (dx > 1 || dy > 1.5) continue;
        if (best == 0 || dx + dy < bestD) best = static_cast<int>(k), bestD = dx + dy;
    }
    return best;
}

void DrawLogPlot(ChartCanvas& c, const BhSample& s, int firstPick, const BhTake* take, int hover) {
    BeginPercentCanvas(c);
    DrawPercentFrame(c, kFrameTop);
    const Axis x = LogXAxis(s), y = LogYAxis(s);
    YTicks(c, y);
    XTicks(c, x);
    DrawPlotTitle(c, kBhLogTitle, 5);
    DrawYTitle(c, kBhLogYTitle);
    DrawXTitle(c, kLengthTitle);
    if (y.lo < 0 && y.hi > 0) {
        c.SetPen(PenStyle::Dashed, 1);
        c.Line(kFrameLeft, y.at(0), kFrameRight, y.at(0), kGrey);
        c.SetPen(PenStyle::Solid, 1);
    }
    const auto pts = LogPointPositions(s);
    std::vector<bool> used(pts.size());
    if (take && take->ok())
        for (int k : take->line.used) used[static_cast<size_t>(k)] = true;
    for (size_t k = 1; k < pts.size(); ++k) {
        if (!pts[k]) continue;
        const bool chosen = used[k] || static_cast<int>(k) == firstPick;
        DrawPointMark(c, *pts[k], chosen ? kRed : kBlack, chosen);
    }
    if (hover > 0 && static_cast<size_t>(hover) < pts.size() && pts[static_cast<size_t>(hover)]) {
        const UserPoint p = *pts[static_cast<size_t>(hover)];
        c.Circle(p.x, p.y, 1.5, kBlue);
    }
    if (take && take->ok()) {
        const double a = take->line.fit.a(), b = take->line.fit.b();
        const double x1 = s.logX[static_cast<size_t>(take->line.from)];
        const double x2 = s.logX[static_cast<size_t>(take->line.to)];
        c.SetPen(PenStyle::Solid, 2);
        c.Line(x.at(x1), y.at(a + b * x1), x.at(x2), y.at(a + b * x2), kRed);
        c.SetPen(PenStyle::Solid, 1);
    }
}

std::vector<UserPoint> LinkPointPositions(const std::vector<MsdRow>& points) {
    const LinkAxes a = LinkingAxes(points);
    std::vector<UserPoint> pts(points.size() + 1);
    for (size_t i = 0; i < points.size(); ++i)
        pts[i + 1] = {a.x.at(DayOf(points[i], a.firstYear)), a.y.at(points[i].length)};
    return pts;
}

int HitLinkPoint(const std::vector<UserPoint>& points, double x, double y) {
    int best = 0;
    double bestD = 0;
    for (size_t k = 1; k < points.size(); ++k) {
        const double dx = std::fabs(points[k].x - x), dy = std::fabs(points[k].y - y);
        if (dx > 1 || dy > 3) continue;
        if (best == 0 || dx + dy < bestD) best = static_cast<int>(k), bestD = dx + dy;
    }
    return best;
}

void DrawLinkingPlot(ChartCanvas& c, const LinkState& s, int hover) {
    BeginPercentCanvas(c);
    const LinkAxes a = LinkingAxes(s.points);
    c.Line(12, kFrameBottom, 92, kFrameBottom, kBlack);
    c.Line(12, kFrameBottom, 12, kFrameTop, kBlack);
    const double step = NiceStep(a.y.hi);
    for (double v = 0; v <= a.y.hi + 1e-9; v += step) {
        c.Line(11, a.y.at(v), 12, a.y.at(v), kBlack);
        c.MoveTo(5, a.y.at(v) - 1.5);
        c.Print(TickText(v, step));
    }
    // Years, or months when the span is short.
    const int years = static_cast<int>(a.x.hi / 365) + 1;
    for (int yr = 0; yr <= years; ++yr) {
        const double d = yr * 365.0;
        if (d > a.x.hi) break;
        c.Line(a.x.at(d), kFrameBottom, a.x.at(d), kFrameBottom + 1.5, kBlack);
        DrawXLabel(c, a.x.at(d) + 3, std::to_string(a.firstYear + yr));
        if (years <= 3)
            for (int m = 1; m < 12; ++m) {
                const double dm = d + m * 30.0 + 1;
                if (dm <= a.x.hi)
                    c.Line(a.x.at(dm), kFrameBottom, a.x.at(dm), kFrameBottom + 0.8, kBlack);
            }
    }
    DrawPlotTitle(c, kLkReportTitle, 5);
    DrawYTitle(c, kLengthTitle, 1);
    DrawXTitle(c, kLkTimeTitle, 52);
    const auto pts = LinkPointPositions(s.points);
    c.SetPen(PenStyle::Solid, 2);
    for (const auto& [from, to] : s.linked)
        c.Line(pts[static_cast<size_t>(from)].x, pts[static_cast<size_t>(from)].y,
               pts[static_cast<size_t>(to)].x, pts[static_cast<size_t>(to)].y, kBlue);
    c.SetPen(PenStyle::Solid, 1);
    for (size_t k = 1; k < pts.size(); ++k) {
        const bool open = static_cast<int>(k) == s.open;
        const bool hot = static_cast<int>(k) == hover;
        const double h = hot ? 1.0 : 0.6;
        if (open)
            c.FilledBox(pts[k].x - h, pts[k].y - h * 1.5, pts[k].x + h, pts[k].y + h * 1.5, kRed);
        c.Box(pts[k].x - h, pts[k].y - h * 1.5, pts[k].x + h, pts[k].y + h * 1.5,
              hot ? kRed : kBlack);
    }
}

ReportDescriptor BhattacharyaReport(const LfqData& data, const BhSample& s, std::time_t when) {
    auto rep = MakeReport("frmOutBhattac", kBhReportTitle, data.speciesname, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", data.path});
    in.fields.push_back({"Species:", data.speciesname});
    in.fields.push_back({"Identifiers:", data.otherId});
    in.fields.push_back({"Sample:", std::to_string(s.sample)});
    in.fields.push_back(NumberField("Class size:", s.w, "0.00"));
    auto& out = rep.addSection("Results", true);
    for (size_t i = 0; i < s.components.size(); ++i) {
        const BhComponent& c = s.components[i];
        out.fields.push_back({"Group " + std::to_string(i + 1) + ":",
                              "mean " + Format(c.mean, "0.00") + ", S.D. " + Format(c.sd, "0.00") +
                                  ", population " + Format(c.population, "0") + ", S.I. " +
                                  (c.si ? Format(*c.si, "0.00") : std::string(kBhNotAvailable))});
    }
    return rep;
}

ReportDescriptor NormsepReport(const LfqData& data, int sample, const NormsepResult& r,
                               std::time_t when) {
    auto rep = MakeReport("frmOutNORMSEP_Simplex", kNsReportTitle, data.speciesname, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", data.path});
    in.fields.push_back({"Species:", data.speciesname});
    in.fields.push_back({"Identifiers:", data.otherId});
    in.fields.push_back({"Sample:", std::to_string(sample)});
    auto& out = rep.addSection("Results", true);
    for (size_t i = 0; i < r.components.size(); ++i) {
        const NsComponent& c = r.components[i];
        out.fields.push_back({"Group " + std::to_string(i + 1) + ":",
                              "mean " + Format(c.mean, "0.00") + ", S.D. " + Format(c.sd, "0.00") +
                                  ", population " + Format(c.population, "0") + ", S.I. " +
                                  (c.si ? Format(*c.si, "0.00") : std::string("n.a."))});
    }
    out.fields.push_back(NumberField("-log likelihood:", r.fit.nll, "0.000"));
    return rep;
}

ReportDescriptor LinkingReport(const MsdData& msd, const LinkState& s, const LinkGrowth& g,
                               std::time_t when) {
    auto rep = MakeReport("frmOutLinking", kLkReportTitle, msd.header.speciesname, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", msd.header.path});
    in.fields.push_back({"Species:", msd.header.speciesname});
    in.fields.push_back({"Means:", std::to_string(s.points.size())});
    in.fields.push_back({"Links:", std::to_string(s.links.size())});
    auto& out = rep.addSection("Results", true);
    if (g.possible()) {
        out.fields.push_back(NumberField("Loo:", g.loo, "0.00"));
        out.fields.push_back(NumberField("K:", g.k, "0.000"));
    } else {
        out.fields.push_back({"Loo:", "-9999"});
        out.fields.push_back({"K:", "-9999"});
    }
    return rep;
}

}  // namespace norvo
