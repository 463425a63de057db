// Shepherd's score and starting length against cases worked by hand.
#include "growth/shepherd.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"
#include "mortality/make_lfq.h"

namespace norvo {
namespace {

// A file of one-class-per-entry frequencies: `bySample[s][k]`, samples on the given
// (day, month) dates.
ElefanInput Input(float firstMid, float ci, const std::vector<std::vector<float>>& bySample,
                  const std::vector<std::pair<int, int>>& dates) {
    ElefanInput in;
    in.nS = static_cast<int>(bySample.size());
    in.nC = static_cast<int>(bySample.front().size());
    in.firstMid = firstMid;
    in.ci = ci;
    for (size_t s = 0; s < bySample.size(); ++s) {
        in.day.push_back(static_cast<int16_t>(dates[s].first));
        in.month.push_back(static_cast<int16_t>(dates[s].second));
        in.freq.insert(in.freq.end(), bySample[s].begin(), bySample[s].end());
    }
    return in;
}

TEST(ShepherdData, ClassLimitsAndSampleTimes) {
    const ShepherdData d = ShepherdDataOf(Input(10, 2, {{1, 2, 3}, {0, 0, 1}}, {{0, 0}, {15, 3}}));
    EXPECT_EQ(d.boundary, (std::vector<float>{9, 11, 13, 15}));
    EXPECT_EQ(d.sampleTime[0], 0.0f);
    EXPECT_EQ(d.sampleTime[1], static_cast<float>((15 + 59) / 365.0));
    EXPECT_EQ(d.frequency(2, 3), 1.0f);
    EXPECT_DOUBLE_EQ(d.topMid(), 14.0);
}

// One sample, one class 9..11 of frequency f, Loo 20, K 0.5. Both passes share
// dT = (1/K) ln((Loo - 9) / (Loo - 11)) and the wave factor g = sin(pi dT) / (pi dT); the second
// pass's midpoint lies a quarter year earlier, so S1 = c cos(a), S2 = c sin(a) and the score is
// c = sqrt(f) g dT whatever the sample's date.
// The score's square roots would fault on a negative frequency: the file is refused first.
TEST(ShepherdData, FileWithANegativeFrequencyRefused) {
    EXPECT_TRUE(CheckShepherdFile(test::MakeLfq(10, 2, {{1, 0, 3}})).ok());
    const Outcome o = CheckShepherdFile(test::MakeLfq(10, 2, {{1, -1, 3}}));
    ASSERT_FALSE(o.ok());
    EXPECT_EQ(o.refusal()->title, "Invalid Data");
}

TEST(ShepherdScore, OneSampleOneClassBySquareRootAndWaveFactors) {
    const double pi = 3.14159265358979;
    const double dT = 2 * std::log(11.0 / 9.0);
    const double g = std::sin(pi * dT) / (pi * dT);
    const double tm = 2 * (std::log(20.0) - 0.5 * std::log(11.0 * 9.0));
    for (int day : {0, 100, 300}) {
        const ShepherdData d = ShepherdDataOf(Input(10, 2, {{9}}, {{day, 0}}));
        const ShepherdScoreParts p = ShepherdScoreOf(d, 20, 0.5f);
        const double ts = d.sampleTime[0];
        EXPECT_NEAR(p.s1, 3 * g * dT * std::cos((tm - ts) * 6.28318530717958), 1e-12);
        EXPECT_NEAR(p.s2, 3 * g * dT * std::cos((tm - 0.25 - ts) * 6.28318530717958), 1e-12);
        EXPECT_EQ(p.score, static_cast<float>(3 * g * dT)) << "day " << day;
    }
}

TEST(ShepherdScore, ClassesAtOrAboveLooAddNothing) {
    const ShepherdData d = ShepherdDataOf(Input(10, 2, {{4, 9, 1, 16}}, {{1, 6}}));
    // Loo below every limit: no term, and K = 0 is never divided by.
    EXPECT_EQ(ShepherdScore(d, 8, 0.5f), 0.0f);
    EXPECT_EQ(ShepherdScore(d, 8, 0), 0.0f);
    // Loo inside the third class: only the first two classes enter, so the last two
    // frequencies are free.
    const ShepherdData other = ShepherdDataOf(Input(10, 2, {{4, 9, 100, 0}}, {{1, 6}}));
    EXPECT_GT(ShepherdScore(d, 14, 0.5f), 0.0f);
    EXPECT_EQ(ShepherdScore(d, 14, 0.5f), ShepherdScore(other, 14, 0.5f));
    // A limit exactly at Loo does not enter either.
    EXPECT_EQ(ShepherdScore(d, 13, 0.5f), ShepherdScore(other, 13, 0.5f));
}

TEST(ShepherdScore, FrequenciesRaisedByFourDoubleTheScore) {
    const std::vector<std::vector<float>> f = {{1, 5, 9, 3, 0, 2}, {0, 2, 7, 8, 4, 1}};
    std::vector<std::vector<float>> f4 = f;
    for (auto& row : f4)
        for (float& x : row) x *= 4;
    const std::vector<std::pair<int, int>> dates = {{10, 2}, {20, 8}};
    const ShepherdData d = ShepherdDataOf(Input(5, 1, f, dates));
    const ShepherdData d4 = ShepherdDataOf(Input(5, 1, f4, dates));
    for (float k : {0.2f, 0.7f, 2.5f}) {
        const float s = ShepherdScore(d, 15, k);
        EXPECT_GT(s, 0.0f);
        EXPECT_EQ(ShepherdScore(d4, 15, k), 2 * s);
    }
}

TEST(ShepherdScore, FaultsInsteadOfNonFiniteScores) {
    const ShepherdData d = ShepherdDataOf(Input(10, 2, {{4, 9}}, {{1, 6}}));
    EXPECT_THROW(ShepherdScore(d, 20, 0), ArithmeticFault);
    const ShepherdData negative = ShepherdDataOf(Input(10, 2, {{4, -1}}, {{1, 6}}));
    EXPECT_THROW(ShepherdScore(negative, 20, 0.5f), ArithmeticFault);
}

TEST(ShepherdScoreParts, PhaseOfTheLargerSum) {
    EXPECT_EQ((ShepherdScoreParts{.s1 = -3, .s2 = 2}).phase(), kShepherdPhase1);
    EXPECT_EQ((ShepherdScoreParts{.s1 = 1, .s2 = -2}).phase(), kShepherdPhase2);
    EXPECT_EQ((ShepherdScoreParts{.s1 = 2, .s2 = -2}).phase(), kShepherdPhase1);
}

// Classes 10..30 by 2, the first sample at time 0, Loo 40, K 0.5.
// Phase 0: the curve first reaches 30 at t = 3 (31.08); a year earlier it is 25.28, two years
// earlier 15.74, three years earlier 0: the start is 15.74, cut to 15.7.
// Phase 0.25: it reaches 30 at t = 4 (33.87), goes back to t = 3, then to t = 1 (12.51), since
// at t = 0 it is below 0: 12.5.
TEST(ShepherdStartLength, WalksTheCurveInWholeYears) {
    std::vector<float> row(11, 1);
    const ShepherdData d = ShepherdDataOf(Input(10, 2, {row}, {{0, 0}}));
    EXPECT_EQ(ShepherdStartLength(d, 40, 0.5f, kShepherdPhase1), 15.7f);
    EXPECT_EQ(ShepherdStartLength(d, 40, 0.5f, kShepherdPhase2), 12.5f);
    // A later first sample shifts the whole-year grid: from t = 0.5 the curve reaches 30 at
    // t = 3.5 (32.10), and goes back to t = 1.5 (21.09) but not to t = 0.5 (8.85).
    const ShepherdData late = ShepherdDataOf(Input(10, 2, {row}, {{0, 7}}));
    const double t = late.sampleTime[0] + 1;
    const float expected = static_cast<float>(std::floor(40 * (1 - std::exp(-0.5 * t)) * 10) / 10);
    EXPECT_EQ(ShepherdStartLength(late, 40, 0.5f, kShepherdPhase1), expected);
}

TEST(ShepherdStartLength, NoneWhenLooIsAtOrBelowTheTopMidlength) {
    std::vector<float> row(11, 1);
    const ShepherdData d = ShepherdDataOf(Input(10, 2, {row}, {{0, 0}}));
    EXPECT_FALSE(ShepherdStartLength(d, 30, 0.5f, kShepherdPhase1));
    EXPECT_FALSE(ShepherdStartLength(d, 25, 0.5f, kShepherdPhase2));
    EXPECT_TRUE(ShepherdStartLength(d, 30.01f, 0.5f, kShepherdPhase1));
}

TEST(ReadDefaultsShepherd, FieldsFromTheLargestMidlength) {
    const ShepherdDefaults d = ReadDefaultsShepherd(41);
    EXPECT_EQ(ShownText(d.surfaceLooFrom), "20.50");
    EXPECT_EQ(ShownText(d.surfaceLooTo), "61.5");
    EXPECT_EQ(ShownText(d.kscanLoo), "43.05");
    EXPECT_EQ(ShownText(d.surfaceKFrom), "0.01");
    EXPECT_EQ(ShownText(d.surfaceKTo), "10");
}

}  // namespace
}  // namespace norvo
