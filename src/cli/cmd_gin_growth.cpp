// norvo-cli gulland|munro|fabens FILE.gin [--fixed-loo L] [--deselect 1,4] [--plot OUT]: growth
// parameters from tag-and-recapture increments.
#include <memory>
#include <optional>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/plot_output.h"
#include "data/sample_readers.h"
#include "growth/growth_increments.h"
#include "growth/increment_plots.h"

namespace norvo::cli {
namespace {

struct GinCliOptions {
    std::string path;
    std::optional<double> fixedLoo;
    std::vector<int> deselect;
    std::string plot;
};

// Row flags from the 1-based rows to leave out.
std::vector<bool> Flags(const GinData& data, const std::vector<int>& deselect) {
    std::vector<bool> flags(data.rows.size(), true);
    for (int row : deselect) {
        if (row < 1 || row > static_cast<int>(data.rows.size()))
            throw Refusal(kGinInvalidActionTitle,
                          "There is no row " + std::to_string(row) + " in the file.");
        flags[static_cast<size_t>(row - 1)] = false;
    }
    return flags;
}

std::optional<float> FixedLoo(const GinCliOptions& o) {
    if (!o.fixedLoo) return std::nullopt;
    return static_cast<float>(*o.fixedLoo);
}

nlohmann::json Regression(const RegressionResult& r) {
    static const char* names[] = {"n",     "a",    "b",     "seA",   "seB",   "aLow",
                                  "aHigh", "bLow", "bHigh", "meanX", "meanY", "sdX",
                                  "sdY",   "r",    "rLow",  "rHigh", "F"};
    nlohmann::json j = nlohmann::json::object();
    for (int i = 1; i <= RegressionResult::kSlots; ++i) j[names[i - 1]] = r[i];
    return j;
}

void RunGulland(Context& ctx, const GinCliOptions& o) {
    const GinData data = ctx.read(ReadGIN(o.path));
    GullandHoltOptions opt;
    opt.selected = Flags(data, o.deselect);
    opt.fixedLoo = FixedLoo(o);
    const GullandHoltResult r = GullandHolt(data.rows, opt);
    ctx.take(r);
    if (!o.plot.empty()) {
        ChartCanvas canvas;
        DrawRatePlot(canvas, RowRates(data.rows, false), r.selected, r.hasLine(), r.a, r.b,
                     data.header.unitOfMeasurement, kGhTitle);
        SavePlotOrRefuse(canvas, o.plot);
    }
    if (ctx.json) {
        nlohmann::json j = {{"n", r.n()}};
        if (r.noResult) {
            j["no_result"] = true;
            j["estimates"] = nullptr;
            ctx.print(j);
            throw CLI::RuntimeError(kExitRefused);
        }
        j["estimates"] = {{"Loo", r.loo}, {"K", r.k}};
        j["a"] = r.a;
        j["b"] = r.b;
        j["regression"] = Regression(r.regression);
        j["fixed_loo"] = r.fixedLoo ? nlohmann::json(*r.fixedLoo) : nlohmann::json(nullptr);
        j["seasonal"] = {{"C", r.seasonal.c},
                         {"winter_point", r.seasonal.winterPoint()},
                         {"text", r.seasonal.text}};
        ctx.print(j);
        return;
    }
    if (r.noResult) {
        std::cerr << kGhTooFewText << "\n";
        throw CLI::RuntimeError(kExitRefused);
    }
    std::cout << "Rows: " << r.n() << "\n"
              << "a = " << Format(r.a, "0.00000") << "  b = " << Format(r.b, "0.00000")
              << "  r = " << Format(r.regression.r(), "0.0000") << "\n"
              << "Loo = " << Format(r.loo, "0.00") << "  K = " << Format(r.k, "0.000") << "\n"
              << "C = " << Format(r.seasonal.c, "0.000")
              << "  WP = " << Format(r.seasonal.winterPoint(), "0.00") << " " << kWinterPointLabel
              << "\n"
              << r.seasonal.text << "\n";
}

void RunMunro(Context& ctx, const GinCliOptions& o) {
    const GinData data = ctx.read(ReadGIN(o.path));
    MunroOptions opt;
    opt.selected = Flags(data, o.deselect);
    opt.fixedLoo = FixedLoo(o);
    const MunroResult r = Munro(data.rows, opt);
    ctx.take(r);
    if (!o.plot.empty()) {
        ChartCanvas canvas;
        DrawRelativeAgePlot(canvas, data.rows, r.selected, r.loo, r.k,
                            data.header.unitOfMeasurement, kMunroReportTitle);
        SavePlotOrRefuse(canvas, o.plot);
    }
    if (ctx.json) {
        const auto& g = r.gh;
        ctx.print({{"estimates", {{"Loo", r.loo}, {"K", r.k}}},
                   {"n", static_cast<int>(r.rows.days.size())},
                   {"cv", r.estimate.cv},
                   {"m", r.estimate.m},
                   {"passes", r.passes},
                   {"Lmax", r.lmax},
                   {"gh_equivalent",
                    {{"a", g.a}, {"b", g.b}, {"Loo", g.loo}, {"K", g.k}, {"refused", !g.ok()}}}});
        return;
    }
    std::cout << "Lmax = " << Format(r.lmax, "0.00") << "  passes = " << r.passes << "\n"
              << "Loo = " << Format(r.loo, "0.00") << "  K = " << Format(r.k, "0.000")
              << "  CV = " << Format(r.estimate.cv, "0.0000") << " (" << r.estimate.m << " rows)\n";
    if (r.gh.hasLine())
        std::cout << "Gulland and Holt equivalent: Loo = " << Format(r.gh.loo, "0.00")
                  << "  K = " << Format(r.gh.k, "0.000") << "\n";
}

void RunFabens(Context& ctx, const GinCliOptions& o) {
    const GinData data = ctx.read(ReadGIN(o.path));
    FabensOptions opt;
    opt.selected = Flags(data, o.deselect);
    opt.fixedLoo = FixedLoo(o);
    const FabensResult r = Fabens(data.rows, opt);
    ctx.take(r);
    if (!o.plot.empty()) {
        ChartCanvas canvas;
        const bool curve = r.aboveLoo < static_cast<int>(r.data.l2.size());
        DrawRelativeAgePlot(canvas, data.rows, r.selected, curve ? r.loo : 0, r.k,
                            data.header.unitOfMeasurement, kFabensTitle);
        SavePlotOrRefuse(canvas, o.plot);
    }
    if (ctx.json) {
        ctx.print({{"estimates", {{"Loo", r.loo}, {"K", r.k}}},
                   {"n", static_cast<int>(r.data.dt.size())},
                   {"iterations", r.iterations},
                   {"converged", r.converged},
                   {"above_loo", r.aboveLoo},
                   {"start", {{"K", r.startK}, {"Loo", r.startLoo}}}});
        return;
    }
    for (const auto& n : r.notices) std::cout << n.text << "\n";
    std::cout << "Start: Loo = " << Format(r.startLoo, "0.00")
              << "  K = " << Format(r.startK, "0.000") << "\n"
              << "Loo = " << Format(r.loo, "0.00") << "  K = " << Format(r.k, "0.000")
              << "  iterations = " << r.iterations << (r.converged ? "" : " (not converged)")
              << "\n";
}

void AddCommand(CLI::App& app, Context& ctx, const char* name, const char* about,
                void (*run)(Context&, const GinCliOptions&), const char* plotAbout) {
    auto o = std::make_shared<GinCliOptions>();
    auto* cmd = app.add_subcommand(name, about);
    cmd->add_option("FILE", o->path, "Growth increment file (.gin)")->required();
    cmd->add_option("--fixed-loo", o->fixedLoo, "Hold Loo at this value");
    cmd->add_option("--deselect", o->deselect, "Rows to leave out (1-based)")->delimiter(',');
    cmd->add_option("--plot", o->plot, plotAbout);
    cmd->callback([&ctx, o, run] { run(ctx, *o); });
}

RegisterCommand register_gin_growth{[](CLI::App& app, Context& ctx) {
    AddCommand(app, ctx, "gulland", "Gulland and Holt plot: Loo and K from growth increments",
               RunGulland, "Write the rate plot (.png, .svg, .bmp, .pdf)");
    AddCommand(app, ctx, "munro", "Munro's method: the Loo at which the K of the fish agree",
               RunMunro, "Write the relative-age plot (.png, .svg, .bmp, .pdf)");
    AddCommand(app, ctx, "fabens", "Fabens' method: Loo and K by least squares", RunFabens,
               "Write the relative-age plot (.png, .svg, .bmp, .pdf)");
}};

}  // namespace
}  // namespace norvo::cli
