// Class-size adjustment and running averages.
#include "samples/adjust_smooth.h"

#include <gtest/gtest.h>

#include "sample_fixtures.h"

namespace norvo {
namespace {

using test::MakeData;
using test::RecordsOf;

TEST(AdjustData, ClassSizeLimits) {
    const LfqData d = MakeData(10.5, 1, {{1, 2, 3, 4}});
    for (double ok : {0.25, 10.0}) EXPECT_TRUE(AdjustData(d, RecordsOf(d), ok).ok()) << ok;
    for (double bad : {0.24, 10.01, 0.0, -1.0}) {
        const auto run = AdjustData(d, RecordsOf(d), bad);
        EXPECT_EQ(test::RefusalText(run), kAdjustInvalidSizeText) << bad;
    }
}

TEST(AdjustData, SameIntervalKeepsFrequencies) {
    const LfqData d = MakeData(10.5, 1, {{3, 0, 7.5, 1}, {0, 2, 0, 4}});
    const auto run = AdjustData(d, RecordsOf(d), 1);
    ASSERT_TRUE(run.ok());
    EXPECT_FLOAT_EQ(run.table.header.smallestMl, 10.5f);
    ASSERT_EQ(run.table.classes(), 4);
    for (int s = 0; s < 2; ++s)
        for (int c = 0; c < 4; ++c) EXPECT_NEAR(run.table.freq[c][s], d.freq[c][s], 0.01);
}

TEST(AdjustData, WiderClassesKeepTheLowerBoundAndSumPairs) {
    // Classes 10-12, 12-14, ... regrouped by 4 from the same lower bound 10.
    const LfqData d = MakeData(11, 2, {{1, 2, 3, 4, 5}}, "old");
    const auto run = AdjustData(d, RecordsOf(d), 4);
    ASSERT_TRUE(run.ok());
    EXPECT_FLOAT_EQ(run.table.header.smallestMl, 12);
    EXPECT_EQ(test::Column(run.table, 0), (std::vector<double>{3, 7, 5}));
    EXPECT_EQ(run.table.header.remarks, "old; class size adjusted from 2 to 4.");
}

TEST(AdjustData, NarrowerClassesSplitByOverlapAndDropSmallTails) {
    const LfqData d = MakeData(11, 2, {{10, 0.01, 4}});
    const auto run = AdjustData(d, RecordsOf(d), 0.5);
    ASSERT_TRUE(run.ok());
    const auto col = test::Column(run.table, 0);
    ASSERT_EQ(col.size(), 12u);
    for (int c = 0; c < 4; ++c) EXPECT_DOUBLE_EQ(col[c], 2.5);
    for (int c = 4; c < 8; ++c) EXPECT_DOUBLE_EQ(col[c], 0);  // 0.01 is dropped whole
    for (int c = 8; c < 12; ++c) EXPECT_DOUBLE_EQ(col[c], 1);
}

TEST(AdjustData, UnevenRatioConservesTheTotalToTheRemainder) {
    const LfqData d = MakeData(10.5, 1, {{5, 9, 13, 2, 7, 1}});
    const auto run = AdjustData(d, RecordsOf(d), 0.7);
    ASSERT_TRUE(run.ok());
    EXPECT_NEAR(test::Sum(test::Column(run.table, 0)), 37, 6 * 0.01);
    EXPECT_FLOAT_EQ(run.table.header.smallestMl, 10.35f);
}

TEST(SmoothData, FiveClassesByFiveGiveOneCentredClass) {
    const LfqData d = MakeData(10, 2, {{1, 2, 3, 4, 10}, {5, 5, 5, 5, 5}}, "old");
    const auto run = SmoothData(d, RecordsOf(d), 5);
    ASSERT_TRUE(run.ok());
    ASSERT_EQ(run.table.classes(), 1);
    EXPECT_FLOAT_EQ(run.table.header.smallestMl, 14);  // M1 + 2d
    EXPECT_DOUBLE_EQ(run.table.freq[0][0], 4);
    EXPECT_DOUBLE_EQ(run.table.freq[0][1], 5);
    EXPECT_EQ(run.table.header.remarks, "old; File smoothed by 5 classes");
}

TEST(SmoothData, ThreeClassesAndTooShortFiles) {
    const LfqData d = MakeData(10, 1, {{3, 6, 9, 0}});
    const auto run = SmoothData(d, RecordsOf(d), 3);
    ASSERT_TRUE(run.ok());
    EXPECT_FLOAT_EQ(run.table.header.smallestMl, 11);
    EXPECT_EQ(test::Column(run.table, 0), (std::vector<double>{6, 5}));
    EXPECT_EQ(test::RefusalText(SmoothData(d, RecordsOf(d), 5)), kSmoothTooFewText);
    EXPECT_FALSE(SmoothData(d, RecordsOf(d), 4).ok());
}

}  // namespace
}  // namespace norvo
