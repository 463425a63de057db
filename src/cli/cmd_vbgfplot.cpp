// norvo-cli vbgfplot FILE.lfq --loo L --k K [--c C --wp WP] --ss S --sl L --plot OUT: the
// samples as sideways bars on their dates with the growth curves through the starting point.
#include <memory>
#include <optional>
#include <string>

#include "base/fault.h"
#include "cli/cli_support.h"
#include "cli/cmd_elefan.h"
#include "cli/plot_output.h"
#include "data/lfq_file.h"
#include "growth/vbgf_plot.h"
#include "numerics/text_convert.h"

namespace norvo::cli {
namespace {

// The parameters as typed: an empty text is 0, a text that is not a number is refused by the
// parameter's own check.
std::optional<double> ParameterNumber(const std::string& text) {
    if (text.find_first_not_of(' ') == std::string::npos) return 0.0;
    double v = 0;
    try {
        if (ParseNumber(text, v)) return v;
    } catch (const Fault&) {
        // beyond the range of a double: not a number either
    }
    return std::nullopt;
}

struct VbgfPlotOptions {
    std::string path;
    std::string loo, k, c = "0", wp = "0", ss, sl;
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
    const LfqData data = ctx.read(ReadLFQ(o.path));
    const CurveInputs in{ParameterNumber(o.loo), ParameterNumber(o.k),  ParameterNumber(o.c),
                         ParameterNumber(o.wp),  ParameterNumber(o.ss), ParameterNumber(o.sl)};
    const CurveCheck check = CheckCurveInputs(in, data);
    ctx.take(check);

    HistoOptions h;
    h.restructured = o.restructured;
    h.displayAll = o.displayAll;
    h.solid = !o.hollow;
    h.scrollDay = o.scroll;
    std::vector<std::vector<double>> points;
    if (o.restructured) points = RestructureData(data);
    ChartCanvas canvas(o.width, o.height);
    const PlotLayout layout = PlotHisto(canvas, data, h, o.restructured ? &points : nullptr);
    const CurveTable table = ComputePoints(data, check.params);
    if (!o.noCurve) PlotCurve(canvas, layout, table, kRed);
    SavePlotOrRefuse(canvas, o.plot, o.width, o.height);

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

RegisterCommand register_vbgfplot{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<VbgfPlotOptions>();
    auto* cmd = app.add_subcommand(
        "vbgfplot", "Plot the samples of a grouped file with the growth curves across them");
    cmd->add_option("file", o->path, "Grouped length-frequency file (.lfq)")->required();
    cmd->add_option("--loo", o->loo, "Asymptotic length")->required();
    cmd->add_option("--k", o->k, "Growth constant K")->required();
    cmd->add_option("--c", o->c, "Amplitude of oscillation C (0 to 1)");
    cmd->add_option("--wp", o->wp, "Winter point WP (0 to 1)");
    cmd->add_option("--ss", o->ss, "Starting sample (from 1)")->required();
    cmd->add_option("--sl", o->sl, "Starting length")->required();
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
