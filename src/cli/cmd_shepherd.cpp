// norvo-cli shepherd score | kscan | surface: Shepherd's method on a grouped length-frequency
// file.
//   shepherd score FILE --loo L --k K
//   shepherd kscan FILE --loo L [--plot OUT [--force]]
//   shepherd surface FILE --loo FROM:TO --k FROM:TO [--plot OUT [--force]]
#include <iomanip>
#include <memory>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/cmd_elefan.h"
#include "cli/growth_fit_cli.h"
#include "cli/plot_output.h"
#include "data/lfq_file.h"
#include "growth/elefan_search_plot.h"
#include "growth/shepherd_report.h"
#include "growth/shepherd_search.h"

namespace norvo::cli {
namespace {

struct ShepherdCommon {
    std::string path;
    int threads = 0;
    std::string plot;
    bool force = false;
};

// Checks the plot path before any work, so that a refused plot costs no run.
void CheckPlot(const ShepherdCommon& o) {
    CheckPlotPath(o.plot, o.path);
    if (!o.plot.empty()) KeepExisting(o.plot, o.force);
}

LfqData ReadShepherdFile(Context& ctx, const std::string& path) {
    LfqData data = ctx.read(ReadLFQ(path));
    ctx.take(CheckShepherdFile(data));
    return data;
}

struct ShepherdLoaded {
    std::unique_ptr<ShepherdScorer> scorer;
    std::unique_ptr<ParallelRn> rn;
};

ShepherdLoaded Load(Context& ctx, const ShepherdCommon& o) {
    ShepherdLoaded l;
    l.scorer = std::make_unique<ShepherdScorer>(ShepherdDataOf(ReadShepherdFile(ctx, o.path)));
    l.rn =
        std::make_unique<ParallelRn>(*l.scorer, o.threads > 0 ? o.threads : DefaultSearchThreads());
    return l;
}

nlohmann::json OptionalJson(const std::optional<float>& v) {
    return v ? nlohmann::json(Shortest(*v)) : nlohmann::json(nullptr);
}

// ---- score ---------------------------------------------------------------------------------

struct ScoreOptions {
    std::string path;
    float loo = 0, k = 0;
};

void RunScore(Context& ctx, const ScoreOptions& o) {
    ctx.take(CheckShepherdLoo(o.loo));
    const ShepherdData d = ShepherdDataOf(ReadShepherdFile(ctx, o.path));
    const ShepherdScoreParts p = ShepherdScoreOf(d, o.loo, o.k);
    if (ctx.json) {
        ctx.print({{"score", Shortest(p.score)}, {"s1", p.s1}, {"s2", p.s2}});
        return;
    }
    std::cout << "S(phase 0): " << Format(p.s1, "0.0000") << "\n"
              << "S(phase 0.25): " << Format(p.s2, "0.0000") << "\n"
              << "Score: " << Format(p.score, "0.000") << "\n";
}

// ---- kscan ---------------------------------------------------------------------------------

struct KScanOptions : ShepherdCommon {
    float loo = 0;
};

void RunKScan(Context& ctx, const KScanOptions& o) {
    ctx.take(CheckShepherdLoo(o.loo));
    CheckPlot(o);
    ShepherdLoaded l = Load(ctx, o);
    CliSink sink("K-scan");
    const ShepherdKScanResult r = Finished(ShepherdKScan(*l.rn, l.scorer->data(), o.loo, sink));
    const KScanTable& t = r.scan.table;
    if (!o.plot.empty()) {
        ChartCanvas canvas;
        DrawKScanFrame(canvas, o.loo);
        DrawKScanLine(canvas, t, r.scan.columns, ShepherdPlotScale(t, r.scan.columns));
        SavePlotOrRefuse(canvas, o.plot);
    }
    if (ctx.json) {
        nlohmann::json rows = nlohmann::json::array();
        for (int c = 1; c <= r.scan.columns; ++c)
            rows.push_back({{"k", Shortest(t[2][c])}, {"score", Shortest(t[1][c])}});
        ctx.print({{"kscan", {{"rows", rows}, {"best_col", r.best.column}}},
                   {"start_length", OptionalJson(r.best.startLength)}});
        return;
    }
    std::cout << std::left << std::setw(8) << "K"
              << "Score\n";
    for (int c = 1; c <= r.scan.columns; ++c)
        std::cout << std::setw(8) << Format(t[2][c], "0.00") << Format(t[1][c], "0.000") << "\n";
    const auto texts = ShepherdBestTexts(r.best);
    std::cout << kShepherdResultsHeading << ":";
    for (size_t i = 0; i < texts.size(); ++i)
        std::cout << "  " << kShepherdResultLabels[i] << " " << texts[i];
    std::cout << "\n";
}

// ---- surface -------------------------------------------------------------------------------

struct SurfaceOptions : ShepherdCommon {
    std::string loo, k;
};

void RunSurface(Context& ctx, const SurfaceOptions& o) {
    const auto [looFrom, looTo] = ParsePair(o.loo, "--loo");
    const auto [kFrom, kTo] = ParsePair(o.k, "--k");
    ctx.take(CheckShepherdSurface(looFrom, looTo));
    CheckPlot(o);
    ShepherdLoaded l = Load(ctx, o);
    CliSink sink("Response surface");
    // A fresh screen's K is 1: what a K range of one value scores in the first pass.
    const SurfaceResult r = Finished(ShepherdSurface(*l.rn, kFrom, kTo, looFrom, looTo, 1, sink));
    if (!o.plot.empty()) {
        ChartCanvas canvas;
        DrawSurfaceHeatMap(canvas, r);
        SavePlotOrRefuse(canvas, o.plot);
    }
    PrintSurface(ctx, r);
}

void AddCommon(CLI::App* cmd, ShepherdCommon& o) {
    cmd->add_option("FILE", o.path, "Grouped length-frequency file (.lfq)")->required();
    cmd->add_option("--threads", o.threads, "Threads to score on (default: every core)");
    auto* plot = cmd->add_option("--plot", o.plot, "Write the plot (.png, .svg, .bmp, .pdf)");
    cmd->add_flag("--force", o.force, "Replace an existing plot file")->needs(plot);
}

RegisterCommand register_shepherd{[](CLI::App& app, Context& ctx) {
    auto* shepherd = app.add_subcommand("shepherd", "Shepherd's method: scores of Loo and K");
    shepherd->require_subcommand(1);
    {
        auto o = std::make_shared<ScoreOptions>();
        auto* cmd = shepherd->add_subcommand("score", "Score one pair of Loo and K");
        cmd->add_option("FILE", o->path, "Grouped length-frequency file (.lfq)")->required();
        cmd->add_option("--loo", o->loo, "Asymptotic length")->required();
        cmd->add_option("--k", o->k, "Growth constant K")->required();
        cmd->callback([&ctx, o] { RunScore(ctx, *o); });
    }
    {
        auto o = std::make_shared<KScanOptions>();
        auto* cmd = shepherd->add_subcommand("kscan", "Score K from 0.01 to 10 at a given Loo");
        AddCommon(cmd, *o);
        cmd->add_option("--loo", o->loo, "Asymptotic length")->required();
        cmd->callback([&ctx, o] { RunKScan(ctx, *o); });
    }
    {
        auto o = std::make_shared<SurfaceOptions>();
        auto* cmd = shepherd->add_subcommand("surface", "Response surface over Loo and K");
        AddCommon(cmd, *o);
        cmd->add_option("--loo", o->loo, "Loo range FROM:TO")->required();
        cmd->add_option("--k", o->k, "K range FROM:TO")->required();
        cmd->callback([&ctx, o] { RunSurface(ctx, *o); });
    }
}};

}  // namespace
}  // namespace norvo::cli
