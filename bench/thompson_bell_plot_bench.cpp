// Speed of what the Thompson and Bell screen does after reading a scenario: the validation,
// preparation and projection of 3 species of 40 classes caught by 4 fleets, and then the two
// tables and the six plots. The file reading is left out (it is the record store's speed).
#include <benchmark/benchmark.h>

#include <array>

#include "chart/chart_canvas.h"
#include "stock/thompson_bell.h"
#include "stock/thompson_bell_plot.h"

namespace {

constexpr int kSpecies = 3, kFleets = 4, kClasses = 40;

norvo::ThompsonBellInputs Scenario() {
    norvo::ThompsonBellInputs in;
    for (int s = 0; s < kSpecies; ++s) {
        norvo::SpeciesData d;
        d.header.speciesName = "Species " + std::to_string(s);
        d.header.lowerLimit = 5;
        d.header.classSize = 2;
        d.header.noGroups = kClasses;
        d.header.recruit = 1e6;
        d.header.a = 0.01;
        d.header.b = 3;
        d.header.m = 0.3 + 0.1 * s;
        d.header.ft = 0.8;
        d.header.loo = 90 + 5 * s;
        d.header.k = 0.4;
        for (int i = 0; i < kClasses; ++i)
            d.classes.push_back({6.0 + 2 * i, 0.02 * i, 1.0 + 0.05 * i});
        in.scenario.species.push_back({d.header.speciesName, d.header.speciesName + ".spc"});
        in.species.push_back(d);
    }
    for (int f = 0; f < kFleets; ++f) {
        const std::string name = "Fleet " + std::to_string(f);
        in.scenario.fleets.push_back({name, name + ".flt"});
        in.fleets.push_back({name + ".flt", name, ""});
    }
    in.selection.assign(kSpecies, {});
    in.catches.assign(kSpecies, {});
    for (int s = 0; s < kSpecies; ++s)
        for (int f = 0; f < kFleets; ++f) {
            in.selection[s].push_back(norvo::ScenarioSelection{in.scenario.fleets[f].name,
                                                               in.scenario.species[s].name,
                                                               15.0 + 5 * f, 20.0 + 5 * f, 70, 90});
            std::vector<norvo::CatchRow> rows;
            for (int i = 0; i < kClasses; ++i)
                rows.push_back({in.species[s].classes[i].lengthClass, 10.0 + (i * (f + 1)) % 37});
            in.catches[s].push_back(rows);
        }
    return in;
}

norvo::ThompsonBellOptions Effort() {
    norvo::ThompsonBellOptions o;
    o.effort.vary = {"Fleet 0", "Fleet 1", "Fleet 2"};
    o.effort.fixed["Fleet 3"] = 1.5;
    return o;
}

void BM_ThompsonBellCalculate(benchmark::State& state) {
    const auto in = Scenario();
    auto o = Effort();
    o.useSelection = state.range(0) != 0;
    for (auto _ : state) benchmark::DoNotOptimize(norvo::ThompsonBell(in, o));
}
BENCHMARK(BM_ThompsonBellCalculate)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BM_ThompsonBellTablesAndPlots(benchmark::State& state) {
    const auto result = norvo::ThompsonBell(Scenario(), Effort());
    std::array<norvo::ChartCanvas, 6> canvases;
    for (auto _ : state) {
        const auto tables =
            std::array{norvo::CombinationTable(result, 0, 0), norvo::CumulativeTable(result)};
        for (int k = 0; k < 6; ++k)
            norvo::DrawThompsonBellPlot(canvases[k], tables[k / 3],
                                        norvo::kThompsonBellQuantities[k % 3], k >= 3);
        benchmark::DoNotOptimize(canvases);
    }
}
BENCHMARK(BM_ThompsonBellTablesAndPlots)->Unit(benchmark::kMicrosecond);

}  // namespace
