// norvo-cli pw FILE.lfq --first P [sample options] [--plot OUT]: Loo and Z/K from the
// Powell-Wetherall plot, fitted from point P to the top class with fish.
#include <filesystem>
#include <memory>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/plot_output.h"
#include "cli/sample_options.h"
#include "data/lfq_file.h"
#include "growth/powell_wetherall_plot.h"

namespace norvo::cli {
namespace {

struct PwCliOptions {
    std::string path;
    int first = 0;
    SampleCliOptions sample;
    std::string plot;
    bool force = false;
};

nlohmann::json Classes(const std::vector<float>& v, int last) {
    nlohmann::json a = nlohmann::json::array();
    for (int i = 1; i <= last && i < static_cast<int>(v.size()); ++i) a.push_back(v[i]);
    return a;
}

// OUT.png -> OUT_pseudo.png
std::string PseudoCatchPath(const std::string& path) {
    const std::filesystem::path p(path);
    return (p.parent_path() / (p.stem().string() + "_pseudo" + p.extension().string())).string();
}

void WritePlots(const PwCliOptions& o, const LfqData& data, const PowellWetherallData& d,
                const PowellWetherallFit& fit) {
    const std::string pseudo = PseudoCatchPath(o.plot);
    KeepExisting(o.plot, o.force);
    KeepExisting(pseudo, o.force);
    ChartCanvas pw, pc;
    DrawPowellWetherall(pw, d, data.unitOfMeasurement, fit.firstPoint, &fit);
    DrawPseudoCatch(pc, d, data.unitOfMeasurement, fit.firstPoint);
    for (const auto& [canvas, path] : {std::pair{&pw, o.plot}, {&pc, pseudo}})
        SavePlotOrRefuse(*canvas, path);
}

void RunPw(Context& ctx, const PwCliOptions& o) {
    const LfqData data = ctx.read(ReadLFQ(o.path));
    PowellWetherallOptions opt;
    opt.selected = SelectedSamples(o.sample, data.noOfSamples, kPwNoDataTitle);
    opt.transform = TransformOf(o.sample);
    opt.temporal = o.sample.temporal;
    const PowellWetherallData d = PowellWetherallMethod(data, opt);
    ctx.take(d);
    const PowellWetherallFit fit = PowellWetherallFitFrom(d, o.first);
    ctx.take(fit);
    if (!o.plot.empty()) WritePlots(o, data, d, fit);

    const std::string function = PwFunctionText(Format(fit.a, "0.00"), Format(fit.b, "0.000"));
    if (ctx.json) {
        auto orNull = [](const std::optional<double>& v) {
            return v ? nlohmann::json(*v) : nlohmann::json(nullptr);
        };
        nlohmann::json j = {{"last_class", d.lastClass},
                            {"cumf", Classes(d.cumF, d.lastClass)},
                            {"cutoff", Classes(d.cutOff, d.lastClass)},
                            {"mean_above", Classes(d.meanAbove, d.lastClass)}};
        j["fit"] = {
            {"a", fit.a},
            {"b", fit.b},
            {"r", fit.r},
            {"loo", orNull(fit.loo)},
            {"zk", orNull(fit.zk)},
            {"zk_text", fit.zkUndefined() ? nlohmann::json(kPwZkUndefined) : nullptr},
            {"notice", fit.positiveSlope() ? nlohmann::json(kPwPositiveSlopeText) : nullptr},
            {"function", function}};
        ctx.print(j);
        return;
    }
    std::cout << "Class  L'  Mean L - L'  CumF\n";
    for (int i = 1; i <= d.lastClass; ++i)
        std::cout << (i >= fit.firstPoint ? "* " : "  ") << i << "  " << Format(d.cutOff[i], "0.00")
                  << "  " << Format(d.meanAbove[i], "0.00") << "  " << Format(d.cumF[i], "0.00")
                  << "\n";
    std::cout << function << "\nr = " << Format(fit.r, "0.000") << "\n";
    if (fit.positiveSlope()) {
        std::cout << kPwPositiveSlopeText << "\n";
        return;
    }
    std::cout << "Loo = " << Format(*fit.loo, "0.00")
              << "\nZ/K = " << (fit.zk ? Format(*fit.zk, "0.000") : std::string(kPwZkUndefined))
              << "\n";
}

RegisterCommand register_pw{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<PwCliOptions>();
    auto* cmd = app.add_subcommand("pw", "Powell-Wetherall plot: Loo and Z/K from a file");
    cmd->add_option("FILE", o->path, "Grouped length-frequency file (.lfq)")->required();
    cmd->add_option("--first", o->first, "First point of the fit (a class number)")->required();
    AddSampleOptions(cmd, o->sample);
    cmd->add_option("--plot", o->plot,
                    "Write the plot here and the pseudo-catch curve beside it (_pseudo)");
    cmd->add_flag("--force", o->force, "Replace the plot files when they exist");
    cmd->callback([&ctx, o] { RunPw(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
