#include "growth/growth_increments.h"

#include <gtest/gtest.h>

#include "gin_rows.h"

namespace norvo {
namespace {

using test::Row;

TEST(GrowthIncrements, DayCountsUseTheMonthStartsAndTheirMidDay) {
    // 15 March 2001 to 10 February 2002: 59 + 15 and 365 + 31 + 10 days into 2001.
    const GinRow r = Row(15, 3, 2001, 10, 10, 2, 2002, 12);
    EXPECT_EQ(DaysAtLiberty(r), (365 + 41) - 74);
    // Mid count 2001 * 365 + (74 + 406) / 2 = ... + 240.
    EXPECT_EQ(MidDayOfYear(r), (2001L * 365 * 2 + 74 + 406) / 2 % 365);
    EXPECT_EQ(LargestLength({r, Row(1, 1, 2000, 30, 2, 1, 2000, 20)}), 30.f);
}

TEST(GrowthIncrements, PreSelectionCountsOnlyRowsSelectedAtTheTime) {
    const std::vector<GinRow> rows = {
        Row(1, 1, 2000, 10, 1, 6, 2000, 15), Row(1, 1, 2000, 12, 1, 6, 2000, 12),
        Row(1, 1, 2000, 20, 1, 6, 2000, 24), Row(1, 1, 2000, 22, 1, 6, 2000, 21),
        Row(1, 1, 2000, 30, 1, 6, 2000, 33), Row(1, 1, 2000, 35, 1, 6, 2000, 37)};
    // Row 4 was deselected by hand: only row 2 is counted.
    const auto one = PreSelectGrowingRows(rows, {true, true, true, false, true, true});
    ASSERT_TRUE(one.ok());
    ASSERT_EQ(one.notices.size(), 1u);
    EXPECT_EQ(one.notices[0].text, kGinOneDeselectedText);
    EXPECT_EQ(one.notices[0].title, kGinDeselectedTitle);
    EXPECT_EQ(one.selected, (std::vector<bool>{true, false, true, false, true, true}));

    const auto two = PreSelectGrowingRows(rows, {});
    ASSERT_EQ(two.notices.size(), 1u);
    EXPECT_EQ(two.notices[0].text,
              "A total of 2 were deselected and cannot be used in the model because the "
              "recaptured length is either equal or less than the initial length.");
    EXPECT_EQ(two.deselected, 2);
    EXPECT_TRUE(two.ok());  // four rows remain
}

TEST(GrowthIncrements, TwoRowsLeftAreRefusedAfterTheCount) {
    const std::vector<GinRow> rows = {Row(1, 1, 2000, 10, 1, 6, 2000, 15),
                                      Row(1, 1, 2000, 12, 1, 6, 2000, 11),
                                      Row(1, 1, 2000, 20, 1, 6, 2000, 24)};
    const auto p = PreSelectGrowingRows(rows, {});
    ASSERT_FALSE(p.ok());
    ASSERT_EQ(p.notices.size(), 2u);
    EXPECT_EQ(p.notices[0].text, kGinOneDeselectedText);
    EXPECT_EQ(p.refusal()->text, kGinTooFewText);
    EXPECT_EQ(p.refusal()->title, kGinTooFewTitle);
}

TEST(GrowthIncrements, RecaptureOnTheTaggingDayIsRefusedWithItsRow) {
    const std::vector<GinRow> rows = {Row(1, 1, 2000, 10, 1, 6, 2000, 15),
                                      Row(3, 4, 2000, 12, 3, 4, 2000, 14)};
    EXPECT_EQ(CheckLibertyDays(rows, {}).refusal()->text, DatesOutOfOrderText(2));
    // A deselected row does not matter.
    EXPECT_TRUE(CheckLibertyDays(rows, {true, false}).ok());
}

}  // namespace
}  // namespace norvo
