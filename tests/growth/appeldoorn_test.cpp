#include "growth/appeldoorn.h"

#include <gtest/gtest.h>

#include <cmath>

#include "growth/vbgf.h"

namespace norvo {
namespace {

// Tagged fish of a seasonal curve: release and recapture dates and lengths.
GinData Increments(int n, double loo = 90, double k = 0.5, double c = 0.6, double wp = 0.4) {
    GinData d;
    for (int i = 0; i < n; ++i) {
        const int m1 = 1 + (i * 5) % 12, m2 = 1 + (i * 7 + 4) % 12;
        const float d1 = static_cast<float>(1 + i % 27), d2 = static_cast<float>(3 + (i * 3) % 25);
        const float y1 = 2000, y2 = 2001 + static_cast<float>(i % 2);
        const float l1 = static_cast<float>(15 + 6 * i);
        const double tb = static_cast<float>((y1 * 365.0 + MonthStart(m1) + d1) / 365);
        const double ta = static_cast<float>((y2 * 365.0 + MonthStart(m2) + d2) / 365);
        const double pi2 = kMarquardtPiTwo;
        const double s =
            (k * c / pi2) * (std::sin(pi2 * (ta - (wp - 0.5))) - std::sin(pi2 * (tb - (wp - 0.5))));
        const float l2 = static_cast<float>(l1 + (loo - l1) * (1 - std::exp(-k * (ta - tb) - s)));
        d.rows.push_back({0, d1, float(m1), y1, l1, d2, float(m2), y2, l2});
    }
    return d;
}

TEST(Appeldoorn, ExactIncrementsGiveBackTheCurve) {
    const GinData d = Increments(12);
    AppeldoornOptions o;
    o.constraints = DefaultAppeldoornConstraints(d);
    const AppeldoornRun run = RunAppeldoorn(d, o);
    ASSERT_TRUE(run.ok());
    ASSERT_TRUE(run.fitted);
    EXPECT_NEAR(run.fit.b[kApLoo], 90, 1e-3);
    EXPECT_NEAR(run.fit.b[kApK], 0.5, 1e-4);
    EXPECT_NEAR(run.fit.b[kApC], 0.6, 1e-4);
    EXPECT_NEAR(run.fit.b[kApWP], 0.4, 1e-4);
    ASSERT_EQ(run.notices.size(), 1u);
    EXPECT_EQ(run.notices[0].title, kApSuccessTitle);
    EXPECT_EQ(run.notices[0].text, kApSuccessText);
    EXPECT_EQ(run.remarks.substr(0, std::string(kMqConverged).size()), kMqConverged);
}

TEST(Appeldoorn, TableHoldsYearsIncrementAndTaggedLength) {
    GinData d;
    d.rows.push_back({0, 15, 3, 2001, 20.5f, 1, 1, 2002, 31.25f});
    const ApTable t = AppeldoornTable(d);
    ASSERT_TRUE(t.ok());
    EXPECT_EQ(t.rows[0].x, static_cast<float>((2002 * 365.0 + 0 + 1) / 365));
    EXPECT_EQ(t.rows[0].tb, static_cast<float>((2001 * 365.0 + 59 + 15) / 365));
    EXPECT_EQ(t.rows[0].y, 31.25f - 20.5f);
    EXPECT_EQ(t.rows[0].length, 20.5f);
    d.rows[0][6] = 13;
    EXPECT_EQ(AppeldoornTable(d).refusal()->text, kApBadDateText);
}

TEST(Appeldoorn, ChecksRunInOrder) {
    const GinData d = Increments(8);
    const float tagged = LargestTaggedLength(d);
    const ApConstraints base = DefaultAppeldoornConstraints(d);
    auto first = [&](auto change) {
        ApConstraints c = base;
        change(c);
        const Outcome o = CheckAppeldoornConstraints(c, tagged);
        return o.ok() ? std::string() : o.refusal()->text;
    };
    EXPECT_EQ(first([](ApConstraints&) {}), "");
    EXPECT_EQ(base[kApLoo].min, tagged);  // the minimum at the largest tagged length passes
    // Below the tagged length wins over a K out of order.
    EXPECT_EQ(first([&](ApConstraints& c) {
                  c[kApLoo].min = tagged - 1;
                  c[kApK].min = 5;
              }),
              kApLooBelowTaggedText);
    EXPECT_EQ(first([](ApConstraints& c) { c[kApLoo].max = c[kApLoo].start - 1; }),
              kApLooOrderText);
    EXPECT_EQ(first([](ApConstraints& c) { c[kApK].min = 5; }), kApKOrderText);
    EXPECT_EQ(first([](ApConstraints& c) { c[kApC].start = 2; }), kApCOrderText);
    EXPECT_EQ(first([](ApConstraints& c) { c[kApWP].min = 0.6f; }), kApWPOrderText);
    AppeldoornOptions o;
    o.constraints = base;
    o.constraints[kApK].min = 5;
    const AppeldoornRun run = RunAppeldoorn(d, o);
    ASSERT_EQ(run.notices.size(), 1u);  // no success notice after a failed check
    EXPECT_EQ(run.notices[0].title, kApInvalidInputTitle);
}

TEST(Appeldoorn, CountTestAndFixedSeasonalTerms) {
    // Four free parameters: four rows are refused, but the success notice still follows.
    GinData d = Increments(4);
    AppeldoornOptions o;
    o.constraints = DefaultAppeldoornConstraints(Increments(8));
    AppeldoornRun run = RunAppeldoorn(d, o);
    EXPECT_FALSE(run.ok());
    EXPECT_FALSE(run.fitted);
    ASSERT_EQ(run.notices.size(), 2u);
    EXPECT_EQ(run.notices[0].text, kMoreParamsText);
    EXPECT_EQ(run.notices[0].title, "Invalid Data");
    EXPECT_EQ(run.notices[1].title, kApSuccessTitle);

    // Five rows pass.
    d = Increments(5);
    run = RunAppeldoorn(d, o);
    EXPECT_TRUE(run.fitted);

    // C and WP fixed: a fit of two, both marked constant, C.V. not available.
    d = Increments(8, 90, 0.5, 0, 0);
    o.constraints[kApC] = {0, 0, 0};
    o.constraints[kApWP] = {0, 0, 0};
    run = RunAppeldoorn(d, o);
    ASSERT_TRUE(run.fitted);
    EXPECT_EQ(run.fit.stars[kApC], "***");
    EXPECT_EQ(run.fit.stars[kApWP], "***");
    EXPECT_FALSE(run.cv[kApC].has_value());
    ASSERT_TRUE(run.cv[kApK].has_value());
    EXPECT_NEAR(*run.cv[kApK], run.fit.stdErr[kApK] / run.fit.b[kApK], 1e-9);
    EXPECT_NEAR(run.fit.b[kApK], 0.5, 1e-4);
}

}  // namespace
}  // namespace norvo
