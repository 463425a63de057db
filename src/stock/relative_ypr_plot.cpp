#include "stock/relative_ypr_plot.h"

#include "base/format.h"
#include "chart/kind_a.h"
#include "chart/rotated_text.h"

namespace norvo {

namespace {

constexpr double kYAxisX = 40;
constexpr double kBAxisX = 20;
constexpr double kRight = 95;

void DashedMark(ChartCanvas& canvas, double e, double y, Colour colour) {
    const double x = YprX(e);
    canvas.Line(kYAxisX, y, x, y, colour);
    canvas.Line(x, y, x, kFrameBottom, colour);
}

}  // namespace

double YprX(double e) {
    return kYAxisX + 55 * e;
}
double YprYieldY(double y, float yPrimeMax) {
    const double top = yPrimeMax > 0 ? double(yPrimeMax) : 1.0;
    return kFrameBottom - y * 70 / top;
}
double YprBiomassY(double b) {
    return kFrameBottom - b * 70;
}

void DrawYprPlot(ChartCanvas& canvas, const YprPlotData& d) {
    BeginPercentCanvas(canvas);
    canvas.Line(kYAxisX, kFrameBottom, kRight, kFrameBottom, kBlack);
    canvas.Line(kYAxisX, kFrameBottom, kYAxisX, kFrameTop, kBlack);
    canvas.Line(kBAxisX, kFrameBottom, kBAxisX, kFrameTop, kBlack);
    DrawRotatedText(canvas, kYr2DYieldTitle, 900, kKindALabelSize, 25, 70);
    DrawRotatedText(canvas, kYr2DBiomassTitle, 900, kKindALabelSize, 5, 75);
    DrawRotatedText(canvas, kYrEAxis, 0, kKindALabelSize, 55, kXTitleY);

    for (double e = 0; e < 1.1; e += 0.2) {
        const double x = YprX(e);
        canvas.Line(x, kFrameBottom, x, kFrameBottom + 1, kBlack);
        DrawRotatedText(canvas, Format(e, "0.0"), 0, kKindALabelSize, x - 2, 86);
    }
    for (double b = 0; b < 1.1; b += 0.25) {
        const double y = YprBiomassY(b);
        canvas.Line(kBAxisX - 1, y, kBAxisX, y, kBlack);
        canvas.SetForeColour(b == 0.5 ? kRed : kBlack);
        DrawRotatedText(canvas, Format(b, "0.00"), 0, kKindALabelSize, 13, y - 2);
    }
    canvas.SetForeColour(kBlack);
    const double top = d.yPrimeMax > 0 ? double(d.yPrimeMax) : 1.0;
    for (int k = 0; k <= 6; ++k) {
        const double v = top * k / 6;
        const double y = YprYieldY(v, d.yPrimeMax);
        canvas.Line(kYAxisX - 1, y, kYAxisX, y, kBlack);
        DrawRotatedText(canvas, Format(v, "0.00"), 0, kKindALabelSize, 33, y - 2);
    }

    canvas.SetPen(PenStyle::Solid, 2);
    std::vector<UserPoint> yCurve{{kYAxisX, kFrameBottom}};
    for (const auto& p : d.curveY) yCurve.push_back({YprX(p.e), YprYieldY(p.value, d.yPrimeMax)});
    canvas.Polyline(yCurve, kBlack);
    std::vector<UserPoint> bCurve;
    for (const auto& p : d.curveB) bCurve.push_back({YprX(p.e), YprBiomassY(p.value)});
    canvas.Polyline(bCurve, kBlack);

    canvas.SetPen(PenStyle::Dashed, 1);
    DashedMark(canvas, d.e10, YprYieldY(d.yAtE10, d.yPrimeMax), kGreen);
    DashedMark(canvas, d.e50, YprBiomassY(d.bAtE50), kRed);
    DashedMark(canvas, d.eMax, YprYieldY(d.yAtEmax, d.yPrimeMax), kYellow);
    canvas.SetPen(PenStyle::Solid, 1);
}

SurfaceStyle YprSurfaceStyle(bool ogive, bool biomass) {
    SurfaceStyle s;
    if (ogive) {
        s.title = biomass ? kYrOgiveBiomassTitle : kYrOgiveYieldTitle;
        s.yTitle = kYrL50LooAxis;
    } else {
        s.title = biomass ? kYrKnifeBiomassTitle : kYrKnifeYieldTitle;
        s.yTitle = kYrLcLooAxis;
    }
    s.xTitle = kYrEAxis;
    s.zTitle = biomass ? kYrBiomassAxis : kYrYieldAxis;
    s.zFormat = "0.000";
    return s;
}

SurfaceGrid YprSurfaceGrid(const std::vector<SurfaceRow>& rows) {
    SurfaceGrid g;
    for (const auto& r : rows) g.z.push_back(r.values);
    return g;
}

ReportDescriptor Ypr2DReport(const Ypr2DReportInput& in, std::time_t when) {
    ReportDescriptor r = MakeReport("frmOut2DYR", in.title, "", when);
    auto& data = r.addSection("Input", false);
    data.fields.push_back(NumberField(in.ratioCaption, in.ratio, "#0.000"));
    data.fields.push_back(NumberField("M/K :", in.mk, "#0.000"));
    if (in.loo) data.fields.push_back(NumberField("Loo :", *in.loo, "#0.00"));
    auto& points = r.addSection("Reference points", true);
    points.fields.push_back(NumberField("E-max :", in.eMax, "#0.000"));
    points.fields.push_back(NumberField("E-10 :", in.e10, "#0.000"));
    points.fields.push_back(NumberField("E-50 :", in.e50, "#0.000"));
    auto& table = r.addSection("E        Y'/R      B'/R", true);
    for (auto it = in.rows.rbegin(); it != in.rows.rend(); ++it)
        table.fields.push_back(
            {Format(it->e, "0.00"), Format(it->y, "#0.000") + "     " + Format(it->b, "#0.000")});
    return r;
}

ReportDescriptor Ypr3DReport(const std::string& title, double mk, std::time_t when) {
    ReportDescriptor r = MakeReport("frmOut3DYR", title, "", when);
    r.addSection("Input", false).fields.push_back(NumberField("M/K :", mk, "#0.00"));
    return r;
}

}  // namespace norvo
