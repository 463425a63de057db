// norvo-cli appeldoorn FILE.gin [--constraints '...'] [--plot OUT]: Appeldoorn's seasonal
// growth curve fitted to tag-and-recapture increments.
#include <memory>

#include "base/format.h"
#include "cli/growth_fit_cli.h"
#include "cli/plot_output.h"
#include "growth/growth_fit_plot.h"

namespace norvo::cli {
namespace {

struct AppeldoornCliOptions {
    std::string path;
    std::string constraints;
    std::string plot;
};

void RunAppeldoornCommand(Context& ctx, const AppeldoornCliOptions& o) {
    CheckPlotPath(o.plot, o.path);
    const GinData data = ctx.read(ReadGIN(o.path));
    AppeldoornOptions opt;
    opt.constraints = DefaultAppeldoornConstraints(data);
    ParseConstraints(o.constraints, kApParamNames, opt.constraints);
    const AppeldoornRun run = RunAppeldoorn(data, opt);
    for (const UserNotice& n : run.notices) ctx.dialogs.notify(n);
    // The count refusal is followed by the closing notice; the refusal is the first notice.
    if (!run.ok()) throw Refusal(run.notices.front().title, run.notices.front().text);

    if (!o.plot.empty()) {
        ChartCanvas canvas(800, 600);
        DrawAppeldoornCurve(canvas, data, run);
        SavePlotOrRefuse(canvas, o.plot);
    }
    const std::vector<std::string> names(kApParamNames.begin(), kApParamNames.end());
    if (ctx.json) {
        nlohmann::json j = {{"model", kMarquardtAppeldoorn}, {"n_obs", run.table.size()}};
        AddFitJson(j, names, run.fit, run.remarks);
        nlohmann::json c = nlohmann::json::object(), cv = c;
        for (size_t p = 0; p < kApParams; ++p) {
            c[kApParamNames[p]] = ConstraintJson(opt.constraints[p]);
            cv[kApParamNames[p]] = run.cv[p] ? nlohmann::json(*run.cv[p]) : nlohmann::json(nullptr);
        }
        j["constraints"] = c;
        j["cv"] = cv;
        if (!o.plot.empty()) j["plot"] = o.plot;
        ctx.print(j);
        return;
    }
    std::cout << kApReportTitle << "\n"
              << SpeciesTitle(data.header) << "\n"
              << run.table.size() << " tagged fish\n";
    PrintFit(names, run.fit, run.remarks);
    for (size_t p = 0; p < kApParams; ++p)
        std::cout << "C.V. " << kApParamNames[p] << "  "
                  << (run.cv[p] ? Format(*run.cv[p], "#0.0000") : std::string(kGrowthFitNa))
                  << "\n";
    for (const UserNotice& n : run.notices) std::cout << n.text << "\n";
    if (!o.plot.empty()) std::cout << kGraphicSavedPrefix << o.plot << ".\n";
}

RegisterCommand register_appeldoorn{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<AppeldoornCliOptions>();
    auto* cmd = app.add_subcommand("appeldoorn", "Appeldoorn's method on growth increments");
    cmd->add_option("FILE", o->path, "Growth increment file (.gin)")->required();
    cmd->add_option("--constraints", o->constraints,
                    "Rows changed from the defaults: 'Loo=min,start,max K=... C=... WP=...'; "
                    "equal minimum and maximum fix a parameter");
    cmd->add_option("--plot", o->plot, "Write the plot (.png, .bmp, .svg or .pdf)");
    cmd->callback([&ctx, o] { RunAppeldoornCommand(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
