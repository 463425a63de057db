#include "growth/gulland_holt.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"
#include "gin_rows.h"
#include "growth/growth_increments.h"

namespace norvo {
namespace {

using test::Row;

// Rows whose rate per day is exactly 0.1 - 0.002 x mean length: Loo 50, K 0.73.
std::vector<GinRow> LinearRows() {
    std::vector<GinRow> rows;
    // Rates 0.06, 0.04, 0.02 over 100 days at mean lengths 20, 30, 40.
    rows.push_back(Row(1, 1, 2000, 17, 11, 4, 2000, 23));
    rows.push_back(Row(1, 1, 2000, 28, 11, 4, 2000, 32));
    rows.push_back(Row(1, 1, 2000, 39, 11, 4, 2000, 41));
    return rows;
}

TEST(SeasonalText, BandsInTheOrderOfTheTests) {
    const std::string notSig = "Seasonal growth oscillations are not significant (C<0.05).";
    const std::string small = "Seasonal growth oscillations are significant but small (C<0.5).";
    const std::string strong = "Seasonal growth oscillations are significant and strong (C<1).";
    const std::string very = "Seasonal growth oscillations are very significant (C > 1).";
    EXPECT_EQ(SeasonalText(0.0499), notSig);
    EXPECT_EQ(SeasonalText(0.05), very);  // the gap 0.05..0.1 falls to the last line
    EXPECT_EQ(SeasonalText(0.09), very);
    EXPECT_EQ(SeasonalText(0.1), small);
    EXPECT_EQ(SeasonalText(0.5), small);
    EXPECT_EQ(SeasonalText(0.51), strong);
    EXPECT_EQ(SeasonalText(1.0), strong);
    EXPECT_EQ(SeasonalText(1.01), very);
}

TEST(GullandHolt, LineGivesKAndLooFromTheRegression) {
    const auto r = GullandHolt(LinearRows(), {});
    ASSERT_TRUE(r.hasLine());
    EXPECT_EQ(r.n(), 3);
    EXPECT_EQ(r.regression.n(), 3.f);
    EXPECT_NEAR(r.b, -0.002, 1e-7);
    EXPECT_NEAR(r.a, 0.1, 1e-6);
    EXPECT_EQ(r.k, static_cast<float>(-static_cast<double>(r.b) * 365));
    EXPECT_NEAR(r.loo, 50, 1e-3);
    EXPECT_TRUE(r.notices.empty());
}

TEST(GullandHolt, FixedLooLineRunsThroughLooAndTheMeans) {
    GullandHoltOptions o;
    o.fixedLoo = 60;
    const auto r = GullandHolt(LinearRows(), o);
    ASSERT_TRUE(r.hasLine());
    EXPECT_EQ(r.loo, 60.f);
    // Means (30, 0.04): b = 0.04 / (30 - 60).
    EXPECT_NEAR(r.b, 0.04 / -30.0, 1e-7);
    EXPECT_NEAR(r.a + r.b * 60, 0, 1e-6);
    EXPECT_NEAR(r.k, 0.04 / 30.0 * 365, 1e-4);
}

TEST(GullandHolt, RefusalsOfTheLine) {
    // A rising line.
    auto rows = LinearRows();
    rows[0][kLength2] = 17.5f;
    rows[2][kLength2] = 45;
    auto r = GullandHolt(rows, {});
    ASSERT_FALSE(r.ok());
    EXPECT_EQ(r.refusal()->text, kGhRefusedText);
    EXPECT_EQ(r.refusal()->title, kGhRefusedTitle);

    // Equal rates: b = 0 is refused before Loo is divided out.
    rows = {Row(1, 1, 2000, 10, 11, 4, 2000, 12), Row(1, 1, 2000, 20, 11, 4, 2000, 22),
            Row(1, 1, 2000, 30, 11, 4, 2000, 32)};
    r = GullandHolt(rows, {});
    EXPECT_EQ(r.refusal()->text, kGhRefusedText);
    EXPECT_EQ(r.loo, 0.f);

    // A fixed Loo at 3 x the largest length (41) is refused too.
    GullandHoltOptions o;
    o.fixedLoo = 123;
    EXPECT_EQ(GullandHolt(LinearRows(), o).refusal()->text, kGhRefusedText);
    o.fixedLoo = 122.9f;
    EXPECT_TRUE(GullandHolt(LinearRows(), o).ok());
}

TEST(GullandHolt, FixedValueTestComesBeforeTheCountTest) {
    GullandHoltOptions o;
    o.fixedLoo = 0;
    o.selected = {true, false, false};
    const auto r = GullandHolt(LinearRows(), o);
    EXPECT_EQ(r.refusal()->text, kGhNoFixedText);
    EXPECT_EQ(r.refusal()->title, kGhNoFixedTitle);

    o.fixedLoo.reset();
    const auto few = GullandHolt(LinearRows(), o);
    EXPECT_TRUE(few.ok());
    EXPECT_TRUE(few.noResult);
    EXPECT_TRUE(few.notices.empty());
    EXPECT_FALSE(few.hasLine());
}

TEST(GullandHolt, ShrinkingRowsStayIn) {
    auto rows = LinearRows();
    rows.push_back(Row(1, 1, 2000, 46, 11, 4, 2000, 45));
    const auto r = GullandHolt(rows, {});
    EXPECT_EQ(r.n(), 4);
    EXPECT_NEAR(r.y[3], -0.01, 1e-7);
}

TEST(GullandHolt, SameMeanLengthIsOurOwnRefusalNotAFault) {
    const std::vector<GinRow> rows = {Row(1, 1, 2000, 19, 11, 4, 2000, 21),
                                      Row(1, 1, 2000, 18, 11, 4, 2000, 22),
                                      Row(1, 1, 2000, 17, 11, 4, 2000, 23)};
    EXPECT_EQ(GullandHolt(rows, {}).refusal()->text, kGhSameLengthText);
}

TEST(SeasonalFit, RecoversASineAndItsMinimum) {
    // Rates that deviate from the line 0.1 - 0.002 x by 30 % x sin(w (d - 40)).
    const double w = 2 * kSeasonalPi / 365;
    std::vector<int> days;
    std::vector<float> x, y;
    for (int d = 0; d < 365; d += 20) {
        const float len = 20 + d % 7;
        const double line = 0.1 - 0.002 * len;
        const double wrapped = d > 182 ? d - 365 : d;
        days.push_back(d);
        x.push_back(len);
        y.push_back(static_cast<float>(line * (1 + 0.3 * std::sin(w * (wrapped - 40)))));
    }
    const auto s = FitSeasonal(days, x, y, 0.1f, -0.002f);
    ASSERT_FALSE(s.degenerate);
    EXPECT_NEAR(s.c, 0.3, 1e-4);
    // The minimum lies a quarter-year before the rise through zero at day 40.
    EXPECT_NEAR(s.winterDay, 40 - 365.0 / 4 + 365, 0.1);
    EXPECT_EQ(s.text, SeasonalText(s.c));
}

TEST(SeasonalFit, DegenerateAndSkippedRows) {
    // Points on the line: no oscillation, the default winter point.
    const auto flat =
        FitSeasonal({10, 100, 200}, {20, 30, 40}, {0.06f, 0.04f, 0.02f}, 0.1f, -0.002f);
    EXPECT_TRUE(flat.degenerate);
    EXPECT_EQ(flat.c, 0);
    EXPECT_DOUBLE_EQ(flat.winterPoint(), 296.0 / 365);
    // Rows where the line is at or below 0 are skipped.
    const auto skipped =
        FitSeasonal({10, 100, 200}, {20, 50, 60}, {0.06f, 0.01f, 0.01f}, 0.1f, -0.002f);
    EXPECT_EQ(skipped.points.size(), 1u);
}

}  // namespace
}  // namespace norvo
