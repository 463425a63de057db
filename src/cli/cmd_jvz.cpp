// norvo-cli jvz FILE.lfq --loo L --k K --points A:B [sample options] [--plot OUT]: Z/K from the
// Jones and van Zalinge plot fitted over classes A to B.
#include <memory>
#include <sstream>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/plot_output.h"
#include "cli/sample_options.h"
#include "data/lfq_file.h"
#include "mortality/jones_van_zalinge_plot.h"

namespace norvo::cli {
namespace {

struct JvzCliOptions {
    std::string path;
    double loo = 0, k = 0;
    std::string points;
    SampleCliOptions sample;
    std::string plot;
    bool force = false;
};

nlohmann::json Classes(const std::vector<float>& v, int last) {
    nlohmann::json a = nlohmann::json::array();
    for (int i = 1; i <= last && i < static_cast<int>(v.size()); ++i) a.push_back(v[i]);
    return a;
}

nlohmann::json Slots(const RegressionResult& f) {
    using R = RegressionResult;
    return {{"n", f[R::kN]},         {"a", f[R::kA]},         {"b", f[R::kB]},
            {"seA", f[R::kSeA]},     {"seB", f[R::kSeB]},     {"aLow", f[R::kALow]},
            {"aHigh", f[R::kAHigh]}, {"bLow", f[R::kBLow]},   {"bHigh", f[R::kBHigh]},
            {"meanX", f[R::kMeanX]}, {"meanY", f[R::kMeanY]}, {"sdX", f[R::kSdX]},
            {"sdY", f[R::kSdY]},     {"r", f[R::kR]},         {"rLow", f[R::kRLow]},
            {"rHigh", f[R::kRHigh]}, {"F", f[R::kF]}};
}

PointRange ParsePoints(const std::string& text) {
    PointRange points;
    char colon = 0;
    std::istringstream in(text);
    if (!(in >> points.first >> colon >> points.last) || colon != ':' || !in.eof())
        throw CLI::ValidationError("--points", "expected FIRST:LAST");
    return points;
}

void RunJvz(Context& ctx, const JvzCliOptions& o) {
    JonesVanZalingeOptions opt;
    opt.loo = static_cast<float>(o.loo);
    opt.k = static_cast<float>(o.k);
    opt.points = ParsePoints(o.points);
    const LfqData data = ctx.read(ReadLFQ(o.path));
    opt.selected = SelectedSamples(o.sample, data.noOfSamples, kJvzNoDataTitle);
    opt.transform = TransformOf(o.sample);
    opt.temporal = o.sample.temporal;
    const JonesVanZalingeRun run = RunJonesVanZalinge(data, opt);
    ctx.take(run);
    if (!o.plot.empty()) {
        KeepExisting(o.plot, o.force);
        ChartCanvas canvas;
        DrawJonesVanZalinge(canvas, run);
        SavePlotOrRefuse(canvas, o.plot);
    }
    if (ctx.json) {
        ctx.print({{"usable", run.usable},
                   {"first", run.first},
                   {"last", run.last},
                   {"log_cum", Classes(run.logCum, run.usable)},
                   {"log_loo", Classes(run.logLoo, run.usable)},
                   {"regression", Slots(run.fit)},
                   {"zk", run.zk()},
                   {"zk_low", run.zkLow()},
                   {"zk_high", run.zkHigh()}});
        return;
    }
    std::cout << "Class  log(Loo - L)  log(Cum. Catch)\n";
    for (int i = 1; i <= run.usable; ++i)
        std::cout << (i >= run.first && i <= run.last ? "* " : "  ") << i << "  "
                  << Format(run.logLoo[i], "0.000") << "  " << Format(run.logCum[i], "0.000")
                  << "\n";
    std::cout << "Z/K = " << Format(run.zk(), "0.000") << " (" << Format(run.zkLow(), "0.000")
              << " to " << Format(run.zkHigh(), "0.000") << ")\n"
              << "a = " << Format(run.fit.a(), "0.000") << "  r = " << Format(run.fit.r(), "0.0000")
              << "\n";
}

RegisterCommand register_jvz{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<JvzCliOptions>();
    auto* cmd = app.add_subcommand("jvz", "Jones and van Zalinge plot: Z/K from a file");
    cmd->add_option("FILE", o->path, "Grouped length-frequency file (.lfq)")->required();
    cmd->add_option("--loo", o->loo, "Asymptotic length")->required();
    cmd->add_option("--k", o->k, "Growth constant K")->required();
    cmd->add_option("--points", o->points, "First and last class of the fit, FIRST:LAST")
        ->required();
    AddSampleOptions(cmd, o->sample);
    cmd->add_option("--plot", o->plot, "Write the plot here (.png .svg .bmp .pdf)");
    cmd->add_flag("--force", o->force, "Replace the plot file when it exists");
    cmd->callback([&ctx, o] { RunJvz(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
