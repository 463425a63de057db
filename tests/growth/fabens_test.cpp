#include "growth/fabens.h"

#include <gtest/gtest.h>

#include <cmath>

#include "gin_rows.h"
#include "growth/growth_increments.h"

namespace norvo {
namespace {

using test::CurveRows;
using test::Row;

FabensData Data() {
    FabensData d;
    d.l1 = {12, 20, 31, 45, 52};
    d.l2 = {20.5, 27, 37, 49, 54.5};
    d.dt = {0.5, 0.6, 0.8, 0.7, 0.4};
    return d;
}

double SumOfSquares(const FabensData& d, double k, double linf) {
    double ss = 0;
    for (size_t i = 0; i < d.dt.size(); ++i) {
        const double r = d.l2[i] - (linf - (linf - d.l1[i]) * std::exp(-k * d.dt[i]));
        ss += r * r;
    }
    return ss;
}

TEST(FabensPieces, DerivativesMatchFiniteDifferences) {
    const auto d = Data();
    const double h = 1e-6;
    for (double k : {0.2, 0.5, 1.3}) {
        const double linf = FabenLinf(d, k);
        // Linf minimises the sum of squares: its own derivative vanishes there.
        EXPECT_NEAR(FabenFLinf(d, k, linf), 0, 1e-8);
        const double dSSdK =
            (SumOfSquares(d, k + h, linf) - SumOfSquares(d, k - h, linf)) / (2 * h);
        EXPECT_NEAR(FabenFK(d, k, linf), dSSdK, 1e-5 * std::max(1.0, std::fabs(dSSdK)));
        const double dSSdL =
            (SumOfSquares(d, k, linf + h) - SumOfSquares(d, k, linf - h)) / (2 * h);
        EXPECT_NEAR(FabenFLinf(d, k, linf + 3),
                    (SumOfSquares(d, k, linf + 3 + h) - SumOfSquares(d, k, linf + 3 - h)) / (2 * h),
                    1e-5);
        EXPECT_NEAR(dSSdL, 0, 1e-5);
        const double dL = (FabenLinf(d, k + h) - FabenLinf(d, k - h)) / (2 * h);
        EXPECT_NEAR(FabenDLInfDK(d, k), dL, 1e-4 * std::max(1.0, std::fabs(dL)));
        // F' along the solved Linf, and with Linf held.
        const auto fAlong = [&](double kk) { return FabenFK(d, kk, FabenLinf(d, kk)); };
        const double dF = (fAlong(k + h) - fAlong(k - h)) / (2 * h);
        EXPECT_NEAR(FabenFKPrime(d, k, linf, FabenDLInfDK(d, k)), dF,
                    1e-4 * std::max(1.0, std::fabs(dF)));
        const double dFHeld = (FabenFK(d, k + h, 60) - FabenFK(d, k - h, 60)) / (2 * h);
        EXPECT_NEAR(FabenFKPrime(d, k, 60, 0), dFHeld, 1e-4 * std::max(1.0, std::fabs(dFHeld)));
    }
    EXPECT_EQ(FabenLinf(d, 0), kFabensNoLinf);
    EXPECT_EQ(FabenDLInfDK(d, 0), 0);
}

TEST(Fabens, ExactIncrementsGiveBackLooAndK) {
    for (const auto& [loo, k] : {std::pair{80.0, 0.5}, std::pair{650.0, 0.25}}) {
        const auto rows =
            CurveRows(loo, k,
                      {0.1f * static_cast<float>(loo), 0.3f * static_cast<float>(loo),
                       0.45f * static_cast<float>(loo), 0.6f * static_cast<float>(loo),
                       0.8f * static_cast<float>(loo)},
                      {120, 300, 200, 400, 250});
        const auto r = Fabens(rows, {});
        ASSERT_TRUE(r.ok());
        EXPECT_TRUE(r.converged);
        EXPECT_LT(r.iterations, 50);
        EXPECT_NEAR(r.loo, loo, 1e-3 * loo);
        EXPECT_NEAR(r.k, k, 1e-3);
        EXPECT_EQ(r.aboveLoo, 0);
        EXPECT_TRUE(r.notices.empty());
    }
}

TEST(Fabens, FixedLooSolvesKAlone) {
    const auto rows = CurveRows(80, 0.5, {10, 25, 40, 55, 70}, {120, 300, 200, 400, 250});
    FabensOptions o;
    o.fixedLoo = 80;
    const auto r = Fabens(rows, o);
    ASSERT_TRUE(r.converged);
    EXPECT_EQ(r.loo, 80.f);
    EXPECT_NEAR(r.k, 0.5, 1e-4);
}

TEST(Fabens, CounterAndFailureAfterFourHundredSteps) {
    // Lengths of tens of kilometres in a unit of mm: the rounding of F alone is far above the
    // tolerance, so the iteration runs out of passes.
    auto big = Data();
    for (auto* v : {&big.l1, &big.l2})
        for (double& x : *v) x *= 1e6;
    const auto it = IterateFabens(big, 0.5);
    EXPECT_FALSE(it.converged);
    EXPECT_EQ(it.iterations, kFabensMaxIterations + 1);
    const auto good = IterateFabens(Data(), 0.5);
    EXPECT_TRUE(good.converged);
    EXPECT_GE(good.iterations, 1);
    EXPECT_LE(std::fabs(good.f), kFabensTolerance);
    EXPECT_EQ(FabensNoConvergeText(400),
              "Failed to converge after 400 iterations. Try another method to estimate the "
              "parameters.");
}

TEST(Fabens, PreSelectionAndRowsAboveLoo) {
    auto rows = CurveRows(80, 0.5, {10, 25, 40, 55}, {120, 300, 200, 400});
    rows.push_back(Row(1, 1, 2000, 30, 1, 5, 2000, 30));
    FabensOptions o;
    o.fixedLoo = 45;
    const auto r = Fabens(rows, o);
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.notices.front().text, kGinOneDeselectedText);
    EXPECT_EQ(r.aboveLoo, 2);  // recaptured at 49.6 and 65.5 with Loo 45
    EXPECT_EQ(r.notices.back().text,
              "#2 samples were above the calculated Loo and are not shown in Fabens plot");
    o.fixedLoo = 5;
    EXPECT_EQ(Fabens(rows, o).notices.back().text, kFabensAllAboveText);
}

TEST(Fabens, ExactlyThreeRowsRunAndTwoAreRefused) {
    auto rows = CurveRows(80, 0.5, {10, 40, 60}, {120, 300, 200});
    EXPECT_TRUE(Fabens(rows, {}).ok());
    EXPECT_EQ(Fabens(rows, {{true, false, true}, {}}).refusal()->text, kGinTooFewText);
}

}  // namespace
}  // namespace norvo
