// norvo-cli vpa age FILE.caa ... and vpa length FILE.lfq ...: virtual population analysis by
// age group and by length class, with the stacked-bar plot and, by length, the species file.
#include <memory>
#include <optional>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/plot_output.h"
#include "cli/sample_options.h"
#include "data/lfq_file.h"
#include "data/sample_readers.h"
#include "stock/vpa_age.h"
#include "stock/vpa_length.h"
#include "stock/vpa_plot.h"

namespace norvo::cli {
namespace {

struct AgeCliOptions {
    std::string path;
    double m = 0, ft = 0, dt = 1;
    std::string plot;
};

struct LengthCliOptions {
    std::string path;
    double m = 0, ft = 0, loo = 0, k = 0, a = 0.0001, b = 3, raise = 0;
    int plus = 0;
    SampleCliOptions sample;
    std::string saveSpc;
    bool force = false;
    std::string species;
    std::string plot;
};

template <class T>
nlohmann::json From1(const std::vector<T>& v, int n) {
    nlohmann::json a = nlohmann::json::array();
    for (int i = 1; i <= n && i < static_cast<int>(v.size()); ++i) a.push_back(v[i]);
    return a;
}

void RunAge(Context& ctx, const AgeCliOptions& o) {
    const CaaData data = ctx.read(ReadCAA(o.path));
    AgeVpaOptions opt;
    opt.m = static_cast<float>(o.m);
    opt.ft = static_cast<float>(o.ft);
    opt.dt = static_cast<float>(o.dt);
    std::vector<float> ages;
    for (const auto& row : data.rows) {
        ages.push_back(row[0]);
        opt.catches.push_back(row[1]);
    }
    const AgeVpaResult r = RunAgeVpa(opt);
    ctx.take(r);
    if (!o.plot.empty()) {
        ChartCanvas canvas;
        DrawVpaBars(canvas, BarsOf(r, ages));
        PutLegend(canvas, kAgeLegend, kVpaLegendHome);
        SavePlotOrRefuse(canvas, o.plot);
    }
    if (ctx.json) {
        nlohmann::json j = {{"age", ages},
                            {"catch", From1(r.C, r.n)},
                            {"N", From1(r.N, r.n)},
                            {"F", From1(r.F, r.n)},
                            {"newton_rounds", From1(r.newtonRounds, r.n)}};
        if (!o.plot.empty()) j["plot"] = o.plot;
        ctx.print(j);
        return;
    }
    std::cout << "Age  Catch  Population (N)  Fishing mortality (F)\n";
    for (int i = 1; i <= r.n; ++i)
        std::cout << Format(ages[i - 1], "0.0") << "  " << Format(r.C[i], "0.0") << "  "
                  << Format(r.N[i], "0.0") << "  " << Format(r.F[i], "0.0000") << "\n";
}

void SaveLengthVpaSpecies(const Context& ctx, const LfqData& data, const LengthVpaOptions& opt,
                          const LengthVpaResult& r, const LengthCliOptions& o) {
    SpeciesData species = LengthVpaSpecies(data, opt, r);
    if (!o.species.empty()) species.header.speciesName = o.species;
    norvo::SaveLengthVpaSpecies(o.saveSpc, ctx.programFolder, species);
}

void RunLength(Context& ctx, const LengthCliOptions& o) {
    // The species file is new: an existing file is never overwritten.
    if (!o.saveSpc.empty()) KeepExisting(o.saveSpc, o.force);
    const LfqData data = ctx.read(ReadLFQ(o.path));
    LengthVpaOptions opt;
    opt.m = static_cast<float>(o.m);
    opt.ft = static_cast<float>(o.ft);
    opt.loo = static_cast<float>(o.loo);
    opt.k = static_cast<float>(o.k);
    opt.a = static_cast<float>(o.a);
    opt.b = static_cast<float>(o.b);
    opt.raise = static_cast<float>(o.raise);
    opt.plusGroups = o.plus;
    opt.temporal = o.sample.temporal;
    opt.transform = TransformOf(o.sample);
    opt.selected = SelectedSamples(o.sample, data.noOfSamples, kVpaNoSampleTitle);
    const LengthVpaResult r = RunLengthVpa(data, opt);
    ctx.take(r);
    if (!o.plot.empty()) {
        ChartCanvas canvas;
        DrawVpaBars(canvas, BarsOf(r));
        PutLegend(canvas, kLengthLegend, kVpaLegendHome);
        SavePlotOrRefuse(canvas, o.plot);
    }
    if (!o.saveSpc.empty()) SaveLengthVpaSpecies(ctx, data, opt, r, o);

    if (ctx.json) {
        nlohmann::json tonnes = nlohmann::json::array();
        for (int i = 1; i <= r.n; ++i) tonnes.push_back(r.Biomass[i] / 1e6);
        nlohmann::json rounds = From1(r.rounds, r.n);
        nlohmann::json j = {{"n", r.n},
                            {"n_used", r.nUsed},
                            {"plus", r.plusGroups},
                            {"notice", r.plusAdjusted ? nlohmann::json(kVpaPlusAdjustedText)
                                                      : nlohmann::json(nullptr)},
                            {"L1", r.L1},
                            {"mid", From1(r.mid, r.n)},
                            {"Dt", From1(r.Dt, r.n)},
                            {"catch", From1(r.C, r.n)},
                            {"c_plus", r.cPlus},
                            {"N", From1(r.N, r.n)},
                            {"F", From1(r.F, r.n)},
                            {"biomass", From1(r.Biomass, r.n)},
                            {"biomass_tonnes", tonnes},
                            {"rounds", rounds}};
        if (!o.plot.empty()) j["plot"] = o.plot;
        if (!o.saveSpc.empty()) j["spc"] = o.saveSpc;
        ctx.print(j);
        return;
    }
    if (r.plusAdjusted) std::cout << kVpaPlusAdjustedText << "\n";
    std::cout << "Mid-Length  Catch (in numbers)  Population (N)  Fishing mortality (F)  "
                 "Steady-state Biomass (tonnes)\n";
    for (int i = 1; i <= r.n; ++i)
        std::cout << Format(r.mid[i], "0.00") << "  " << Format(r.C[i], "0.0") << "  "
                  << Format(r.N[i], "0.0") << "  " << Format(r.F[i], "0.0000") << "  "
                  << Format(r.Biomass[i] / 1e6, "0.000") << "\n";
    if (!o.saveSpc.empty()) std::cout << "The species table was saved in " << o.saveSpc << ".\n";
}

RegisterCommand register_vpa{[](CLI::App& app, Context& ctx) {
    auto* vpa = app.add_subcommand("vpa", "Virtual population analysis by age or by length");
    vpa->require_subcommand(1);

    auto a = std::make_shared<AgeCliOptions>();
    auto* age = vpa->add_subcommand("age", "Age-structured VPA of a catch-at-age file");
    age->add_option("FILE", a->path, "Catch-at-age file (.caa)")->required();
    age->add_option("--m", a->m, "Natural mortality M (/yr)")->required();
    age->add_option("--ft", a->ft, "Terminal fishing mortality F (/yr)")->required();
    age->add_option("--dt", a->dt, "Time interval of the groups (0.01 to 1 yr)");
    age->add_option("--plot", a->plot, "Output picture: .png, .bmp, .svg or .pdf");
    age->callback([&ctx, a] { RunAge(ctx, *a); });

    auto l = std::make_shared<LengthCliOptions>();
    auto* len = vpa->add_subcommand("length", "Length-structured VPA of a grouped file");
    len->add_option("FILE", l->path, "Grouped length-frequency file (.lfq)")->required();
    len->add_option("--m", l->m, "Natural mortality M (/yr)")->required();
    len->add_option("--ft", l->ft, "Terminal fishing mortality F (/yr)")->required();
    len->add_option("--loo", l->loo, "Asymptotic length")->required();
    len->add_option("--k", l->k, "Growth constant K")->required();
    len->add_option("--a", l->a, "Length-weight coefficient a (default 0.0001)");
    len->add_option("--b", l->b, "Length-weight exponent b (default 3.0)");
    len->add_option("--raise", l->raise, "Catches are multiplied by 10^E");
    len->add_option("--plus", l->plus, "Number of plus-groups");
    AddSampleOptions(len, l->sample);
    len->add_option("--save-spc", l->saveSpc, "Write the result as a new species file (.spc)");
    len->add_flag("--force", l->force, "Replace the species file when it exists");
    len->add_option("--species", l->species, "Species name of the species file (default: file's)");
    len->add_option("--plot", l->plot, "Output picture: .png, .bmp, .svg or .pdf");
    len->callback([&ctx, l] { RunLength(ctx, *l); });
}};

}  // namespace
}  // namespace norvo::cli
