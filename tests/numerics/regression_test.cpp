#include "numerics/regression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "base/fault.h"

namespace norvo {
namespace {

using R = RegressionResult;

// Slots are compared with a relative tolerance: a different rounding inside a sum may move the
// last bit.
void ExpectNear(float actual, double expected) {
    EXPECT_NEAR(actual, expected, 1e-6 * std::max(1.0, std::fabs(expected)));
}

RegressionResult Linear(const std::vector<float>& x, const std::vector<float>& y) {
    RegressionResult r;
    LinearRegression(x, y, 0, static_cast<int32_t>(x.size()) - 1, r);
    return r;
}

RegressionResult Functional(const std::vector<float>& x, const std::vector<float>& y) {
    RegressionResult r;
    FunctionalRegression(x, y, 0, static_cast<int16_t>(x.size() - 1), r);
    return r;
}

// A scattered data set of n points (x = 1..n) with a known structure but no perfect fit.
void Scatter(int n, std::vector<float>& x, std::vector<float>& y) {
    x.clear();
    y.clear();
    for (int i = 1; i <= n; ++i) {
        x.push_back(static_cast<float>(i));
        y.push_back(static_cast<float>(2 * i + (i % 3) - 1));
    }
}

TEST(StudentT, TablesDifferInRowEightOnly) {
    EXPECT_EQ(StudentTLinear(8), 2.306f);
    EXPECT_EQ(StudentTFunctional(8), 2.31f);
    EXPECT_EQ(StudentTLinear(9), 2.62f);
    EXPECT_EQ(StudentTFunctional(9), 2.62f);
    EXPECT_EQ(StudentTLinear(0), 0.0f);
    for (int d = 0; d <= 38; ++d) {
        if (d != 8) {
            EXPECT_EQ(StudentTLinear(d), StudentTFunctional(d)) << d;
        }
    }
    EXPECT_THROW(StudentTLinear(39), SubscriptFault);
}

TEST(LinearRegression, ThreeScatteredPointsWorkedByHand) {
    // mean 2, 2; Sxx = Syy = 2, Sxy = 1; b = 0.5, a = 1; residuals -0.5, 1, -0.5.
    const auto r = Linear({1, 2, 3}, {1, 3, 2});
    EXPECT_EQ(r[R::kN], 3.0f);
    ExpectNear(r[R::kA], 1.0);
    ExpectNear(r[R::kB], 0.5);
    ExpectNear(r[R::kR], 0.5);
    ExpectNear(r[R::kF], 0.5 / 1.5);
    const double seA = std::sqrt(7.0 / 3.0) * std::sqrt(1.5);
    const double seB = std::sqrt(0.5) * std::sqrt(1.5);
    ExpectNear(r[R::kSeA], seA);
    ExpectNear(r[R::kSeB], seB);
    ExpectNear(r[R::kALow], 1.0 - 12.71 * seA);
    ExpectNear(r[R::kBHigh], 0.5 + 12.71 * seB);
    ExpectNear(r[R::kSdX], 1.0);
    ExpectNear(r[R::kSdY], 1.0);
    EXPECT_EQ(r[R::kRLow], 0.0f);  // n = 3 has no limits of r
    EXPECT_EQ(r[R::kRHigh], 0.0f);
}

TEST(LinearRegression, ThreePointsOnALine) {
    const auto r = Linear({1, 2, 3}, {3, 5, 7});
    ExpectNear(r[R::kA], 1.0);
    ExpectNear(r[R::kB], 2.0);
    EXPECT_EQ(r[R::kF], 1e22f);
    EXPECT_EQ(r[R::kSeA], 0.0f);
    EXPECT_EQ(r[R::kSeB], 0.0f);
    ExpectNear(r[R::kALow], 1.0);
    ExpectNear(r[R::kBHigh], 2.0);
    ExpectNear(r[R::kR], 1.0);
    EXPECT_EQ(r[R::kRLow], 0.0f);
    EXPECT_EQ(r[R::kRHigh], 0.0f);
}

TEST(LinearRegression, InvalidFits) {
    // All y alike: r = 1, b = 0, F = 1e22, no errors or limits.
    auto r = Linear({1, 2, 3, 4}, {5, 5, 5, 5});
    EXPECT_EQ(r[R::kR], 1.0f);
    EXPECT_EQ(r[R::kA], 5.0f);
    EXPECT_EQ(r[R::kB], 0.0f);
    EXPECT_EQ(r[R::kF], 1e22f);
    EXPECT_EQ(r[R::kSdY], 0.0f);
    ExpectNear(r[R::kMeanX], 2.5);
    for (int s : {4, 5, 6, 7, 8, 9, 15, 16}) EXPECT_EQ(r[s], 0.0f) << s;

    // Two points: exact line, F left 0.
    r = Linear({1, 3}, {2, 8});
    EXPECT_EQ(r[R::kN], 2.0f);
    EXPECT_EQ(r[R::kA], -1.0f);
    EXPECT_EQ(r[R::kB], 3.0f);
    EXPECT_EQ(r[R::kF], 0.0f);
    for (int s : {4, 5, 6, 7, 8, 9, 15, 16}) EXPECT_EQ(r[s], 0.0f) << s;
    ExpectNear(r[R::kR], 1.0);
}

TEST(LinearRegression, LimitsOfRFromFourPoints) {
    const auto r = Linear({1, 2, 3, 4}, {1, 3, 2, 5});
    const double rr = r[R::kR];
    ASSERT_LT(rr, 0.99999);
    const double h = 1.96 / std::sqrt(1.0);
    EXPECT_NEAR(r[R::kRLow], std::tanh(std::atanh(rr) - h), 1e-5);
    EXPECT_NEAR(r[R::kRHigh], std::tanh(std::atanh(rr) + h), 1e-5);
    ExpectNear(r[R::kSeB], std::sqrt(2.7 / 2.0 / 5.0));  // SSres 2.7, Sxx 5
}

TEST(LinearRegression, TableRowByDegreesOfFreedom) {
    std::vector<float> x, y;
    auto tOf = [](const RegressionResult& r) { return (r[R::kAHigh] - r[R::kA]) / r[R::kSeA]; };
    Scatter(10, x, y);
    EXPECT_NEAR(tOf(Linear(x, y)), 2.306, 1e-4);
    Scatter(11, x, y);
    EXPECT_NEAR(tOf(Linear(x, y)), 2.62, 1e-4);  // row 9 is wider than row 8
    Scatter(42, x, y);
    EXPECT_NEAR(tOf(Linear(x, y)), 1.96, 1e-4);
    EXPECT_NEAR(tOf(Functional(x, y)), 2.02, 1e-4);  // 40 degrees of freedom read row 31
    Scatter(12, x, y);
    EXPECT_NEAR(tOf(Functional(x, y)), 2.23, 1e-4);
}

TEST(LinearRegression, FaultsAndRange) {
    const std::vector<float> x = {1, 2, 3}, y = {1, 2, 4};
    RegressionResult r;
    EXPECT_THROW(LinearRegression(x, y, 1, 1, r), ArithmeticFault);  // n = 1
    const std::vector<float> same = {2, 2, 2};
    EXPECT_THROW(LinearRegression(same, y, 0, 2, r), ArithmeticFault);  // Sxx = 0, y varies
    EXPECT_THROW(LinearRegression(x, y, 0, 3, r), SubscriptFault);
    // A sub-range is fitted alone.
    LinearRegression(x, y, 1, 2, r);
    EXPECT_EQ(r[R::kN], 2.0f);
    EXPECT_EQ(r[R::kB], 2.0f);
    EXPECT_THROW(r[0], SubscriptFault);
    EXPECT_THROW(r[18], SubscriptFault);
}

TEST(FunctionalRegression, SlopeIsTheRatioOfDeviations) {
    const auto r = Functional({1, 2, 3, 4}, {1, 3, 2, 5});
    const double sdX = std::sqrt(5.0 / 3.0), sdY = std::sqrt(8.75 / 3.0);
    ExpectNear(r[R::kSdX], sdX);
    ExpectNear(r[R::kSdY], sdY);
    ExpectNear(r[R::kB], sdY / sdX);
    ExpectNear(r[R::kA], 2.75 - 2.5 * sdY / sdX);
    ExpectNear(r[R::kR], 5.5 / std::sqrt(5.0 * 8.75));
    // Slots 4 to 9 are a tiny difference of nearly equal numbers: order of magnitude only.
    EXPECT_GE(r[R::kSeB], 0.0f);
    EXPECT_LT(r[R::kSeB], 0.01f);
    EXPECT_LE(r[R::kBLow], r[R::kB]);
    EXPECT_GT(r[R::kRHigh], r[R::kR]);
    EXPECT_EQ(r[R::kF], 0.0f);  // never written
}

TEST(FunctionalRegression, SpecialCases) {
    RegressionResult r;
    r[R::kR] = 0.5f;
    r[R::kF] = 7.0f;
    const std::vector<float> xs = {3, 3, 3}, ys = {1, 2, 3};
    FunctionalRegression(xs, ys, 0, 2, r);  // constant x
    for (int s = 1; s <= 13; ++s) EXPECT_EQ(r[s], 0.0f) << s;
    EXPECT_EQ(r[R::kR], 0.5f);
    EXPECT_EQ(r[R::kF], 7.0f);

    const auto three = Functional({1, 2, 3}, {1, 3, 2});
    EXPECT_EQ(three[R::kRLow], 0.0f);
    EXPECT_EQ(three[R::kRHigh], 0.0f);

    EXPECT_THROW(Functional({1, 2}, {1, 3}), ArithmeticFault);
    EXPECT_THROW(Functional({1, 2, 3, 4, 5}, {3, 5, 7, 9, 11}), ArithmeticFault);
}

}  // namespace
}  // namespace norvo
