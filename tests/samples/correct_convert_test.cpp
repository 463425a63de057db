// Correction for probabilities of capture and conversion to another length measure.
#include <gtest/gtest.h>

#include <cmath>

#include "sample_fixtures.h"
#include "samples/convert.h"
#include "samples/correct.h"

namespace norvo {
namespace {

using test::MakeData;
using test::RecordsOf;

TEST(Ogive, EachLimbGivesThreeQuartersAtItsOwn75) {
    const Ogive o{20, 25, 60, 70};
    const Ogive left{20, 25, 0, 0};
    EXPECT_NEAR(OgiveProbability(left, 20), 0.5, 1e-12);
    EXPECT_NEAR(OgiveProbability(left, 25), 0.75, 1e-12);
    // The right limb falls with length.
    const double atR75 = OgiveProbability(o, 60) / OgiveProbability(left, 60);
    const double atR50 = OgiveProbability(o, 70) / OgiveProbability(left, 70);
    EXPECT_NEAR(atR75, 0.75, 1e-9);
    EXPECT_NEAR(atR50, 0.5, 1e-9);
    EXPECT_LT(OgiveProbability(o, 90), OgiveProbability(o, 70));
    // Far out on a steep limb: 0, not an overflow.
    EXPECT_EQ(OgiveProbability(Ogive{50, 50.01, 0, 0}, 1), 0.0);
}

TEST(Ogive, RefusesLimbsTheWrongWayRound) {
    for (const Ogive& bad :
         {Ogive{25, 20, 0, 0}, Ogive{0, 5, 0, 0}, Ogive{20, 25, 70, 60}, Ogive{20, 25, 60, 0}}) {
        EXPECT_EQ(test::RefusalText(CheckOgive(bad)), kCorrectIncompleteText);
    }
}

TEST(CorrectData, DividesByPAndEmptiesClassesWithoutChance) {
    const LfqData d = MakeData(10, 2, {{4, 6, 8}, {1, 1, 1}}, "old");
    const auto run = CorrectData(d, RecordsOf(d), {0, 0.5, 1});
    ASSERT_TRUE(run.ok());
    EXPECT_EQ(test::Column(run.table, 0), (std::vector<double>{0, 12, 8}));
    EXPECT_EQ(test::Column(run.table, 1), (std::vector<double>{0, 2, 1}));
    EXPECT_EQ(run.table.header.remarks, "old; File corrected for probabilities");
}

TEST(ProbabilitiesFromPrb, MatchesMidlengthsAs32BitValues) {
    const LfqData d = MakeData(10.2, 0.2, {{1, 1, 1}});
    PrbData prb;
    prb.length = {10.6f, 10.4f, 10.2f};
    prb.probability = {1, 0.5f, 0};
    const auto p = ProbabilitiesFromPrb(d, prb);
    ASSERT_TRUE(p.ok());
    EXPECT_EQ(p.p, (std::vector<double>{0, 0.5, 1}));

    prb.length = {10.2f, 10.6f};
    prb.probability = {1, 1};
    EXPECT_EQ(test::RefusalText(ProbabilitiesFromPrb(d, prb)),
              "The probability file has no row for the midlength 10.4. Please check.");
    EXPECT_EQ(test::RefusalText(ProbabilitiesFromPrb(d, PrbData{})), kCorrectPrbEmptyText);
}

TEST(ConvertData, LinearFunctionMovesFrequenciesOntoTheNewGrid) {
    // L(new) = 2 + 1 * L ^ 1 over classes 10-12, 12-14, 14-16.
    const LfqData d = MakeData(11, 2, {{1.5, 3, 4.111}}, "old");
    const auto run = ConvertData(d, RecordsOf(d), {2, 2, 1, 1});
    ASSERT_TRUE(run.ok());
    EXPECT_FLOAT_EQ(run.table.header.classInterval, 2);
    EXPECT_FLOAT_EQ(run.table.header.smallestMl, 13);
    EXPECT_EQ(test::Column(run.table, 0), (std::vector<double>{1.5, 3, 4.11}));
    EXPECT_EQ(run.table.header.remarks, "old; lengths adjusted");
}

TEST(ConvertData, DecreasingFunctionSwapsLimitsAndKeepsTheTotal) {
    const LfqData d = MakeData(11, 2, {{2, 4, 6}});
    const auto run = ConvertData(d, RecordsOf(d), {2, 100, -1, 1});  // 100 - L
    ASSERT_TRUE(run.ok());
    EXPECT_FLOAT_EQ(run.table.header.smallestMl, 85);  // 84-86 holds the old 14-16
    EXPECT_EQ(test::Column(run.table, 0), (std::vector<double>{6, 4, 2}));
}

TEST(ConvertData, PowerFunctionSpreadsByOverlap) {
    // Weights 0-10 by 10 to lengths d * W ^ e with e = 0.5.
    const LfqData d = MakeData(5, 10, {{10, 10}});
    const auto run = ConvertData(d, RecordsOf(d), {1, 1, 0.5, 1});
    ASSERT_TRUE(run.ok());
    EXPECT_NEAR(test::Sum(test::Column(run.table, 0)), 20, 0.05);
}

TEST(ConvertData, RefusesFlatFunctionsAndNegativeBases) {
    const LfqData d = MakeData(11, 2, {{1, 1}});
    EXPECT_EQ(test::RefusalText(ConvertData(d, RecordsOf(d), {1, 2, 0, 1})), kConvertFlatText);
    const LfqData low = MakeData(0.5, 2, {{1, 1}});
    EXPECT_EQ(test::RefusalText(ConvertData(low, RecordsOf(low), {1, 1, 0.5, 1})),
              kConvertNegativeText);
}

TEST(RoundInterval, PicksRoundSteps) {
    EXPECT_DOUBLE_EQ(RoundInterval(10, 5), 2);
    EXPECT_DOUBLE_EQ(RoundInterval(11, 5), 2.5);
    EXPECT_DOUBLE_EQ(RoundInterval(0.3, 10), 0.05);
    EXPECT_DOUBLE_EQ(RoundInterval(70, 10), 10);
}

}  // namespace
}  // namespace norvo
