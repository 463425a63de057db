// The shared searches on made-up tables: values the knife-edge formulae cannot reach.
#include "stock/relative_ypr.h"

#include <gtest/gtest.h>

#include <cmath>

namespace norvo {
namespace {

YieldCurveTable TableOf(const std::vector<float>& y, const std::vector<float>& b) {
    YieldCurveTable t;
    for (size_t i = 0; i < y.size() && i < 21; ++i) t.y[i] = y[i];
    for (size_t i = 0; i < b.size() && i < 21; ++i) t.b[i] = b[i];
    return t;
}

// Y' = E: a slope of 1 at the origin, so the target slope is 0.1.
const YprEvaluator kLinear = [](float& e) { return double(e); };

TEST(FindE50, InterpolatesOrStaysAtOneOrGivesZeroWithoutAFall) {
    std::vector<float> b(21);
    for (int i = 0; i <= 20; ++i) b[i] = 1.0f - 0.05f * i;
    b[0] = 1.0f;
    EXPECT_NEAR(FindE50(TableOf({}, b)), 0.5, 1e-6);

    std::vector<float> high(21, 0.6f);
    EXPECT_EQ(FindE50(TableOf({}, high)), 1.0);

    // Element 0 stays 0: a first element at or below 0.5 has no fall to interpolate on.
    EXPECT_EQ(FindE50(TableOf({}, {0.0f, 0.4f})), 0.0);
}

TEST(FindEmax, OneWithoutAFallOrWhenNothingBeatsTheTable) {
    std::vector<float> y(21);
    for (int i = 1; i <= 20; ++i) y[i] = 0.01f * i;
    EXPECT_EQ(FindEmax(TableOf(y, {}), kLinear), 1.0);

    // A fall after element 5; the evaluator never beats y[6].
    y[5] = 10.0f;
    y[6] = 5.0f;
    EXPECT_EQ(FindEmax(TableOf(y, {}), [](float&) { return 1.0; }), 1.0);
}

TEST(FindEmax, FineSearchKeepsTheFirstStrictlyHigherValue) {
    std::vector<float> y(21);
    for (int i = 1; i <= 20; ++i) y[i] = 0.3f - 0.01f * std::abs(i - 8);
    // The table falls after element 8, so the search runs over 0.35 to 0.45; the parabola's
    // peak at 0.4123 is found to the step.
    const YprEvaluator parabola = [](float& e) { return 1 - (e - 0.4123) * (e - 0.4123); };
    EXPECT_NEAR(FindEmax(TableOf(y, {}), parabola), 0.412, 1e-5);
    // A flat top: the first E of it wins.
    const YprEvaluator flat = [](float&) { return 5.0; };
    EXPECT_NEAR(FindEmax(TableOf(y, {}), flat), 0.35, 1e-6);
}

TEST(FindE10, OneWhenEmaxIsOneAndNinetyFiveWhenNoStepIsFlatEnough) {
    std::vector<float> y(21);
    for (int i = 1; i <= 20; ++i) y[i] = 0.05f * i;
    YieldCurveTable t = TableOf(y, {});
    EXPECT_EQ(FindE10(1.0, t, kLinear, kLinear), 1.0);
    EXPECT_NEAR(FindE10(0.5, t, kLinear, kLinear), 0.95, 1e-12);
    EXPECT_EQ(t.y[0], 0.0f);
}

TEST(FindE10, ALoopThatNeverRunsGivesMinusOneStep) {
    // Equal slopes before the flat step: the gaps ga and gb agree from the start.
    YieldCurveTable t =
        TableOf({0.0f, 0.0625f, 0.125f, 0.1875f, 0.25f, 0.25f + 0.00390625f, 0.26f}, {});
    for (int i = 7; i <= 20; ++i) t.y[i] = 0.26f;
    EXPECT_NEAR(FindE10(0.5, t, kLinear, kLinear), -0.05, 1e-12);
}

TEST(FindE10, ConvergesOnASmoothCurve) {
    // Y' = 1 - (1 - E)^4: slope 4 at the origin, a tenth of it where 4 (1 - E)^3 = 0.4.
    const YprEvaluator f = [](float& e) {
        const double v = 1 - double(e);
        return 1 - v * v * v * v;
    };
    YieldCurveTable t;
    for (int i = 1; i <= 20; ++i) {
        float e = 0.05f * i;
        t.y[i] = float(f(e));
    }
    const double e10 = FindE10(0.99, t, f, f);
    EXPECT_GT(e10, 0.4);
    EXPECT_LT(e10, 0.6);
}

TEST(YprCurve, ElevenPointsTheLastAtTheGuardedE) {
    const YprEvaluator guarded = [](float& e) {
        if (e >= 1) e = 0.99999f;
        return double(e);
    };
    const auto pts = YprCurve(guarded);
    ASSERT_EQ(pts.size(), 11u);
    EXPECT_EQ(pts[0].e, 0.0f);
    EXPECT_EQ(pts[10].e, 0.99999f);
    // Unguarded, the counter reaches 1.0000001 and the loop still ends after it.
    const auto plain = YprCurve(kLinear);
    ASSERT_EQ(plain.size(), 11u);
    EXPECT_GT(plain[10].e, 1.0f);
}

TEST(YPrimeTop, TheSurfaceTruncatesTheTwoDRoundsHalvesToEven) {
    EXPECT_FLOAT_EQ(YPrimeTopTruncated(0.05), 0.05f);
    EXPECT_FLOAT_EQ(YPrimeTopRounded(0.05), 0.06f);
    EXPECT_FLOAT_EQ(YPrimeTopTruncated(0.0999), 0.10f);
    EXPECT_FLOAT_EQ(YPrimeTopRounded(0.0999), 0.11f);
}

}  // namespace
}  // namespace norvo
