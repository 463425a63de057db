#include "selection/recruitment_plot.h"

#include <algorithm>

#include "base/basic.h"
#include "base/format.h"
#include "chart/kind_a.h"
#include "chart/rotated_text.h"

namespace norvo {

namespace {

constexpr Colour kBar = Rgb(0, 128, 128);
constexpr Colour kGroupColours[] = {kRed, Rgb(0, 0, 200)};
constexpr double kLeft = 15, kRight = 95, kBottom = 85, kTop = 10, kHeight = 75;

}  // namespace

double RecruitmentTop(const RecruitmentResult& run) {
    float top = 0;
    for (int p = 1; p <= 12; ++p) top = std::max(top, run.pattern[p]);
    return (Int(top / 10) + 1) * 10;
}

void DrawRecruitment(ChartCanvas& canvas, const RecruitmentResult& run) {
    const double top = RecruitmentTop(run), yScale = kHeight / top;
    BeginPercentCanvas(canvas);
    canvas.Line(kLeft, kBottom, kRight, kBottom, kBlack);
    canvas.Line(kLeft, kBottom, kLeft, kTop, kBlack);
    for (double y = 0; y <= top + 1e-9; y += 10) {
        const double v = kBottom - y * yScale;
        canvas.Line(kLeft - 1, v, kLeft, v, kBlack);
        DrawRotatedText(canvas, Format(y, "0"), 0, kKindALabelSize, kLeft - 5, v - 2);
    }
    for (int p = 1; p <= 12; ++p) {
        const double x0 = RecruitmentX(p) - kRcBarWidth / 2, x1 = x0 + kRcBarWidth;
        const double h = run.pattern[p] * yScale;
        if (h > 0) {
            canvas.FilledBox(x0, kBottom - h, x1, kBottom, kBar);
            canvas.Box(x0, kBottom - h, x1, kBottom, kBlack);
        }
        DrawRotatedText(canvas, run.labels[p].substr(0, 1), 0, kKindALabelSize,
                        RecruitmentX(p) - 0.8, kBottom + 1);
    }
    DrawRotatedText(canvas, kRcXTitle, 0, kKindALabelSize, 50, 90);
    DrawRotatedText(canvas, kRcYTitle, 900, kKindALabelSize, 2, 65);
}

void DrawRecruitmentGroups(ChartCanvas& canvas, const RecruitmentResult& run,
                           const RecruitmentGroupsResult& groups) {
    const double yScale = kHeight / RecruitmentTop(run);
    canvas.SetPen(PenStyle::Solid, 2);
    for (size_t g = 0; g < groups.groups.size(); ++g) {
        std::vector<UserPoint> line;
        for (int k = 0; k <= 120; ++k) {
            const double position = 0.5 + k / 10.0;
            const double y =
                std::max(kTop, kBottom - groups.curve(static_cast<int>(g), position) * yScale);
            line.push_back({RecruitmentX(position), y});
        }
        canvas.Polyline(line, kGroupColours[g]);
    }
    canvas.SetPen(PenStyle::Solid, 1);
}

ReportDescriptor RecruitmentReport(const LfqData& source, const GrowthParams& growth,
                                   const RecruitmentResult& run,
                                   const RecruitmentGroupsResult* groups, std::time_t when) {
    auto rep = MakeReport("frmOutRecruit", kRcReportTitle, source.speciesname, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", source.path});
    in.fields.push_back({"Species:", source.speciesname});
    in.fields.push_back({"Identifiers:", source.otherId});
    in.fields.push_back(NumberField("Loo:", growth.loo, "0.00"));
    in.fields.push_back(NumberField("K:", growth.k, "0.000"));
    in.fields.push_back(NumberField("C:", growth.c, "0.00"));
    in.fields.push_back(NumberField("WP:", growth.wp, "0.00"));
    in.fields.push_back(NumberField("t0:", growth.t0, "0.00"));
    auto& out = rep.addSection(kRcPercentColumn, true);
    for (int p = 1; p <= 12; ++p)
        out.fields.push_back(NumberField(run.labels[p] + ":", run.pattern[p], "0.00"));
    if (groups)
        for (size_t g = 0; g < groups->groups.size(); ++g) {
            const auto& q = groups->groups[g];
            const std::string n = "Group " + std::to_string(g + 1);
            out.fields.push_back(NumberField(n + " mean:", q.mean, "0.00"));
            out.fields.push_back(NumberField(n + " SD:", q.sd, "0.00"));
            out.fields.push_back(NumberField(n + " proportion:", q.proportion, "0.000"));
        }
    return rep;
}

}  // namespace norvo
