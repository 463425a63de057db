#include "growth/munro.h"

#include <gtest/gtest.h>

#include <cmath>

#include "gin_rows.h"
#include "growth/growth_increments.h"

namespace norvo {
namespace {

using test::Row;

// Rows that grow with one K (0.6) towards Loo = largest length + 0.05, so that the search
// meets the true Loo at its fifth pass.
std::vector<GinRow> EqualKRows() {
    const float lmax = 40;
    const float loo = static_cast<float>(lmax + 0.01 * 5);
    const double k = 0.6;
    std::vector<GinRow> rows;
    const int days[] = {200, 300, 150};
    const float l2s[] = {lmax, 30, 22};
    for (int i = 0; i < 3; ++i) {
        const double dt = days[i] / 365.0;
        const float l1 = static_cast<float>(loo - (loo - l2s[i]) * std::exp(k * dt));
        rows.push_back(Row(1, 1, 2000, l1, 1 + days[i], 1, 2000, l2s[i]));
    }
    return rows;
}

TEST(Munro, EqualKStopsAtTheNextPassAfterTheTrueLoo) {
    const auto r = Munro(EqualKRows(), {});
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.lmax, 40.f);
    EXPECT_EQ(r.passes, 6);
    ASSERT_EQ(r.curve.size(), 6u);
    EXPECT_LT(r.curve[4].cv, 1e-4);
    EXPECT_GT(r.curve[5].cv, r.curve[4].cv);
    // The stopping pass stands, not the best one.
    EXPECT_EQ(r.loo, static_cast<float>(40 + 0.01 * 6));
    EXPECT_EQ(r.k, static_cast<float>(r.curve[5].meanK));
    EXPECT_NEAR(r.curve[4].meanK, 0.6, 1e-3);
}

TEST(Munro, StopsWhereTheFallIsBelowTheStep) {
    // Rows with scattered K: the CV falls slowly with Loo and the search ends on the small
    // fall, wherever the CV's minimum lies.
    const std::vector<GinRow> rows = {
        Row(1, 1, 2000, 10, 1, 7, 2000, 20), Row(1, 1, 2000, 20, 1, 1, 2001, 30),
        Row(1, 1, 2000, 30, 1, 7, 2000, 33), Row(1, 1, 2000, 40, 1, 1, 2001, 44)};
    const auto r = Munro(rows, {});
    ASSERT_TRUE(r.ok());
    const auto& c = r.curve;
    ASSERT_GE(c.size(), 2u);
    const double fall = c[c.size() - 2].cv - c.back().cv;
    EXPECT_TRUE(fall < kMunroStopFall);  // a rise is a negative fall
    for (size_t i = 1; i + 1 < c.size(); ++i) EXPECT_GE(c[i - 1].cv - c[i].cv, kMunroStopFall);
    EXPECT_EQ(r.passes, static_cast<int>(c.size()));
}

TEST(Munro, FixedLooAtLmaxLeavesThatRowOut) {
    MunroOptions o;
    o.fixedLoo = 40;
    const auto r = Munro(EqualKRows(), o);
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.passes, 0);
    EXPECT_FALSE(r.searched);
    EXPECT_EQ(r.loo, 40.f);
    EXPECT_EQ(r.estimate.m, 2);
    // The Gulland and Holt tab uses the same fixed Loo.
    EXPECT_EQ(r.gh.fixedLoo, 40.f);
}

TEST(Munro, FixedLooBelowLmaxWarnsAndSearches) {
    MunroOptions o;
    o.fixedLoo = 35;
    const auto r = Munro(EqualKRows(), o);
    ASSERT_TRUE(r.ok());
    ASSERT_EQ(r.notices.size(), 1u);
    EXPECT_EQ(r.notices[0].text, kMunroFixedBelowLmaxText);
    EXPECT_TRUE(r.searched);
    EXPECT_EQ(r.passes, 6);
    // The equivalent line runs through Loo 35, below Lmax, as entered.
    EXPECT_EQ(r.gh.fixedLoo, 35.f);
}

TEST(Munro, PreSelectionAndTheGullandHoltRefusalDoNotStopIt) {
    auto rows = EqualKRows();
    rows.push_back(Row(1, 1, 2000, 25, 1, 3, 2000, 25));
    const auto r = Munro(rows, {});
    ASSERT_TRUE(r.ok());
    ASSERT_EQ(r.notices.size(), 1u);
    EXPECT_EQ(r.notices[0].text, kGinOneDeselectedText);
    EXPECT_FALSE(r.selected[3]);
    EXPECT_EQ(r.passes, 6);
    // With rates of both signs folded by abs the equivalent line may be refused; that is silent.
    MunroOptions o;
    o.fixedLoo = 0;  // below Lmax: the search runs; the equivalent has no fixed value
    const auto z = Munro(EqualKRows(), o);
    ASSERT_TRUE(z.ok());
    EXPECT_FALSE(z.gh.ok());
    EXPECT_EQ(z.notices.size(), 1u);
}

TEST(Munro, FewerThanTwoRowsBelowLooIsOurOwnNotice) {
    // Every row but one reaches the largest length.
    const std::vector<GinRow> rows = {Row(1, 1, 2000, 10, 1, 7, 2000, 40),
                                      Row(1, 1, 2000, 20, 1, 7, 2000, 40),
                                      Row(1, 1, 2000, 30, 1, 7, 2000, 35)};
    MunroOptions o;
    o.fixedLoo = 40;
    const auto r = Munro(rows, o);
    EXPECT_EQ(r.refusal()->text, kMunroTooFewBelowLooText);
}

}  // namespace
}  // namespace norvo
