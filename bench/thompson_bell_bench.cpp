// Speed of the Thompson and Bell prediction on a typical scenario: three species of 40 classes
// and three fleets, one varying and two fixed; the preparation, the 41-step projection, the
// tables and the six plots, and the whole run from the scenario file on disk.
#include <benchmark/benchmark.h>

#include <unistd.h>
#include <cmath>
#include <filesystem>
#include <string>

#include "chart/chart_canvas.h"
#include "data/species_files.h"
#include "data/store_routines.h"
#include "stock/thompson_bell.h"
#include "stock/thompson_bell_plot.h"

namespace {

const std::vector<std::string> kFleets = {"Trawl", "Gillnet", "Handline"};
const std::vector<std::string> kSpecies = {"Hake", "Snapper", "Squid"};

norvo::SpeciesData Species(int s) {
    norvo::SpeciesData d;
    d.header = {
        kSpecies[s],    "",           4.0 + s, 2, 40, 1e6 * (s + 1), 0.01, 3, 0.3 + 0.2 * s, 0.6,
        100.0 + 10 * s, 0.3 + 0.1 * s};
    for (int i = 0; i < 40; ++i) {
        const double mid = d.header.lowerLimit + 2 * i + 1;
        d.classes.push_back({mid, 0.8 / (1 + std::exp(-(mid - 30) / 4)), 1.0 + 0.05 * i});
    }
    return d;
}

std::vector<norvo::CatchRow> Catches(const norvo::SpeciesData& d, int f) {
    std::vector<norvo::CatchRow> rows;
    for (int i = 0; i < 40; ++i)
        rows.push_back({d.classes[i].lengthClass,
                        1000 * std::exp(-0.5 * std::pow((i - 12 - 4 * f) / 6.0, 2)) + 1});
    return rows;
}

norvo::ThompsonBellInputs Inputs() {
    norvo::ThompsonBellInputs in;
    for (int s = 0; s < 3; ++s) {
        in.species.push_back(Species(s));
        in.scenario.species.push_back({kSpecies[s], kSpecies[s] + ".spc"});
    }
    for (const auto& f : kFleets) in.scenario.fleets.push_back({f, f + ".flt"});
    in.selection.assign(3, {});
    in.catches.assign(3, {});
    for (int s = 0; s < 3; ++s)
        for (int f = 0; f < 3; ++f) {
            in.selection[s].push_back(norvo::ScenarioSelection{
                kFleets[f], kSpecies[s], 20.0 + 5 * f, 26.0 + 5 * f, 70.0 + 5 * f, 90.0 + 5 * f});
            in.catches[s].push_back(Catches(in.species[s], f));
        }
    return in;
}

norvo::ThompsonBellOptions Options() {
    norvo::ThompsonBellOptions o;
    o.effort.vary = {"Trawl"};
    o.effort.fixed = {{"Gillnet", 0.5}, {"Handline", 1.5}};
    return o;
}

void BM_ThompsonBellPrepare(benchmark::State& state) {
    const auto in = Inputs();
    const bool selection = state.range(0) != 0;
    for (auto _ : state) benchmark::DoNotOptimize(norvo::PrepareThompsonBell(in, selection));
}
BENCHMARK(BM_ThompsonBellPrepare)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BM_ThompsonBellProjection(benchmark::State& state) {
    const auto in = Inputs();
    const auto o = Options();
    for (auto _ : state) benchmark::DoNotOptimize(norvo::ThompsonBell(in, o));
}
BENCHMARK(BM_ThompsonBellProjection)->Unit(benchmark::kMicrosecond);

void BM_ThompsonBellTablesAndPlots(benchmark::State& state) {
    const auto r = norvo::ThompsonBell(Inputs(), Options());
    using Q = norvo::ThompsonBellQuantity;
    for (auto _ : state) {
        const auto one = norvo::CombinationTable(r, 0, 0);
        const auto all = norvo::CumulativeTable(r);
        size_t size = 0;
        for (const auto* t : {&one, &all})
            for (Q q : {Q::Yield, Q::Biomass, Q::Value}) {
                norvo::ChartCanvas canvas;
                norvo::DrawThompsonBellPlot(canvas, *t, q, t == &all);
                size += canvas.commands().size();
            }
        benchmark::DoNotOptimize(size);
    }
}
BENCHMARK(BM_ThompsonBellTablesAndPlots)->Unit(benchmark::kMicrosecond);

// The program folder (Templates/) of the build: bin/ beside this benchmark's folder.
std::string ProgramFolder() {
    std::error_code ec;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", ec);
    return (self.parent_path().parent_path() / "bin").string();
}

// The whole run from disk: reading the scenario, its six files and nine combinations.
void BM_ThompsonBellFromFile(benchmark::State& state) {
    const std::filesystem::path dir =
        std::filesystem::temp_directory_path() / ("norvo_tb_bench_" + std::to_string(getpid()));
    std::filesystem::create_directories(dir);
    const std::string program = ProgramFolder();
    const std::string sce = (dir / "run.sce").string();
    if (!norvo::CopyTemplate(sce, program)) {
        state.SkipWithError("no templates beside the benchmark");
        return;
    }
    const auto in = Inputs();
    std::vector<norvo::ScenarioMember> species, fleets;
    for (int s = 0; s < 3; ++s) {
        const std::string path = (dir / (kSpecies[s] + ".spc")).string();
        norvo::CopyTemplate(path, program);
        norvo::WriteSpeciesFile(path, in.species[s]);
        species.push_back({kSpecies[s], path});
    }
    for (const auto& f : kFleets) {
        const std::string path = (dir / (f + ".flt")).string();
        norvo::CopyTemplate(path, program);
        norvo::WriteFleetFile(path, {path, f, ""});
        fleets.push_back({f, path});
    }
    norvo::SaveScenarioMembers(sce, species, fleets);
    for (int s = 0; s < 3; ++s)
        for (int f = 0; f < 3; ++f) {
            norvo::SaveSelection(sce, *in.selection[s][f]);
            norvo::SaveCatches(sce, kFleets[f], kSpecies[s], in.catches[s][f]);
        }
    auto o = Options();
    o.scenarioPath = sce;
    for (auto _ : state) benchmark::DoNotOptimize(norvo::RunThompsonBell(o));
    std::filesystem::remove_all(dir);
}
BENCHMARK(BM_ThompsonBellFromFile)->Unit(benchmark::kMillisecond);

}  // namespace
