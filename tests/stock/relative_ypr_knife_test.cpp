// The knife-edge formulae against cells worked by hand, their guard on E, and the reference
// points of the 2-D analysis.
#include "stock/relative_ypr_knife.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"

namespace norvo {
namespace {

TEST(RelativeYieldKnife, CellsWorkedByHand) {
    // M/K 1, Lc/Loo 0.5, E 0.5: U = 0.5, T(0.5) = 0.325, T(1) = 0.46875.
    float e = 0.5f;
    EXPECT_NEAR(RelativeYieldKnife(1.0f, 0.5f, e), 0.08125, 1e-9);
    EXPECT_NEAR(RelativeBiomassKnife(1.0f, 0.5f, e), 0.5 * 0.325 / 0.46875, 1e-9);
    // M/K 2, Lc/Loo 0.25, E 0.6: U = 0.75, T(0.2) = 0.0666852678..., T(0.5) = 0.175.
    e = 0.6f;
    EXPECT_NEAR(RelativeYieldKnife(2.0f, 0.25f, e), 0.0225062779, 2e-8);
    EXPECT_NEAR(RelativeBiomassKnife(2.0f, 0.25f, e), 0.1524234694, 2e-8);
    // Lc at Loo: nothing is caught.
    e = 0.5f;
    EXPECT_EQ(RelativeYieldKnife(1.0f, 1.0f, e), 0.0);
}

TEST(RelativeYieldKnife, EAtOneIsWrittenBackAsTheGuardedValue) {
    float e = 1.0f;
    const double y = RelativeYieldKnife(1.0f, 0.5f, e);
    EXPECT_EQ(e, 0.99999f);
    float same = 0.99999f;
    EXPECT_EQ(y, RelativeYieldAt(same, 1.0f, 0.5f));
    e = 3.0f;
    RelativeBiomassKnife(1.0f, 0.5f, e);
    EXPECT_EQ(e, 0.99999f);
    // Without the guard E = 1 gives m = 0: U^(M/K) (1 - U)^3.
    EXPECT_NEAR(RelativeYieldAt(1.0f, 2.0f, 0.5f), 0.25 * 0.125, 1e-12);
}

TEST(RelativeYieldKnife, FaultsInsteadOfNaN) {
    float e = 0.5f;
    // A negative U to a fractional power.
    EXPECT_THROW(RelativeYieldKnife(1.5f, 1.5f, e), ArithmeticFault);
    // A whole M/K computes it.
    EXPECT_NO_THROW(RelativeYieldKnife(2.0f, 1.5f, e));
    EXPECT_THROW(RelativeYieldKnife(0.0f, 0.5f, e), ArithmeticFault);
}

TEST(KnifeSurface, TenRowsTheLastGuardedFromASingleSum) {
    const auto rows = KnifeSurface(1.0f, false);
    ASSERT_EQ(rows.size(), 10u);
    ASSERT_EQ(rows[0].values.size(), 10u);
    EXPECT_EQ(rows[9].e, 0.99999f);
    EXPECT_FLOAT_EQ(rows[4].e, 0.5f);
    // Column 1 is Lc/Loo 0 and column 6 is Lc/Loo 0.5.
    EXPECT_NEAR(rows[4].values[5], 0.08125, 1e-7);
    const auto b = KnifeSurface(1.0f, true);
    EXPECT_NEAR(b[4].values[5], 0.5 * 0.325 / 0.46875, 1e-7);
}

TEST(AnalyseKnife, ReferencePointsAreOrderedAndE50StaysAtMostAHalf) {
    for (float mk : {0.5f, 1.0f, 2.0f}) {
        for (float lc : {0.1f, 0.3f, 0.5f}) {
            const KnifeAnalysis r = AnalyseKnife(mk, lc);
            ASSERT_TRUE(r.ok());
            // B'/R is at most 1 - E.
            EXPECT_LE(r.e50, 0.5 + 1e-6) << mk << " " << lc;
            if (r.eMax < 1) {
                EXPECT_LT(r.e10, r.eMax) << mk << " " << lc;
                EXPECT_GT(r.e10, 0) << mk << " " << lc;
            } else {
                EXPECT_EQ(r.e10, 1.0);
            }
            ASSERT_EQ(r.curveY.size(), 11u);
            EXPECT_EQ(r.curveY[10].e, 0.99999f);
            ASSERT_EQ(r.report.size(), 10u);
            EXPECT_EQ(r.report[9].e, 0.99f);
        }
    }
}

TEST(AnalyseKnife, TableEndsAtPointNinetyNineAndMaximumIsFound) {
    const KnifeAnalysis r = AnalyseKnife(1.0f, 0.3f);
    float e = 0.99f;
    EXPECT_FLOAT_EQ(r.table.y[20], float(RelativeYieldKnife(1.0f, 0.3f, e)));
    // Y'/R at E-max beats its neighbours one step of the fine search away.
    float lo = float(r.eMax - 0.001), hi = float(r.eMax + 0.001);
    EXPECT_GE(r.yAtEmax, RelativeYieldAt(lo, 1.0f, 0.3f));
    EXPECT_GE(r.yAtEmax, RelativeYieldAt(hi, 1.0f, 0.3f));
}

TEST(AnalyseKnife, RefusesAnMkOfZeroAndLcBeyondLoo) {
    EXPECT_EQ(AnalyseKnife(0.0f, 0.5f).refusal()->text, kYprMkText);
    EXPECT_EQ(AnalyseKnife(1.0f, 1.2f).refusal()->text, kYprLcLooText);
}

TEST(YPrimeMax, SurfaceAndTwoDFormsCoverTheCurves) {
    const float top3d = YPrimeMaxFromSurface(1.0f);
    const float top2d = FindYPrimeMaxKnife(1.0f);
    // Lc/Loo 0 at E 0.5 lies inside both scans.
    float e = 0.5f;
    const double y = RelativeYieldKnife(1.0f, 0.0f, e);
    EXPECT_GT(top3d, y);
    EXPECT_GT(top2d, y);
    // Hundredths.
    EXPECT_NEAR(top3d * 100, std::round(top3d * 100), 1e-4);
    EXPECT_NEAR(top2d * 100, std::round(top2d * 100), 1e-4);
}

}  // namespace
}  // namespace norvo
