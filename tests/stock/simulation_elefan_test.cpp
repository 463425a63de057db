// End to end: a simulated file of known growth scored by the ELEFAN I K-scan.
#include <gtest/gtest.h>

#include "growth/elefan_lfq.h"
#include "growth/elefan_search.h"
#include "growth/elefan_search_engine.h"
#include "stock/simulation.h"

namespace norvo {
namespace {

LfqData ImageOf(const SimulationResult& r, SimSet set) {
    const LengthFreqTable t = LengthFreq(r, set);
    LfqData d;
    d.smallestMl = t.smallestMl;
    d.classInterval = t.classInterval;
    d.noOfClasses = t.classes;
    d.largestMl = t.midlength(t.classes - 1);
    d.noOfSamples = static_cast<int32_t>(r.dates.size());
    for (const auto& date : r.dates) {
        d.day.push_back(static_cast<int16_t>(date.day));
        d.month.push_back(static_cast<int16_t>(date.month));
        d.year.push_back(static_cast<int16_t>(date.year));
    }
    d.freq = t.freq;
    return d;
}

TEST(SimulatedFile, KScanAtTheTrueLooPeaksNearTheTrueK) {
    // Small variability keeps the cohorts apart; with 20 % ELEFAN's peak wanders widely.
    SimulationInputs in = DefaultSimulationInputs();
    in.fishPerSample = 200;
    in.looCv = in.kCv = 0.05;
    const SimulationResult r = Simulate(in);
    const LfqData image = ImageOf(r, SimSet::Stock);
    auto scorer = MakeElefanScorer(image);
    ParallelRn rn(*scorer, 1);
    KScanInput k;
    k.loo = 30;
    SearchSink sink;
    const auto scan = KScan(rn, k, sink);
    ASSERT_TRUE(scan);
    EXPECT_NEAR(scan->best.params.k, 1.5, 0.25) << "Rn " << scan->best.rn;
}

}  // namespace
}  // namespace norvo
