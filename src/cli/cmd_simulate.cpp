// norvo-cli simulate STOCK.lfq CATCH.lfq [options]: simulates a stock of individual fish and
// writes its STOCK and CATCH length-frequency samples.
#include <filesystem>

#include "base/format.h"
#include "cli/cli_support.h"
#include "stock/simulation.h"
#include "stock/simulation_file.h"

namespace norvo::cli {
namespace {

struct SimulateOptions {
    std::string stockPath;
    std::string catchPath;
    SimulationInputs in = DefaultSimulationInputs();
    std::vector<double> strength;
    std::vector<double> mortality;
    std::vector<double> recruitment;
    std::vector<std::string> areas;  // extra areas "NAME:L50,L75,R75,R50,FMAX"
    bool negligible = false;
    bool force = false;
};

SelectionRow ParseArea(const std::string& text) {
    const auto colon = text.find(':');
    if (colon == std::string::npos || colon == 0)
        throw Refusal(kSimInvalidTitle, "An area reads NAME:L50,L75,R75,R50,FMAX.");
    SelectionRow row;
    row.area = text.substr(0, colon);
    std::vector<double> v;
    std::string rest = text.substr(colon + 1);
    size_t start = 0;
    while (start <= rest.size()) {
        const size_t comma = rest.find(',', start);
        const std::string piece = rest.substr(start, comma - start);
        try {
            size_t used = 0;
            v.push_back(std::stod(piece, &used));
            if (used != piece.size()) throw std::invalid_argument(piece);
        } catch (const std::exception&) {
            throw Refusal(kSimInvalidTitle, "An area reads NAME:L50,L75,R75,R50,FMAX.");
        }
        if (comma == std::string::npos) break;
        start = comma + 1;
    }
    if (v.size() != 5) throw Refusal(kSimInvalidTitle, "An area reads NAME:L50,L75,R75,R50,FMAX.");
    row.l50 = v[0];
    row.l75 = v[1];
    row.r75 = v[2];
    row.r50 = v[3];
    row.fmax = v[4];
    return row;
}

nlohmann::json StatsJson(const SampleStats& s) {
    return {{"count", s.count}, {"mean", s.mean}, {"sd", s.sd}};
}

void RunSimulate(Context& ctx, SimulateOptions& o) {
    SimulationInputs& in = o.in;
    in.yearClasses = ResizeYearClasses(in.yearClasses, in.ageGroups);
    for (size_t a = 0; a < in.yearClasses.size(); ++a) {
        if (!o.strength.empty())
            in.yearClasses[a].strength = o.strength[std::min(a, o.strength.size() - 1)];
        if (!o.mortality.empty())
            in.yearClasses[a].mortality = o.mortality[std::min(a, o.mortality.size() - 1)];
    }
    if (!o.recruitment.empty()) {
        if (o.recruitment.size() != 12)
            throw Refusal(kSimInvalidTitle, "Give the relative recruitment of all twelve months.");
        std::copy(o.recruitment.begin(), o.recruitment.end(), in.recruitment.begin());
    }
    if (o.negligible) {
        in.selection[0].deselectionNegligible = true;
        in.selection[0].r75 = in.selection[0].r50 = 0;
    }
    for (const auto& a : o.areas) in.selection.push_back(ParseArea(a));

    KeepExisting(o.stockPath, o.force);
    KeepExisting(o.catchPath, o.force);
    const SimulationRun run = RunSimulation(in, o.stockPath, o.catchPath, ctx.programFolder);
    ctx.take(run);
    const SimulationResult& r = run.result;

    const auto ages = AgeDistSummary(r, in.yearClasses);
    const LengthFreqTable stock = LengthFreq(r, SimSet::Stock);
    const LengthFreqTable catches = LengthFreq(r, SimSet::Catch);
    if (ctx.json) {
        nlohmann::json j;
        j["stock"] = o.stockPath;
        j["catch"] = o.catchPath;
        j["seed"] = in.seed;
        j["smallestMl"] = stock.smallestMl;
        j["classInterval"] = stock.classInterval;
        j["classes"] = stock.classes;
        for (const auto& a : ages)
            j["ageDistribution"].push_back(
                {{"age", a.age}, {"stock", a.stock}, {"catch", a.catchCount}});
        for (size_t s = 0; s < r.dates.size(); ++s) {
            const auto& d = r.dates[s];
            j["samples"].push_back({{"day", d.day},
                                    {"month", d.month},
                                    {"year", d.year},
                                    {"stock", StatsJson(stock.stats[s])},
                                    {"catch", StatsJson(catches.stats[s])}});
        }
        ctx.print(j);
        return;
    }
    for (const auto& n : ctx.dialogs.shown()) std::cout << n.title << ": " << n.text << "\n";
    std::cout << "\nAge\t" << kSimStockLabel << "\t" << kSimCatchLabel << "\n";
    for (const auto& a : ages)
        std::cout << a.age << "\t" << a.stock << "\t" << a.catchCount << "\n";
    std::cout << "\nSample\t" << kSimStockLabel << " n\tMean\tS.D.\t" << kSimCatchLabel
              << " n\tMean\tS.D.\n";
    for (size_t s = 0; s < r.dates.size(); ++s) {
        const auto& d = r.dates[s];
        const auto& a = stock.stats[s];
        const auto& b = catches.stats[s];
        std::cout << Format(d.day, "00") << "/" << Format(d.month, "00") << "/" << d.year << "\t"
                  << a.count << "\t" << Format(a.mean, "0.00") << "\t" << Format(a.sd, "0.000")
                  << "\t" << b.count << "\t" << Format(b.mean, "0.00") << "\t"
                  << Format(b.sd, "0.000") << "\n";
    }
}

RegisterCommand register_simulate{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<SimulateOptions>();
    auto* cmd = app.add_subcommand(
        "simulate", "Simulate a fished stock and write its STOCK and CATCH length frequencies");
    SimulationInputs& in = o->in;
    cmd->add_option("STOCK", o->stockPath, "File for the STOCK samples (.lfq)")->required();
    cmd->add_option("CATCH", o->catchPath, "File for the CATCH samples (.lfq)")->required();
    cmd->add_option("--seed", in.seed, "Seed number for randomization")->capture_default_str();
    cmd->add_option("--samples", in.samples, "Number of monthly samples")->capture_default_str();
    cmd->add_option("--months", in.monthsBetween, "Number of months separating samples")
        ->capture_default_str();
    cmd->add_option("--fish", in.fishPerSample, "Number of fishes per sample")
        ->capture_default_str();
    cmd->add_option("--interval", in.classInterval, "Class interval")->capture_default_str();
    cmd->add_option("--age-groups", in.ageGroups, "Number of age groups")->capture_default_str();
    cmd->add_option("--loo", in.loo, "Asymptotic length (Loo)")->capture_default_str();
    cmd->add_option("--loo-cv", in.looCv, "Variability of Loo (s.d./mean)")->capture_default_str();
    cmd->add_option("--k", in.k, "VBGF growth constant (K)")->capture_default_str();
    cmd->add_option("--k-cv", in.kCv, "Variability of K (s.d./mean)")->capture_default_str();
    cmd->add_option("--c", in.c, "Amplitude of oscillation (C)")->capture_default_str();
    cmd->add_option("--c-cv", in.cCv, "Variability of C (s.d./mean)")->capture_default_str();
    cmd->add_option("--wp", in.wp, "Winter point (WP)")->capture_default_str();
    cmd->add_option("--wp-cv", in.wpCv, "Variability of WP (s.d./mean)")->capture_default_str();
    cmd->add_option("--strength", o->strength,
                    "Strength of the year classes from age 0 (the last value repeats)");
    cmd->add_option("--mortality", o->mortality,
                    "Natural mortality of the year classes from age 0 (the last value repeats)");
    cmd->add_option("--recruitment", o->recruitment,
                    "Relative recruitment of the twelve months, January first");
    SelectionRow& sel = in.selection.front();
    cmd->add_option("--l50", sel.l50, "Selection: L50")->capture_default_str();
    cmd->add_option("--l75", sel.l75, "Selection: L75")->capture_default_str();
    cmd->add_option("--r75", sel.r75, "Deselection: R75")->capture_default_str();
    cmd->add_option("--r50", sel.r50, "Deselection: R50")->capture_default_str();
    cmd->add_option("--fmax", sel.fmax, "F(max), the greatest F the cohort meets")
        ->capture_default_str();
    cmd->add_flag("--negligible", o->negligible, "Deselection of large fish is negligible");
    cmd->add_flag("--force", o->force, "Replace STOCK and CATCH when they exist");
    cmd->add_option("--area", o->areas,
                    "A further area of the selection table: NAME:L50,L75,R75,R50,FMAX "
                    "(the first area is A)");
    cmd->add_flag("--migrate", in.migrate, "Simulate the migratory route");
    cmd->add_option("--from", in.route.from, "Migration: from area")->capture_default_str();
    cmd->add_option("--to", in.route.to, "Migration: to area")->capture_default_str();
    cmd->add_option("--mig-l50", in.route.l50, "50% length at migration")->capture_default_str();
    cmd->add_option("--mig-l75", in.route.l75, "75% length at migration")->capture_default_str();
    cmd->callback([&ctx, o] { RunSimulate(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
