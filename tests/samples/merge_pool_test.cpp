// Merging two files and pooling samples: grids, placement, date order, pooled sums.
#include "samples/merge_pool.h"

#include <gtest/gtest.h>

#include "sample_fixtures.h"

namespace norvo {
namespace {

using test::MakeData;
using test::RecordsOf;

TEST(GridsCompatible, NeedsEqualIntervalsAndWholeOffsets) {
    EXPECT_FALSE(GridsCompatible(1, 10.5f, 2, 10.5f));  // intervals 1 and 2, same base
    EXPECT_FALSE(GridsCompatible(1, 10.5f, 2, 12.5f));
    EXPECT_TRUE(GridsCompatible(1, 10.5f, 1, 12.5f));
    EXPECT_FALSE(GridsCompatible(1, 10.5f, 1, 12));
    // 0.2 is not exact in 32 bits: (10.6 - 10.2) / 0.2 must still count as whole.
    EXPECT_TRUE(GridsCompatible(0.2f, 10.2f, 0.2f, 10.6f));
    EXPECT_FALSE(GridsCompatible(0.2f, 10.2f, 0.2f, 10.7f));
}

TEST(MergeData, PutsColumnsOnTheCommonGridAndInterleavesByDate) {
    LfqData a = MakeData(10.5, 1, {{1, 2, 3}, {4, 5, 6}}, "first");
    LfqData b = MakeData(12.5, 1, {{7, 8, 9}}, "second");
    a.month = {1, 5};
    b.month = {3};
    auto ra = RecordsOf(a), rb = RecordsOf(b);
    ra[1].area = "north";
    const auto run = MergeData(a, ra, b, rb);
    ASSERT_TRUE(run.ok());
    const LfqTable& t = run.table;
    EXPECT_FLOAT_EQ(t.header.smallestMl, 10.5f);
    EXPECT_EQ(t.classes(), 5);  // 10.5 .. 14.5
    EXPECT_EQ(t.header.remarks, "Merged file; first; second");
    // Dates 1/1 (a1), 1/3 (b1), 1/5 (a2).
    ASSERT_EQ(t.sampleCount(), 3);
    EXPECT_EQ(t.samples[1].samplingMonth, 3);
    EXPECT_EQ(t.samples[2].area, "north");
    for (int k = 0; k < 3; ++k) EXPECT_EQ(t.samples[k].sampleNo, k + 1);
    EXPECT_EQ(test::Column(t, 0), (std::vector<double>{1, 2, 3, 0, 0}));
    EXPECT_EQ(test::Column(t, 1), (std::vector<double>{0, 0, 7, 8, 9}));
    EXPECT_EQ(test::Column(t, 2), (std::vector<double>{4, 5, 6, 0, 0}));
}

TEST(MergeData, KeepsSameDatesAdjacentFirstFileFirst) {
    LfqData a = MakeData(10, 2, {{1}, {2}});
    LfqData b = MakeData(8, 2, {{3, 4}});
    const auto run = MergeData(a, RecordsOf(a), b, RecordsOf(b));
    ASSERT_TRUE(run.ok());
    EXPECT_FLOAT_EQ(run.table.header.smallestMl, 8);
    EXPECT_EQ(test::Column(run.table, 0), (std::vector<double>{0, 1}));  // a, 1/1
    EXPECT_EQ(test::Column(run.table, 1), (std::vector<double>{3, 4}));  // b, 1/1
    EXPECT_EQ(test::Column(run.table, 2), (std::vector<double>{0, 2}));  // a, 1/2
}

TEST(MergeData, RefusesDifferentGrids) {
    LfqData a = MakeData(10.5, 1, {{1}});
    LfqData b = MakeData(10.5, 2, {{1}});
    const auto run = MergeData(a, RecordsOf(a), b, RecordsOf(b));
    EXPECT_EQ(test::RefusalText(run), kMergeIncompatibleText);
    EXPECT_EQ(run.refusal()->title, "Invalid Data");
}

TEST(Pool, ListAndHeadingTexts) {
    EXPECT_EQ(PoolListEntry(3, 5, 7, 998), "Sample 3 (05/07/0998)");
    EXPECT_EQ(PoolDateHeading(15, 3, 2021), "15/03/2021");
}

TEST(PoolState, RefusesSamplesPooledBeforeAndChangesNothing) {
    PoolState st(3);
    ASSERT_TRUE(st.pool({0, 1}, 15, 3, 2021).ok());
    const Outcome again = st.pool({1, 2}, 16, 3, 2021);
    EXPECT_EQ(test::RefusalText(again), kPoolPreviouslyPooledText);
    EXPECT_EQ(again.refusal()->title, "Invalid Action...");
    EXPECT_FALSE(st.isPooled(2));
    EXPECT_EQ(st.pools().size(), 1u);
    EXPECT_FALSE(st.pool({}, 1, 1, 2020).ok());
    EXPECT_FALSE(st.pool({2}, 30, 2, 2021).ok());
}

TEST(PoolData, AddsSelectedSamplesAndCutsToTwoDecimals) {
    // Frequencies as a file stores them (32-bit).
    LfqData d = MakeData(10, 1, {{1.234f, 0.29f}, {2, 1}, {5, 6}}, "old");
    const auto run = PoolData(d, {{{0, 1}, 15, 3, 2021}});
    ASSERT_TRUE(run.ok());
    const LfqTable& t = run.table;
    EXPECT_EQ(t.header.remarks, "old Some samples were pooled.");
    ASSERT_EQ(t.sampleCount(), 2);
    EXPECT_EQ(test::Column(t, 0), (std::vector<double>{5, 6}));  // never pooled
    EXPECT_DOUBLE_EQ(t.freq[0][1], 3.23);
    EXPECT_DOUBLE_EQ(t.freq[1][1], 1.29);  // not 1.28: the cut works on the 32-bit value
    EXPECT_EQ(t.samples[1].samplingDay, 15);
    EXPECT_EQ(t.samples[1].samplingYear, 2021);
}

TEST(CutTwoDecimals, TruncatesTheStoredValue) {
    EXPECT_DOUBLE_EQ(CutTwoDecimals(3.239), 3.23);
    EXPECT_DOUBLE_EQ(CutTwoDecimals(0.29f), 0.29);
    EXPECT_DOUBLE_EQ(CutTwoDecimals(7), 7);
}

}  // namespace
}  // namespace norvo
