// The selection-ogive sum against a three-class table worked by hand, its guards, the lengths
// read from a table and the refusals before anything divides by L-50.
#include "stock/relative_ypr_ogive.h"

#include <gtest/gtest.h>

#include "base/fault.h"

namespace norvo {
namespace {

// Classes 10, 20, 30 with L-50 20 and L-75 30: P = 0.25, 0.5, 0.75 at L50/Loo 0.5 and Loo 40.
OgiveClasses ThreeClasses() {
    return ClassesOfTable({10.0f, 20.0f, 30.0f}, 20.0f, 30.0f);
}

TEST(RelativeSelection, ThreeClassesWorkedByHand) {
    const OgiveClasses c = ThreeClasses();
    float mk = 1, l50Loo = 0.5f, loo = 40, e = 0.5f;
    // G = 0, 0.75^0.25, (0.5/0.75)^0.5, 0: the last class reaches Loo - dL.
    EXPECT_NEAR(RelativeYieldSelection(c, mk, l50Loo, loo, e), 0.0189029112, 2e-8);
    EXPECT_NEAR(RelativeBiomassSelection(c, mk, l50Loo, loo, e), 0.1683674824, 2e-8);
}

TEST(RelativeSelection, GuardsWriteBackTheirOwnValues) {
    const OgiveClasses c = ThreeClasses();
    float mk = 1, l50Loo = 0.5f, loo = 40, e = 1.0f;
    RelativeYieldSelection(c, mk, l50Loo, loo, e);
    EXPECT_EQ(e, 0.99f);
    e = 1.0f;
    RelativeBiomassSelection(c, mk, l50Loo, loo, e);
    EXPECT_EQ(e, 0.99999f);
    l50Loo = -0.2f;
    e = 0.5f;
    RelativeYieldSelection(c, mk, l50Loo, loo, e);
    EXPECT_EQ(l50Loo, 0.01f);
    // L50 of 0: nothing to sum.
    l50Loo = 0;
    EXPECT_EQ(RelativeYieldSelection(c, mk, l50Loo, loo, e), 0.0);
    EXPECT_EQ(RelativeBiomassSelection(c, mk, l50Loo, loo, e), 0.0);
}

TEST(RelativeSelection, ClassesBeyondLooFaultOnlyForAFractionalMk) {
    const OgiveClasses c = ThreeClasses();
    float l50Loo = 0.5f, loo = 25, e = 0.5f;
    float whole = 2;
    EXPECT_NO_THROW(RelativeYieldSelection(c, whole, l50Loo, loo, e));
    float fractional = 1.5f;
    EXPECT_THROW(RelativeYieldSelection(c, fractional, l50Loo, loo, e), ArithmeticFault);
}

TEST(FindOgiveLengths, InterpolatesFromTheSecondRowAndLeavesZeroWhenNeverReached) {
    // The first row is already above 0.5: rows 1 and 2 extrapolate.
    OgiveLengths r = FindOgiveLengths({10, 12, 14}, {0.6f, 0.8f, 1.0f});
    EXPECT_NEAR(r.l50, 9.0, 1e-5);
    EXPECT_NEAR(r.l75, 11.5, 1e-5);
    EXPECT_EQ(r.l50Text, "9.00");
    r = FindOgiveLengths({10, 12, 14, 16}, {0.1f, 0.4f, 0.7f, 0.9f});
    EXPECT_NEAR(r.l50, 14 - (2 / 0.3) * 0.2, 1e-5);
    EXPECT_NEAR(r.l75, 16 - (2 / 0.2) * 0.15, 1e-5);
    r = FindOgiveLengths({10, 12, 14}, {0.1f, 0.2f, 0.3f});
    EXPECT_EQ(r.l50, 0.0);
    EXPECT_EQ(r.l75, 0.0);
    EXPECT_EQ(ProposedLooText({10, 12, 40}), "42.00");
}

TEST(AnalyseOgive, RefusesBeforeAnythingDividesByLFifty) {
    OgiveClasses c = ClassesOfTable({10, 12, 14}, 0, 0);
    EXPECT_EQ(AnalyseOgive(c, 1, 0.5f, 20).refusal()->text, kOgiveL50Text);
    c = ClassesOfTable({10}, 11, 12);
    EXPECT_EQ(AnalyseOgive(c, 1, 0.5f, 20).refusal()->text, kOgiveTableText);
    c = ClassesOfTable({10, 12}, 11, 11);
    EXPECT_EQ(AnalyseOgive(c, 1, 0.5f, 20).refusal()->text, kOgiveL75Text);
}

TEST(AnalyseOgive, CurvesUseTheirOwnGuardsAndPointsAreInRange) {
    std::vector<float> len;
    for (int i = 0; i < 30; ++i) len.push_back(5.0f + 2.0f * i);
    const OgiveClasses c = ClassesOfTable(len, 20.0f, 24.0f);
    const OgiveAnalysis r = AnalyseOgive(c, 1.5f, 0.3f, 70.0f);
    ASSERT_TRUE(r.ok());
    ASSERT_EQ(r.curveY.size(), 11u);
    EXPECT_EQ(r.curveY[10].e, 0.99f);
    EXPECT_EQ(r.curveB[10].e, 0.99999f);
    EXPECT_GE(r.e50, 0.0);
    EXPECT_LE(r.e50, 1.0);
    EXPECT_GT(r.eMax, 0.0);
    EXPECT_LE(r.eMax, 1.0);
    EXPECT_LE(r.e10, r.eMax);

    const auto rows = OgiveSurface(c, 1.5f, 70.0f, false);
    ASSERT_EQ(rows.size(), 20u);
    EXPECT_EQ(rows[19].e, 0.99f);
    EXPECT_EQ(OgiveSurface(c, 1.5f, 70.0f, true)[19].e, 0.99999f);
    EXPECT_GT(FindYPrimeMaxSelection(c, 1.5f, 70.0f), 0.0f);
}

}  // namespace
}  // namespace norvo
