// Shepherd's K-scan and response surface: the ELEFAN I scans driven by Shepherd's score.
#include "growth/shepherd_search.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"
#include "numerics/validators.h"

namespace norvo {
namespace {

// Twelve monthly samples of a population that grows by a von Bertalanffy curve (Loo 50,
// K 0.8) and recruits once a year: each sample holds a normal mode for each of six cohorts,
// in classes 1..60 of width 1.
ShepherdData SimulatedFile() {
    ElefanInput in;
    in.nS = 12;
    in.nC = 60;
    in.firstMid = 1;
    in.ci = 1;
    for (int m = 1; m <= 12; ++m) {
        in.day.push_back(15);
        in.month.push_back(static_cast<int16_t>(m));
        const double t = SampleTime(15, m);
        for (int c = 1; c <= in.nC; ++c) {
            double f = 0;
            for (int age = 0; age < 6; ++age) {
                const double mean = 50 * (1 - std::exp(-0.8 * (t + age + 0.1)));
                f += 1000 * std::exp(-0.5 * age) * std::exp(-0.5 * std::pow((c - mean) / 1.5, 2));
            }
            in.freq.push_back(static_cast<float>(std::floor(f)));
        }
    }
    return ShepherdDataOf(in);
}

class Recorder : public SearchSink {
  public:
    void kscanColumn(int column, float, float) override { last = column; }
    bool cancelled() override { return ++asked > cancelAfter; }
    int last = 0;
    int asked = 0;
    int cancelAfter = 1'000'000;
};

TEST(ShepherdKScan, ScoresEveryKAndFindsTheGrowthOfTheFile) {
    const ShepherdScorer scorer(SimulatedFile());
    ParallelRn rn(scorer, 2);
    Recorder sink;
    const auto r = ShepherdKScan(rn, scorer.data(), 50, sink);
    ASSERT_TRUE(r);
    EXPECT_EQ(r->scan.columns, 190);
    EXPECT_EQ(sink.last, 190);
    for (int c : {1, 100, 101, 190}) {
        const float k = r->scan.table[2][c];
        EXPECT_EQ(r->scan.table[1][c], ShepherdScore(scorer.data(), 50, k)) << "column " << c;
    }
    // The first strictly largest score; its curve is the file's.
    int best = 1;
    for (int c = 2; c <= 190; ++c)
        if (r->scan.table[1][c] > r->scan.table[1][best]) best = c;
    EXPECT_EQ(r->best.column, best);
    EXPECT_NEAR(r->best.k, 0.8, 0.1);
    EXPECT_EQ(r->best.score, r->scan.table[1][best]);
    EXPECT_EQ(r->best.loo, 50.0f);
    EXPECT_EQ(r->best.startSample, 1.0f);
    const double phase = ShepherdScoreOf(scorer.data(), 50, r->best.k).phase();
    EXPECT_EQ(r->best.startLength, ShepherdStartLength(scorer.data(), 50, r->best.k, phase));
    // Above the top midlength (60) there is no starting length.
    const auto high = ShepherdKScan(rn, scorer.data(), 40, sink);
    ASSERT_TRUE(high);
    EXPECT_FALSE(high->best.startLength);
}

TEST(ShepherdKScan, CancelledScanGivesNothing) {
    const ShepherdScorer scorer(SimulatedFile());
    ParallelRn rn(scorer, 1);
    Recorder sink;
    sink.cancelAfter = 5;
    EXPECT_FALSE(ShepherdKScan(rn, scorer.data(), 50, sink));
}

TEST(ShepherdBestOf, TrendLineColumnAndEmptyTable) {
    const ShepherdScorer scorer(SimulatedFile());
    KScanTable t{};
    t[1][7] = 3.5f;
    t[2][7] = 0.07f;
    const ShepherdBest b = ShepherdBestOf(scorer.data(), t, 7, 70);
    EXPECT_EQ(b.k, 0.07f);
    EXPECT_EQ(b.score, 3.5f);
    EXPECT_TRUE(b.startLength);
    // A column of no scan (0) gives no K and no starting point rather than a fault.
    const ShepherdBest none = ShepherdBestOf(scorer.data(), t, 0, 70);
    EXPECT_EQ(none.k, 0.0f);
    EXPECT_FALSE(none.startLength);
}

TEST(ShepherdSurface, GridOfScoresOverTheRanges) {
    const ShepherdScorer scorer(SimulatedFile());
    ParallelRn rn(scorer, 2);
    Recorder sink;
    const auto s = ShepherdSurface(rn, 0.5f, 1.5f, 40, 60, 1, sink);
    ASSERT_TRUE(s);
    float lo = 9999, hi = 0;
    for (int i = 0; i < kSurfaceSize; ++i)
        for (int j = 0; j < kSurfaceSize; ++j) {
            lo = std::min(lo, s->grid[i][j]);
            hi = std::max(hi, s->grid[i][j]);
        }
    EXPECT_EQ(s->min, lo);
    EXPECT_EQ(s->max, hi);
    EXPECT_DOUBLE_EQ(s->kHeadings[10], 0.5 + 10 * (1.5 - 0.5) / 20);
    EXPECT_EQ(s->grid[0][0], ShepherdScore(scorer.data(), 40, 0.5f));
    EXPECT_EQ(s->grid[20][0], ShepherdScore(scorer.data(), 40, s->state.k));
    EXPECT_EQ(s->band(0, 0), SurfaceBandOf(s->grid[0][0], s->min, s->max));
}

TEST(ShepherdSurface, OneKScoresThePreviousKInTheFirstPass) {
    const ShepherdScorer scorer(SimulatedFile());
    ParallelRn rn(scorer, 1);
    Recorder sink;
    // Loo below every class: all scores 0, whatever K; the bands are all red.
    const auto s = ShepherdSurface(rn, 0.8f, 0.8f, 0.1f, 0.3f, 0.8f, sink);
    ASSERT_TRUE(s);
    EXPECT_EQ(s->min, 0.0f);
    EXPECT_EQ(s->max, 0.0f);
    EXPECT_EQ(s->band(3, 4), SurfaceBand::Red);
    // K from 0 divides by zero.
    EXPECT_THROW(ShepherdSurface(rn, 0, 1, 40, 60, 1, sink), ArithmeticFault);
}

TEST(CheckShepherdSurface, LooRangeRefusals) {
    EXPECT_TRUE(CheckShepherdSurface(20, 60).ok());
    for (auto [from, to] : {std::pair{0.0f, 60.0f}, {20.0f, 2e6f}, {-5.0f, 10.0f}}) {
        const Outcome o = CheckShepherdSurface(from, to);
        ASSERT_FALSE(o.ok());
        EXPECT_EQ(o.refusal()->text, kShepherdInvalidLoo);
        EXPECT_EQ(o.refusal()->title, kValidatorTitle);
    }
    const Outcome fixed = CheckShepherdSurface(40, 40);
    ASSERT_FALSE(fixed.ok());
    EXPECT_EQ(fixed.refusal()->text, kMsgLooFixed);
    EXPECT_EQ(fixed.refusal()->title, kTitleInvalidInput);
    EXPECT_FALSE(CheckShepherdLoo(std::nanf("")).ok());
}

TEST(ShepherdPlotScale, LargestScoreOrOne) {
    KScanTable t{};
    t[1][1] = 2;
    t[1][5] = 7.5f;
    t[1][9] = 100;  // beyond the columns scanned
    EXPECT_EQ(ShepherdPlotScale(t, 8), 7.5);
    EXPECT_EQ(ShepherdPlotScale(KScanTable{}, 190), 1.0);
}

}  // namespace
}  // namespace norvo
