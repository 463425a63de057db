// norvo-cli elefan kscan | surface | search: the ELEFAN I searches on a grouped
// length-frequency file, with the tables the screen shows.
//   elefan kscan FILE --loo L [--c C --wp WP] [--ss S --sl L] [--fixed-sp]
//   elefan surface FILE --loo FROM:TO --k FROM:TO --ss S --sl L [--c C --wp WP]
//   elefan search FILE --loo SEED:STEP --k SEED:STEP [--c SEED:STEP --wp SEED:STEP] [--ss --sl]

#include <charconv>
#include <iomanip>
#include <memory>
#include <optional>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/cmd_elefan.h"
#include "cli/interrupt.h"
#include "cli/plot_output.h"
#include "data/lfq_file.h"
#include "growth/elefan.h"
#include "growth/elefan_lfq.h"
#include "growth/elefan_search.h"
#include "growth/elefan_search_engine.h"
#include "growth/elefan_search_plot.h"

namespace norvo::cli {
namespace {

struct Common {
    std::string path;
    int threads = 0;
    std::string plot;
    std::optional<float> ss, sl;
};

// The file read, restructured, and the state a freshly opened screen holds.
struct Loaded {
    std::unique_ptr<ElefanFileScorer> scorer;
    std::unique_ptr<ParallelRn> rn;
    GrowthParams state;
};

Loaded Load(Context& ctx, const Common& o) {
    const LfqData data = ctx.read(ReadLFQ(o.path));
    ctx.take(CheckElefanFile(data));
    Loaded l;
    l.scorer = MakeElefanScorer(data);
    l.rn =
        std::make_unique<ParallelRn>(*l.scorer, o.threads > 0 ? o.threads : DefaultSearchThreads());
    const float loo = DefaultKScanLoo(data.midlength(data.noOfClasses - 1));
    const auto [ss, sl] = l.scorer->defaultStart(loo);
    l.state = {.loo = loo, .k = 1, .c = 0, .wp = 0, .ss = ss, .sl = sl};
    if (o.ss && o.sl) {
        l.state.ss = *o.ss;
        l.state.sl = *o.sl;
    }
    return l;
}

nlohmann::json ParamsJson(const GrowthParams& q, float rn) {
    return {{"loo", Shortest(q.loo)}, {"k", Shortest(q.k)},   {"c", Shortest(q.c)},
            {"wp", Shortest(q.wp)},   {"ss", Shortest(q.ss)}, {"sl", Shortest(q.sl)},
            {"rn", Shortest(rn)}};
}

// ---- kscan ---------------------------------------------------------------------------------

struct KScanOptions : Common {
    float loo = 0, c = 0, wp = 0;
    bool fixed = false;
};

void RunKScan(Context& ctx, const KScanOptions& o) {
    Loaded l = Load(ctx, o);
    KScanInput in{o.loo, o.c, o.wp, o.fixed, l.state.ss, l.state.sl};
    CliSink sink("K-scan");
    const KScanResult r = Finished(KScan(*l.rn, in, sink));
    if (!o.plot.empty()) {
        ChartCanvas canvas;
        DrawKScanFrame(canvas, o.loo);
        DrawKScanLine(canvas, r.table, r.columns);
        SavePlotOrRefuse(canvas, o.plot);
    }
    if (ctx.json) {
        nlohmann::json rows = nlohmann::json::array();
        for (int c = 1; c <= r.columns; ++c)
            rows.push_back({{"k", Shortest(r.table[2][c])},
                            {"rn", Shortest(r.table[1][c])},
                            {"ss", Shortest(r.table[3][c])},
                            {"sl", Shortest(r.table[4][c])}});
        ctx.print({{"rows", rows}, {"best", ParamsJson(r.best.params, r.best.rn)}});
        return;
    }
    std::cout << std::left << std::setw(8) << "K" << std::setw(8) << "Rn" << std::setw(6) << "SS"
              << "SL\n";
    for (int c = 1; c <= r.columns; ++c)
        std::cout << std::setw(8) << Format(r.table[2][c], "0.00") << std::setw(8)
                  << Format(r.table[1][c], "0.000") << std::setw(6) << Format(r.table[3][c], "0")
                  << Format(r.table[4][c], "0.00") << "\n";
    const GrowthParams& b = r.best.params;
    std::cout << "Best: Loo " << Format(b.loo, "0.00") << "  K " << Format(b.k, "0.000") << "  C "
              << Format(b.c, "0.000") << "  WP " << Format(b.wp, "0.000") << "  SS "
              << Format(b.ss, "0") << "  SL " << Format(b.sl, "0.00") << "  Rn "
              << Format(r.best.rn, "0.000") << "\n";
}

// ---- surface -------------------------------------------------------------------------------

struct SurfaceOptions : Common {
    std::string loo, k;
    float c = 0, wp = 0;
};

void RunSurface(Context& ctx, const SurfaceOptions& o) {
    SurfaceInput in;
    std::tie(in.looFrom, in.looTo) = ParsePair(o.loo, "--loo");
    std::tie(in.kFrom, in.kTo) = ParsePair(o.k, "--k");
    in.c = o.c;
    in.wp = o.wp;
    in.ss = o.ss.value_or(0);
    in.sl = o.sl.value_or(0);
    ctx.take(CheckSurfaceInput(in));
    Loaded l = Load(ctx, o);
    CliSink sink("Response surface");
    const SurfaceResult r = Finished(ResponseSurface(*l.rn, in, l.state, sink));
    if (!o.plot.empty()) {
        ChartCanvas canvas;
        DrawSurfaceHeatMap(canvas, r);
        SavePlotOrRefuse(canvas, o.plot);
    }
    PrintSurface(ctx, r);
}

// ---- search --------------------------------------------------------------------------------

struct SearchOptions : Common {
    std::string loo, k;
    std::string c = "0:0", wp = "0:0";
};

void RunSearch(Context& ctx, const SearchOptions& o) {
    AutoSearchInput in;
    std::tie(in.loo, in.looStep) = ParsePair(o.loo, "--loo");
    std::tie(in.k, in.kStep) = ParsePair(o.k, "--k");
    std::tie(in.c, in.cStep) = ParsePair(o.c, "--c");
    std::tie(in.wp, in.wpStep) = ParsePair(o.wp, "--wp");
    in.constantStart = o.ss && o.sl;
    in.sSample = o.ss.value_or(0);
    in.sLength = o.sl.value_or(0);
    Loaded l = Load(ctx, o);
    ctx.take(CheckSearchSeeds(in, l.scorer->layout()));
    CliSink sink("Search");
    const AutoSearchResult r = Finished(AutoSearch(*l.rn, in, l.state, sink));
    ctx.take(r);
    if (ctx.json) {
        nlohmann::json rows = nlohmann::json::array();
        for (const SearchRow& row : r.rows) {
            nlohmann::json j = ParamsJson(row.params, row.rn);
            j["row"] = row.row;
            rows.push_back(j);
        }
        ctx.print({{"rows", rows}});
        return;
    }
    std::cout << std::left;
    for (const char* h : kSearchHeadings) std::cout << std::setw(9) << h;
    std::cout << "\n";
    for (const SearchRow& row : r.rows) {
        for (const auto& t : SearchRowTexts(row)) std::cout << std::setw(9) << t;
        std::cout << "\n";
    }
}

void AddCommon(CLI::App* cmd, Common& o) {
    cmd->add_option("FILE", o.path, "Grouped length-frequency file (.lfq)")->required();
    cmd->add_option("--threads", o.threads, "Threads to score on (default: every core)");
    auto* ss = cmd->add_option("--ss", o.ss, "Starting sample");
    auto* sl = cmd->add_option("--sl", o.sl, "Starting length");
    ss->needs(sl);
    sl->needs(ss);
}

RegisterCommand register_elefan_search{[](CLI::App& app, Context& ctx) {
    CLI::App& elefan = ElefanCommand(app);
    {
        auto o = std::make_shared<KScanOptions>();
        auto* cmd = elefan.add_subcommand("kscan", "Score K from 0.01 to 10 at a given Loo");
        AddCommon(cmd, *o);
        cmd->add_option("--loo", o->loo, "Asymptotic length")->required();
        cmd->add_option("--c", o->c, "Amplitude of the seasonal oscillation");
        cmd->add_option("--wp", o->wp, "Winter point");
        cmd->add_flag("--fixed-sp", o->fixed, "Fix the starting point");
        cmd->add_option("--plot", o->plot, "Write the K-scan plot (.png, .svg, .bmp, .pdf)");
        cmd->callback([&ctx, o] { RunKScan(ctx, *o); });
    }
    {
        auto o = std::make_shared<SurfaceOptions>();
        auto* cmd = elefan.add_subcommand("surface", "Response surface of Rn over Loo and K");
        AddCommon(cmd, *o);
        cmd->add_option("--loo", o->loo, "Loo range FROM:TO")->required();
        cmd->add_option("--k", o->k, "K range FROM:TO")->required();
        cmd->add_option("--c", o->c, "Amplitude of the seasonal oscillation");
        cmd->add_option("--wp", o->wp, "Winter point");
        cmd->add_option("--plot", o->plot, "Write a heat map of the surface");
        cmd->callback([&ctx, o] { RunSurface(ctx, *o); });
    }
    {
        auto o = std::make_shared<SearchOptions>();
        auto* cmd = elefan.add_subcommand("search", "Automatic search from seeds and steps");
        AddCommon(cmd, *o);
        cmd->add_option("--loo", o->loo, "Loo seed and step SEED:STEP")->required();
        cmd->add_option("--k", o->k, "K seed and step SEED:STEP")->required();
        cmd->add_option("--c", o->c, "C seed and step SEED:STEP");
        cmd->add_option("--wp", o->wp, "WP seed and step SEED:STEP");
        cmd->callback([&ctx, o] { RunSearch(ctx, *o); });
    }
}};

}  // namespace
}  // namespace norvo::cli
