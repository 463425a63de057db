// norvo-cli laa FILE.laa [--constraints '...'] [--weights yes|no] [--plot OUT]: the von
// Bertalanffy curve fitted to a length-at-age file.
#include <memory>

#include "base/format.h"
#include "cli/growth_fit_cli.h"
#include "cli/plot_output.h"
#include "growth/growth_fit_plot.h"

namespace norvo::cli {
namespace {

struct LaaCliOptions {
    std::string path;
    std::string constraints;
    std::string weights = "yes";
    std::string plot;
};

void RunLaa(Context& ctx, const LaaCliOptions& o) {
    CheckPlotPath(o.plot, o.path);
    const LaaData data = ctx.read(ReadLAA(o.path));
    LaaOptions opt;
    opt.constraints = DefaultLaaConstraints(data);
    ParseConstraints(o.constraints, kLaaParamNames, opt.constraints);
    opt.useWeights = o.weights == "yes";
    const LaaRun run = ComputeLAA(data, opt);
    ctx.take(run);

    if (!o.plot.empty()) {
        ChartCanvas canvas(800, 600);
        DrawLaaFit(canvas, data, run);
        SavePlotOrRefuse(canvas, o.plot);
    }
    if (ctx.json) {
        nlohmann::json j = {{"model", run.model}, {"n_obs", run.table.size()}};
        AddFitJson(j, run.names, run.fit, run.remarks);
        nlohmann::json c = nlohmann::json::object();
        for (int p = 0; p < kLaaParams; ++p)
            c[kLaaParamNames[p]] = ConstraintJson(opt.constraints[p]);
        j["constraints"] = c;
        j["weights"] = {{"asked", run.weights.asked},
                        {"times10", run.weights.times10},
                        {"repetitions", run.weights.repetitions},
                        {"age_divisor", run.weights.ageDivisor}};
        if (!o.plot.empty()) j["plot"] = o.plot;
        ctx.print(j);
        return;
    }
    std::cout << kLaaReportTitle << "\n"
              << SpeciesTitle(data.header) << "\n"
              << "Model " << run.model << ", " << run.table.size() << " observations\n";
    PrintFit(run.names, run.fit, run.remarks);
    if (!o.plot.empty()) std::cout << kGraphicSavedPrefix << o.plot << ".\n";
}

RegisterCommand register_laa{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<LaaCliOptions>();
    auto* cmd = app.add_subcommand("laa", "Fit the growth curve to a length-at-age file");
    cmd->add_option("FILE", o->path, "Length-at-age file (.laa)")->required();
    cmd->add_option("--constraints", o->constraints,
                    "Rows changed from the defaults: 'Loo=min,start,max K=... t0=... C=... "
                    "WP=...'; equal minimum and maximum fix a parameter");
    cmd->add_option("--weights", o->weights, "Use the weighting factors: yes (default) or no")
        ->check(CLI::IsMember({"yes", "no"}));
    cmd->add_option("--plot", o->plot, "Write the plot (.png, .bmp, .svg or .pdf)");
    cmd->callback([&ctx, o] { RunLaa(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
