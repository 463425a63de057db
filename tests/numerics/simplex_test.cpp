#include "numerics/simplex.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"

namespace norvo {
namespace {

using Vec = std::vector<double>;

SimplexOptions Box(size_t n, double lo, double hi) {
    SimplexOptions o;
    o.mask.assign(n, 1);
    o.lower.assign(n, lo);
    o.upper.assign(n, hi);
    o.step.assign(n, 0.15);
    return o;
}

double Bowl(const Vec& p) {
    return 1 + (p[0] - 3) * (p[0] - 3) + 2 * (p[1] + 1) * (p[1] + 1);
}

TEST(Simplex, FindsTheMinimumOfASmoothBowl) {
    const SimplexResult r = Simplex(Bowl, {1, 1}, Box(2, -10, 10));
    EXPECT_EQ(r.code, kSimplexConverged);
    EXPECT_NEAR(r.best[0], 3, 1e-3);
    EXPECT_NEAR(r.best[1], -1, 1e-3);
    EXPECT_NEAR(r.value, 1, 1e-7);
    EXPECT_TRUE(r.notices.empty());
}

TEST(Simplex, FixedParametersKeepTheirStartAndAllFixedIsRefused) {
    SimplexOptions o = Box(2, -10, 10);
    o.mask = {0, 1};
    const SimplexResult r = Simplex(Bowl, {1, 1}, o);
    EXPECT_EQ(r.code, kSimplexConverged);
    EXPECT_EQ(r.best[0], 1);
    EXPECT_NEAR(r.best[1], -1, 1e-3);

    o.mask = {0, -1};
    int calls = 0;
    const SimplexResult none = Simplex(
        [&](const Vec& p) {
            ++calls;
            return Bowl(p);
        },
        {1, 1}, o);
    EXPECT_EQ(none.code, kSimplexNoneFree);
    EXPECT_EQ(calls, 0);
    ASSERT_EQ(none.notices.size(), 1u);
    EXPECT_EQ(none.notices[0].text,
              "The start parameters provided are not adequate. Please check!");
}

TEST(Simplex, StaysInsideTheBoxAndDrawsAStartOutsideIn) {
    // The free minimum (3, -1) lies outside; the best point sits just inside the upper x limit.
    SimplexOptions o = Box(2, -2, 2);
    Vec seen;
    const SimplexResult r = Simplex(
        [&](const Vec& p) {
            if (seen.empty())
                seen = p;  // the first call is the start as given
            else {
                EXPECT_LE(p[0], 2);
                EXPECT_GE(p[1], -2);
            }
            return Bowl(p);
        },
        {5, 1}, o);
    EXPECT_EQ(seen, (Vec{5, 1}));
    EXPECT_NEAR(r.best[0], 2, 1e-3);
    EXPECT_LE(r.best[0], 2);
    EXPECT_NEAR(r.best[1], -1, 1e-3);
}

TEST(Simplex, AParameterStartingOnItsUpperLimitNeverMoves) {
    SimplexOptions o = Box(2, -2, 2);
    const SimplexResult r = Simplex(Bowl, {2, 0.5}, o);
    EXPECT_EQ(r.best[0], 2);
    EXPECT_NEAR(r.best[1], -1, 1e-3);
}

TEST(Simplex, DrawIntoBoxUsesTheLargestFractionOutside) {
    Vec p = {4, 1.5};
    DrawIntoBox(p, {0, 0}, {-1, -1}, {2, 1}, {0, 1});
    // x is half outside (t = 0.5), y a third: the step is halved, times 0.999999999999.
    EXPECT_DOUBLE_EQ(p[0], 0.5 * 0.999999999999 * 4);
    EXPECT_DOUBLE_EQ(p[1], 0.5 * 0.999999999999 * 1.5);
}

TEST(Simplex, HalvesTrialsBreakingTheFurtherCondition) {
    SimplexOptions o = Box(2, -10, 10);
    o.acceptable = [](const Vec& p) { return p[0] + p[1] <= 1; };
    const SimplexResult r = Simplex(
        [](const Vec& p) {
            EXPECT_LE(p[0] + p[1], 1 + 1e-12);
            return (p[0] - 2) * (p[0] - 2) + (p[1] - 2) * (p[1] - 2) + 1;
        },
        {0, 0}, o);
    EXPECT_NEAR(r.best[0] + r.best[1], 1, 1e-3);
}

TEST(Simplex, CountsEveryCallAndTheLimitWins) {
    int64_t calls = 0;
    SimplexOptions o = Box(2, -10, 10);
    o.limit = 2;  // twenty evaluations
    const SimplexResult r = Simplex(
        [&](const Vec& p) {
            ++calls;
            return Bowl(p);
        },
        {1, 1}, o);
    EXPECT_EQ(r.code, kSimplexLimit);
    EXPECT_EQ(r.evaluations, calls);
    EXPECT_GE(calls, 20);
    EXPECT_LT(r.value, Bowl({1, 1}));
}

TEST(Simplex, FlatObjectiveStopsAtOnceUnlessItIsZero) {
    const SimplexResult r = Simplex([](const Vec&) { return 4.0; }, {1, 1}, Box(2, -10, 10));
    EXPECT_EQ(r.code, kSimplexConverged);
    EXPECT_EQ(r.evaluations, 4);  // f0 and the three vertices
    EXPECT_EQ(r.restarts, 0);
    EXPECT_THROW(Simplex([](const Vec&) { return 0.0; }, {1, 1}, Box(2, -10, 10)), ArithmeticFault);
}

}  // namespace
}  // namespace norvo
