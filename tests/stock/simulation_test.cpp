#include "stock/simulation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace norvo {
namespace {

TEST(SimRandom, IsXoshiroSeededBySplitMixAndGivesHalfOpenUniforms) {
    // Seed 0: SplitMix64's first outputs are published; xoshiro256** follows from them.
    SimRandom a(0), b(0), c(1);
    const uint64_t first = a.Next();
    EXPECT_EQ(first, b.Next());
    EXPECT_NE(first, c.Next());
    EXPECT_EQ(first, 0x99ec5f36cb75f2b4ULL);
    double sum = 0, lo = 1, hi = 0;
    for (int i = 0; i < 100000; ++i) {
        const double u = a.Uniform();
        ASSERT_GE(u, 0.0);
        ASSERT_LT(u, 1.0);
        sum += u;
        lo = std::min(lo, u);
        hi = std::max(hi, u);
    }
    EXPECT_NEAR(sum / 100000, 0.5, 0.005);
    EXPECT_LT(lo, 0.001);
    EXPECT_GT(hi, 0.999);
}

TEST(DrawFromNormal, IsTruncatedAtOneAndAHalfWithUnitScale) {
    SimRandom rng(7);
    const int n = 20000;
    double sum = 0, sq = 0, maxAbs = 0;
    for (int i = 0; i < n; ++i) {
        const double z = DrawFromNormal(rng);
        sum += z;
        sq += z * z;
        maxAbs = std::max(maxAbs, std::fabs(z));
    }
    EXPECT_LE(maxAbs, 1.5);
    EXPECT_GT(maxAbs, 1.45);
    EXPECT_NEAR(sum / n, 0.0, 0.02);
    // A standard normal cut at +-1.5 has a standard deviation of 0.743.
    EXPECT_NEAR(std::sqrt(sq / n), 0.743, 0.015);
}

TEST(DrawFishParams, ZeroVariabilityStillConsumesFourNormalDraws) {
    SimulationInputs in = DefaultSimulationInputs();
    in.looCv = in.kCv = in.cCv = in.wpCv = 0;
    in.c = 0.5;
    in.wp = 0.3;
    SimRandom rng(42), reference(42);
    const FishParams p = DrawFishParams(rng, in);
    EXPECT_EQ(p.k, 1.5);
    EXPECT_EQ(p.kMonthly, 0.125);
    EXPECT_EQ(p.loo, 30.0);
    EXPECT_EQ(p.c, 0.5);
    EXPECT_EQ(p.wp, 0.3);
    for (int i = 0; i < 4; ++i) DrawFromNormal(reference);
    EXPECT_EQ(rng.Next(), reference.Next());

    // The order is K, Loo, C, WP.
    in.kCv = 0.2;
    SimRandom first(5), check(5);
    const FishParams q = DrawFishParams(first, in);
    EXPECT_DOUBLE_EQ(q.k, (1 + DrawFromNormal(check) * 0.2) * 1.5);
}

TEST(LengthAtAge, PlainAndSeasonalBranches) {
    FishParams p{1.0, 1.0 / 12, 30.0, 0.0, 0.7};
    FishParams noWp = p;
    noWp.wp = 0;
    // C = 0: the plain curve whatever WP says.
    EXPECT_DOUBLE_EQ(LengthAtAge(p, 0.3, 1.0), 30.0 * (1 - std::exp(-1.0)));
    EXPECT_EQ(LengthAtAge(p, 0.3, 0.4), LengthAtAge(noWp, 0.3, 0.4));

    FishParams s{1.0, 1.0 / 12, 30.0, 1.0, 0.2};
    EXPECT_NEAR(LengthAtAge(s, 0.4, 0.0), 0.0, 1e-12);  // every fish starts at zero
    // Over whole years the oscillation cancels out.
    EXPECT_NEAR(LengthAtAge(s, 0.4, 2.0), 30.0 * (1 - std::exp(-2.0)), 1e-9);
    // With C = 1 growth stops at the winter point (calendar 0.2, i.e. age 0.8 for birth 0.4).
    const double stall = LengthAtAge(s, 0.4, 0.81) - LengthAtAge(s, 0.4, 0.79);
    const double summer = LengthAtAge(s, 0.4, 0.31) - LengthAtAge(s, 0.4, 0.29);
    EXPECT_LT(stall, 1e-3);
    EXPECT_GT(summer, 0.3);
}

TEST(SelectionOgive, TwoLimbsThroughTheirFiftyAndSeventyFivePercentLengths) {
    EXPECT_NEAR(SelectionOgive(9.5, 9.5, 12, 50, 51), 0.5, 1e-6);
    EXPECT_NEAR(SelectionOgive(12, 9.5, 12, 50, 51), 0.75, 1e-6);
    EXPECT_NEAR(SelectionOgive(51, 9.5, 12, 50, 51), 0.5, 1e-6);
    EXPECT_NEAR(SelectionOgive(50, 9.5, 12, 50, 51), 0.75, 1e-6);
    EXPECT_NEAR(SelectionOgive(30, 9.5, 12, 50, 51), 1.0, 1e-3);
    EXPECT_NEAR(SelectionOgive(2, 9.5, 12, 50, 51), 1.0 / 28, 1e-4);
    // A zero limb makes the whole ogive zero.
    EXPECT_EQ(SelectionOgive(30, 9.5, 0, 50, 51), 0.0);
    EXPECT_EQ(SelectionOgive(30, 9.5, 12, 50, 0), 0.0);
    // Negligible deselection drops the right limb.
    SelectionRow row;
    row.deselectionNegligible = true;
    row.r75 = row.r50 = 0;
    EXPECT_NEAR(SelectionOf(row, 200), 1.0, 1e-9);
    EXPECT_NEAR(MigrationOgive(11.5, 9, 11.5), 0.75, 1e-9);
}

TEST(BirthDay, FallsInTheMonthsWithRecruitment) {
    std::array<double, 12> onlyMay{};
    onlyMay[4] = 3;
    std::array<double, 12> marchAndOctober{};
    marchAndOctober[2] = 1;
    marchAndOctober[9] = 3;
    SimRandom rng(9);
    int october = 0;
    for (int i = 0; i < 4000; ++i) {
        const double b = BirthDay(rng, onlyMay);
        ASSERT_GE(b, 120 / 365.0);
        ASSERT_LT(b, 151 / 365.0);
        const double c = BirthDay(rng, marchAndOctober);
        const bool inMarch = c >= 59 / 365.0 && c < 90 / 365.0;
        const bool inOctober = c >= 273 / 365.0 && c < 304 / 365.0;
        ASSERT_TRUE(inMarch || inOctober);
        october += inOctober;
    }
    EXPECT_NEAR(october / 4000.0, 0.75, 0.03);
}

TEST(CheckSimulationInputs, DefaultsPassAndMigrationNeedsTwoAreas) {
    SimulationInputs in = DefaultSimulationInputs();
    EXPECT_FALSE(CheckSimulationInputs(in));
    in.migrate = true;
    auto p = CheckSimulationInputs(in);
    ASSERT_TRUE(p);
    EXPECT_EQ(p->text, "Please re-check inputs for the population selection and Fmax parameters.");
    EXPECT_EQ(p->title, "Re-check Inputs...");
    SelectionRow b;
    b.area = "B";
    in.selection.push_back(b);
    EXPECT_FALSE(CheckSimulationInputs(in));
    in.route.l75 = in.route.l50;
    EXPECT_TRUE(CheckSimulationInputs(in));

    SimulationInputs bad = DefaultSimulationInputs();
    bad.recruitment.fill(0);
    EXPECT_TRUE(CheckSimulationInputs(bad));
    bad = DefaultSimulationInputs();
    bad.selection[0].l75 = 9;  // below L50
    EXPECT_TRUE(CheckSimulationInputs(bad));
    bad = DefaultSimulationInputs();
    bad.kCv = 0.7;  // some fish would get a negative K
    EXPECT_TRUE(CheckSimulationInputs(bad));
    bad = DefaultSimulationInputs();
    bad.ageGroups = 4;  // table not resized
    EXPECT_TRUE(CheckSimulationInputs(bad));
}

int CountBelow(const SimulationResult& r, SimSet set, double length) {
    int n = 0;
    for (const auto& sample : r.fish[static_cast<size_t>(set)])
        for (const auto& f : sample) n += f.length < length;
    return n;
}

TEST(Simulate, DefaultRunIsFullAndRepeatsExactlyForEqualSeeds) {
    const SimulationInputs in = DefaultSimulationInputs();
    const SimulationResult a = Simulate(in);
    const SimulationResult b = Simulate(in);
    ASSERT_EQ(a.dates.size(), 12u);
    EXPECT_EQ(a.dates[0].day, 15);
    EXPECT_EQ(a.dates[0].month, 1);
    EXPECT_EQ(a.dates[11].month, 12);
    EXPECT_EQ(a.dates[11].year, 2001);
    for (size_t set = 0; set < 2; ++set) {
        ASSERT_EQ(a.fish[set].size(), 12u);
        for (size_t j = 0; j < 12; ++j) {
            ASSERT_EQ(a.fish[set][j].size(), 50u);
            for (size_t i = 0; i < 50; ++i) {
                ASSERT_EQ(a.fish[set][j][i].length, b.fish[set][j][i].length);
                ASSERT_EQ(a.fish[set][j][i].ageGroup, b.fish[set][j][i].ageGroup);
            }
        }
    }
    SimulationInputs other = in;
    other.seed = 101;
    EXPECT_NE(Simulate(other).fish[0][0][0].length, a.fish[0][0][0].length);

    // Pinned output of seed 100 with the defaults.
    EXPECT_NEAR(a.fish[0][0][0].length, 13.849377751, 1e-8);
    EXPECT_EQ(a.fish[0][0][0].ageGroup, 1);
    const LengthFreqTable stock = LengthFreq(a, SimSet::Stock);
    EXPECT_DOUBLE_EQ(stock.smallestMl, 0.5);
    EXPECT_EQ(stock.classes, 38);
    EXPECT_EQ(stock.freq[17][0], 2);  // 17.5 cm
    EXPECT_EQ(stock.freq[18][0], 8);
    EXPECT_NEAR(stock.stats[0].mean, 19.284967, 1e-6);
    EXPECT_NEAR(stock.stats[0].sd, 3.892370, 1e-6);
}

TEST(Simulate, WithoutVariabilityOneCohortsModesFollowTheGrowthCurve) {
    SimulationInputs in = DefaultSimulationInputs();
    in.looCv = in.kCv = 0;
    in.ageGroups = 2;
    in.yearClasses = {{0, 0.0, 0.5}, {1, 1.0, 0.5}};  // only last year's cohort
    in.recruitment.fill(0);
    in.recruitment[0] = 1;  // born in January
    in.fishPerSample = 200;
    in.classInterval = 0.5;
    const SimulationResult r = Simulate(in);
    const LengthFreqTable t = LengthFreq(r, SimSet::Stock);
    const FishParams mean{1.5, 0.125, 30.0, 0.0, 0.0};
    for (size_t j = 0; j < r.dates.size(); ++j) {
        size_t mode = 0;
        for (size_t c = 0; c < t.freq.size(); ++c)
            if (t.freq[c][j] > t.freq[mode][j]) mode = c;
        // Mid-January birth, sampled on the 15th of the month a year later and on.
        const double age = 1.0 + j / 12.0;
        const double expected = LengthAtAge(mean, 15.0 / 365, age);
        EXPECT_NEAR(t.midlength(static_cast<int>(mode)), expected, 0.75) << "sample " << j;
        EXPECT_LT(t.stats[j].sd, 0.6);
    }
}

TEST(Simulate, CatchLacksTheSmallFishWhenSelectionStartsLate) {
    SimulationInputs in = DefaultSimulationInputs();
    in.selection[0].l50 = 20;
    in.selection[0].l75 = 22;
    const SimulationResult r = Simulate(in);
    const int stockSmall = CountBelow(r, SimSet::Stock, 15);
    const int catchSmall = CountBelow(r, SimSet::Catch, 15);
    EXPECT_GT(stockSmall, 100);
    EXPECT_LT(catchSmall * 5, stockSmall);
    const auto rows = AgeDistSummary(r, in.yearClasses);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].stock + rows[1].stock + rows[2].stock, 600);
    EXPECT_EQ(rows[0].catchCount + rows[1].catchCount + rows[2].catchCount, 600);
    // Young fish escape the gear: the catch is older than the stock.
    EXPECT_LT(rows[0].catchCount, rows[0].stock);
}

TEST(Simulate, MigrantsAreTheLargeFish) {
    SimulationInputs in = DefaultSimulationInputs();
    SelectionRow b;
    b.area = "B";
    in.selection.push_back(b);
    in.migrate = true;
    ASSERT_FALSE(CheckSimulationInputs(in));
    const SimulationResult r = Simulate(in);
    int smallAway = 0, small = 0, largeAway = 0, large = 0;
    for (const auto& sample : r.fish[0])
        for (const auto& f : sample) {
            if (f.length < 5) small++, smallAway += f.inTo;
            if (f.length > 16) large++, largeAway += f.inTo;
        }
    EXPECT_GT(small, 10);
    EXPECT_GT(large, 10);
    EXPECT_LT(smallAway, small / 10 + 1);
    EXPECT_GT(largeAway, large * 9 / 10);
}

TEST(Simulate, HeavyMortalityEndsWithShortSamples) {
    SimulationInputs in = DefaultSimulationInputs();
    for (auto& y : in.yearClasses) y.mortality = 10;
    in.selection[0].fmax = 10;
    in.samples = 2;
    in.fishPerSample = 5;
    const SimulationResult r = Simulate(in);
    for (const auto& sample : r.fish[1]) EXPECT_LE(sample.size(), 5u);
}

TEST(LengthFreq, BothSetsShareTheirClassesAndCountEveryFish) {
    SimulationResult r;
    r.classInterval = 2;
    r.ageGroups = 1;
    r.dates = {{15, 1, 2001}, {15, 2, 2001}};
    r.fish[0] = {{{3.1, 0}, {4.9, 0}, {5.0, 0}}, {}};
    r.fish[1] = {{{11.9, 0}}, {{0.1, 0}, {12.0, 0}}};
    const LengthFreqTable s = LengthFreq(r, SimSet::Stock);
    const LengthFreqTable c = LengthFreq(r, SimSet::Catch);
    EXPECT_DOUBLE_EQ(s.smallestMl, 1.0);
    EXPECT_EQ(s.classes, 7);  // classes 0-2 .. 12-14
    EXPECT_EQ(c.classes, 7);
    EXPECT_EQ(s.freq[1][0], 1);  // 3.1
    EXPECT_EQ(s.freq[2][0], 2);  // 4.9 and 5.0
    EXPECT_EQ(s.stats[0].count, 3);
    EXPECT_NEAR(s.stats[0].mean, 13.0 / 3, 1e-12);
    EXPECT_NEAR(
        s.stats[0].sd,
        std::sqrt(((3.1 - 13.0 / 3) * (3.1 - 13.0 / 3) + (4.9 - 13.0 / 3) * (4.9 - 13.0 / 3) +
                   (5.0 - 13.0 / 3) * (5.0 - 13.0 / 3)) /
                  2),
        1e-12);
    EXPECT_EQ(s.stats[1].count, 0);
    EXPECT_EQ(c.stats[0].sd, 0);
    EXPECT_EQ(c.freq[0][1], 1);
    EXPECT_EQ(c.freq[6][1], 1);

    // Below half a class of 0.25 the first class would lie under 0.25: tiny fish join it.
    r.classInterval = 0.25;
    const LengthFreqTable fine = LengthFreq(r, SimSet::Catch);
    EXPECT_DOUBLE_EQ(fine.smallestMl, 0.375);
    EXPECT_EQ(fine.freq[0][1], 1);
}

}  // namespace
}  // namespace norvo
