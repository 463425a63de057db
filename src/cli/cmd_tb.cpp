// norvo-cli tb FILE.sce [--vary FLEET,...] [--fix FLEET=F,...] [--selection]: Thompson and Bell
// yield, biomass and value of a scenario over the f-factors 0 to 4, as tables, JSON and plots.
#include <memory>

#include <fmt/format.h>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/plot_output.h"
#include "numerics/text_convert.h"
#include "stock/thompson_bell.h"
#include "stock/thompson_bell_plot.h"

namespace norvo::cli {
namespace {

inline constexpr const char* kTbInputTitle = "Invalid Input...";

struct TbCliOptions {
    std::string path;
    std::vector<std::string> vary, fix;
    bool selection = false;
    std::string species, fleet;  // the combination of the first table and plots
    std::string plot;
    bool force = false;
};

std::string Beside(const std::string& path, const std::string& tag) {
    const size_t dot = path.find_last_of('.');
    const size_t slash = path.find_last_of("/\\");
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return path + tag;
    return path.substr(0, dot) + tag + path.substr(dot);
}

int IndexOf(const std::vector<std::string>& names, const std::string& name) {
    for (size_t i = 0; i < names.size(); ++i)
        if (names[i] == name) return static_cast<int>(i);
    return -1;
}

void RequireFleet(const ThompsonBellInputs& in, const std::string& name) {
    for (const auto& f : in.scenario.fleets)
        if (f.name == name) return;
    throw Refusal(kTbInputTitle, fmt::format("The scenario has no fleet named {}.", name));
}

ThompsonBellEffort EffortOf(const ThompsonBellInputs& in, const TbCliOptions& o) {
    ThompsonBellEffort e;
    for (const std::string& name : o.vary) {
        RequireFleet(in, name);
        e.vary.push_back(name);
    }
    for (const std::string& item : o.fix) {
        const size_t eq = item.rfind('=');
        double v = 0;
        if (eq == std::string::npos || !ParseNumber(item.substr(eq + 1), v))
            throw CLI::ValidationError("--fix", "expected FLEET=F, got " + item);
        const std::string name = item.substr(0, eq);
        RequireFleet(in, name);
        const Outcome check = CheckFixedFactor(v);
        if (const UserNotice* r = check.refusal()) throw Refusal(r->title, r->text);
        e.fixed[name] = v;
    }
    return e;
}

// The combination of the first table: the one asked for, or the first fleet catching the first
// species.
std::pair<int, int> Combination(const ThompsonBellResult& r, const TbCliOptions& o) {
    int s = o.species.empty() ? 0 : IndexOf(r.speciesNames, o.species);
    if (s < 0)
        throw Refusal(kTbInputTitle,
                      fmt::format("The scenario has no species named {}.", o.species));
    int f = o.fleet.empty() ? -1 : IndexOf(r.fleetNames, o.fleet);
    if (!o.fleet.empty() && f < 0)
        throw Refusal(kTbInputTitle, fmt::format("The scenario has no fleet named {}.", o.fleet));
    const auto& caught = r.species.at(static_cast<size_t>(s)).caughtBy;
    if (f < 0)
        for (size_t g = 0; g < caught.size() && f < 0; ++g)
            if (caught[g]) f = static_cast<int>(g);
    return {s, std::max(f, 0)};
}

void SavePlots(const ThompsonBellResult& r, std::pair<int, int> pick, const TbCliOptions& o) {
    const ThompsonBellTable one = CombinationTable(r, pick.first, pick.second);
    const ThompsonBellTable all = CumulativeTable(r);
    struct Picture {
        const ThompsonBellTable* table;
        ThompsonBellQuantity q;
        bool cumulative;
        std::string path;
    };
    using Q = ThompsonBellQuantity;
    const std::vector<Picture> pictures = {
        {&all, Q::Yield, true, o.plot},
        {&all, Q::Biomass, true, Beside(o.plot, "_biomass")},
        {&all, Q::Value, true, Beside(o.plot, "_value")},
        {&one, Q::Yield, false, Beside(o.plot, "_combination_yield")},
        {&one, Q::Biomass, false, Beside(o.plot, "_combination_biomass")},
        {&one, Q::Value, false, Beside(o.plot, "_combination_value")}};
    for (const Picture& p : pictures) KeepExisting(p.path, o.force);
    for (const Picture& p : pictures) {
        ChartCanvas canvas;
        DrawThompsonBellPlot(canvas, *p.table, p.q, p.cumulative);
        SavePlotOrRefuse(canvas, p.path);
    }
}

nlohmann::json SpeciesJson(const ThompsonBellResult& r) {
    nlohmann::json all = nlohmann::json::object();
    for (const ThompsonBellSpecies& s : r.species) {
        nlohmann::json f = nlohmann::json::object();
        for (size_t g = 0; g < r.fleetNames.size(); ++g) f[r.fleetNames[g]] = s.F[g];
        all[s.name] = {{"F", f},
                       {"H", s.H},
                       {"W", s.W},
                       {"mid", s.mid},
                       {"value", s.value},
                       {"catch", s.catchTotal},
                       {"last_class", s.lastClass}};
    }
    return all;
}

nlohmann::json StepsJson(const ThompsonBellResult& r) {
    nlohmann::json steps = nlohmann::json::array();
    for (const ThompsonBellStep& step : r.steps) {
        nlohmann::json species = nlohmann::json::object();
        for (size_t s = 0; s < step.species.size(); ++s) {
            const ThompsonBellSpeciesStep& x = step.species[s];
            nlohmann::json fy = nlohmann::json::object(), fv = nlohmann::json::object();
            for (size_t g = 0; g < r.fleetNames.size(); ++g) {
                fy[r.fleetNames[g]] = x.fleetYield[g];
                fv[r.fleetNames[g]] = x.fleetValue[g];
            }
            species[r.speciesNames[s]] = {{"yield", x.yield},
                                          {"biomass", x.biomass},
                                          {"value", x.value},
                                          {"fleet_yield", fy},
                                          {"fleet_value", fv}};
        }
        steps.push_back(
            {{"p", step.p},
             {"ffactor", step.ffactor},
             {"species", species},
             {"total", {{"yield", step.yield}, {"biomass", step.biomass}, {"value", step.value}}}});
    }
    return steps;
}

void PrintTable(const std::string& heading, const ThompsonBellTable& t) {
    std::cout << heading << "\n"
              << fmt::format("{:>8}  {:>16}  {:>16}  {:>16}\n", kThompsonBellFFactor,
                             ThompsonBellColumnTitle(kThompsonBellYield, t.pYield),
                             ThompsonBellColumnTitle(kThompsonBellBiomass, t.pBiomass),
                             ThompsonBellColumnTitle(kThompsonBellValue, t.pValue));
    for (size_t i = 0; i < t.ffactor.size(); ++i)
        std::cout << fmt::format("{:>8}  {:>16}  {:>16}  {:>16}\n", Format(t.ffactor[i], "0.0"),
                                 Format(ThompsonBellShown(t.yield[i], t.pYield), "0.000"),
                                 Format(ThompsonBellShown(t.biomass[i], t.pBiomass), "0.000"),
                                 Format(ThompsonBellShown(t.value[i], t.pValue), "0.000"));
}

void Run(Context& ctx, const TbCliOptions& o) {
    const ThompsonBellInputs in = ReadThompsonBellInputs(o.path);
    ctx.take(in);
    ThompsonBellOptions options;
    options.scenarioPath = o.path;
    options.effort = EffortOf(in, o);
    options.useSelection = o.selection;
    const ThompsonBellResult r = ThompsonBell(in, options);
    ctx.take(r);
    const auto pick = Combination(r, o);
    if (!o.plot.empty()) SavePlots(r, pick, o);

    if (ctx.json) {
        nlohmann::json vary = nlohmann::json::array();
        for (size_t g = 0; g < r.fleetNames.size(); ++g)
            if (r.vary[g]) vary.push_back(r.fleetNames[g]);
        nlohmann::json j = {{"fleets", r.fleetNames},
                            {"vary", vary},
                            {"selection", o.selection},
                            {"species", SpeciesJson(r)},
                            {"steps", StepsJson(r)}};
        if (!o.plot.empty()) j["plot"] = o.plot;
        ctx.print(j);
        return;
    }
    for (size_t g = 0; g < r.fleetNames.size(); ++g)
        std::cout << r.fleetNames[g] << " "
                  << (r.vary[g] ? std::string(kThompsonBellVaryMark)
                                : ThompsonBellFixedMark(Format(r.fixed[g], "0.00")))
                  << "\n";
    if (r.steps.empty()) {
        std::cout << "No fleet varies: nothing was projected.\n";
        return;
    }
    const std::string& species = r.speciesNames[static_cast<size_t>(pick.first)];
    const std::string& fleet = r.fleetNames[static_cast<size_t>(pick.second)];
    std::cout << "\n";
    if (!r.species[static_cast<size_t>(pick.first)].caughtBy[static_cast<size_t>(pick.second)])
        std::cout << ThompsonBellNotCaughtByText(species, fleet) << "\n";
    PrintTable(fmt::format("{} / {}", species, fleet),
               CombinationTable(r, pick.first, pick.second));
    std::cout << "\n";
    PrintTable(kThompsonBellCumulative, CumulativeTable(r));
}

RegisterCommand register_tb{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<TbCliOptions>();
    auto* cmd = app.add_subcommand(
        "tb", "Thompson and Bell yield-stock prediction of a multi-species, multi-fleet scenario");
    cmd->add_option("FILE", o->path, "Scenario file (.sce)")->required();
    cmd->add_option("--vary", o->vary, "Fleets whose f-factor runs from 0 to 4 (comma-separated)")
        ->delimiter(',');
    cmd->add_option("--fix", o->fix, "Fixed f-factors of the other fleets, FLEET=F (default 1)")
        ->delimiter(',');
    cmd->add_flag("--selection", o->selection,
                  "F from the selection parameters and Ft instead of the species' F-array");
    cmd->add_option("--species", o->species, "Species of the combination table (default: first)");
    cmd->add_option("--fleet", o->fleet,
                    "Fleet of the combination table (default: first catching the species)");
    cmd->add_option("--plot", o->plot,
                    "Cumulative yield plot here; biomass, value and the combination's three "
                    "plots beside it (_biomass, _value, _combination_yield, ...)");
    cmd->add_flag("--force", o->force, "Replace plot files that exist");
    cmd->callback([&ctx, o] { Run(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
