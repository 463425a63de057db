// norvo-cli vbgfplot FILE.lfq --loo L --k K [--c C --wp WP] --ss S --sl L --plot OUT: the
// samples as sideways bars on their dates with the growth curves through the starting point.
#include <memory>
#include <string>

#include "cli/cli_support.h"
#include "data/lfq_file.h"
#include "growth/vbgf_plot.h"
#include "plot/render/canvas_renderer.h"

namespace norvo::cli {
namespace {

struct VbgfPlotOptions {
    std::string path;
    CurveInputs in{"", "", "0", "0", "", ""};
    bool restructured = false;
    bool displayAll = false;
    bool hollow = false;
    bool noCurve = false;
    double scroll = 0;
    std::string plot;
    int width = 800;
    int height = 600;
};

void RunVbgfPlot(Context& ctx, const VbgfPlotOptions& o) {
    ctx.session.readLfq(o.path, ctx.dialogs);
    if (ctx.session.fileReadFailed) ctx.refuseWithLastNotice();
    const LfqData& data = ctx.session.lfqData;
    const auto p = CheckCurveInputs(o.in, data, ctx.dialogs);
    if (!p) ctx.refuseWithLastNotice();

    HistoOptions h;
    h.restructured = o.restructured;
    h.displayAll = o.displayAll;
    h.solid = !o.hollow;
    h.scrollDay = o.scroll;
    std::vector<std::vector<double>> points;
    if (o.restructured) points = RestructureData(data);
    ChartCanvas canvas(o.width, o.height);
    const PlotLayout layout = PlotHisto(canvas, data, h, o.restructured ? &points : nullptr);
    const CurveTable table = ComputePoints(data, *p);
    if (!o.noCurve) PlotCurve(canvas, layout, table, kRed);
    if (!SavePlot(canvas, o.plot, o.width, o.height))
        throw Refusal("Plot Not Saved", "The plot could not be written to " + o.plot + ".");

    if (ctx.json) {
        nlohmann::json cohorts = nlohmann::json::array();
        for (int c = 0; c < table.cohorts; ++c) {
            nlohmann::json pts = nlohmann::json::array();
            for (int j = 0; j < table.points[static_cast<size_t>(c)]; ++j)
                pts.push_back({table.day[static_cast<size_t>(c)][static_cast<size_t>(j)],
                               table.length[static_cast<size_t>(c)][static_cast<size_t>(j)]});
            cohorts.push_back(pts);
        }
        ctx.print({{"plot", o.plot},
                   {"zoom", layout.zoom},
                   {"scrollMax", ScrollRangeDays(data)},
                   {"cohorts", cohorts}});
    } else {
        std::cout << "Cohorts drawn: " << table.cohorts << "\n";
        std::cout << "The graphic output was saved in " << o.plot << ".\n";
    }
}

RegisterCommand reg{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<VbgfPlotOptions>();
    auto* cmd = app.add_subcommand(
        "vbgfplot", "Plot the samples of a grouped file with the growth curves across them");
    cmd->add_option("file", o->path, "Grouped length-frequency file (.lfq)")->required();
    cmd->add_option("--loo", o->in.loo, "Asymptotic length")->required();
    cmd->add_option("--k", o->in.k, "Growth constant K")->required();
    cmd->add_option("--c", o->in.c, "Amplitude of oscillation C (0 to 1)");
    cmd->add_option("--wp", o->in.wp, "Winter point WP (0 to 1)");
    cmd->add_option("--ss", o->in.ss, "Starting sample (from 1)")->required();
    cmd->add_option("--sl", o->in.sl, "Starting length")->required();
    cmd->add_flag("--restructured", o->restructured, "Bars of the restructured frequencies");
    cmd->add_flag("--display-all", o->displayAll, "Fit the whole time axis in the window");
    cmd->add_flag("--hollow", o->hollow, "Outlined bars instead of solid ones");
    cmd->add_flag("--no-curve", o->noCurve, "Bars only");
    cmd->add_option("--scroll", o->scroll, "First day of the 200-day window");
    cmd->add_option("--plot", o->plot, "Output picture: .png, .bmp, .svg or .pdf")->required();
    cmd->add_option("--width", o->width, "Width in pixels")->check(CLI::Range(16, 10000));
    cmd->add_option("--height", o->height, "Height in pixels")->check(CLI::Range(16, 10000));
    cmd->callback([o, &ctx] { RunVbgfPlot(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
