#include "mortality/catch_curve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/fault.h"
#include "make_lfq.h"
#include "mortality/catch_curve_plot.h"
#include "mortality/pauly_m.h"
#include "stock/simulation.h"

namespace norvo {
namespace {

using test::MakeLfq;

CatchCurveOptions Plain(float loo, float k, float t0 = 0) {
    CatchCurveOptions o;
    o.growth.loo = loo;
    o.growth.k = k;
    o.growth.t0 = t0;
    return o;
}

std::vector<std::string> Texts(const Outcome& o) {
    std::vector<std::string> t;
    for (const auto& n : o.notices) t.push_back(n.text);
    return t;
}

// The refusing notice's text, or "" when the outcome was not refused.
std::string RefusalText(const Outcome& o) {
    return o.refusal() ? o.refusal()->text : "";
}

GrowthParams Growth(float loo, float k, float c = 0, float wp = 0, float t0 = 0) {
    GrowthParams g;
    g.loo = loo;
    g.k = k;
    g.c = c;
    g.wp = wp;
    g.t0 = t0;
    return g;
}

TEST(CatchCurveAges, AgeAndDurationEdges) {
    EXPECT_EQ(AgeOfLength(50, 50, 1, 0), -9999);
    EXPECT_EQ(AgeOfLength(60, 50, 1, 0), -9999);
    // A positive t0 makes the fish younger.
    EXPECT_NEAR(AgeOfLength(25, 50, 0.5, 0), 2 * std::log(2.0), 1e-12);
    EXPECT_NEAR(AgeOfLength(25, 50, 0.5, 1), 2 * std::log(2.0) - 1, 1e-12);
    EXPECT_EQ(ClassDuration(10, 50, 50, 1), -1);
    EXPECT_EQ(ClassDuration(20, 20, 50, 1), -1);
    // Durations stop below Loo: (50 - 10)/15 gives two whole classes.
    const auto dt = ClassDurations(10, 15, 50, 1);
    ASSERT_EQ(dt.size(), 3u);
    EXPECT_NEAR(dt[1], std::log(40.0 / 25.0), 1e-12);
    EXPECT_NEAR(dt[2], std::log(25.0 / 10.0), 1e-12);
}

TEST(CatchCurveAges, SeasonalAgeMatchesPlainAgeWithoutOscillation) {
    const float t = SeasonalAgeOfLength(25, 0.3f, 50, 0.5f, 0, 0);
    EXPECT_NEAR(-t, 2 * std::log(2.0) - 0.3, 2e-4);
    const float ts = SeasonalAgeOfLength(25, 0.3f, 50, 0.5f, 0.8f, 0.2f);
    EXPECT_LT(ts, 0);
}

TEST(CatchCurveAges, SeasonalAgeStoresIn32BitsButWorksEachExpressionIn64) {
    // Lengths where a search worked in 32-bit expressions settles one step elsewhere.
    const float t28 = static_cast<float>(28 / 365.0), t84 = static_cast<float>(84 / 365.0);
    EXPECT_EQ(SeasonalAgeOfLength(7.03f, t28, 80, 0.37f, 0.1f, 0.6f), -0.158203125f);
    EXPECT_EQ(SeasonalAgeOfLength(static_cast<float>(52 * 0.37), t84, 80, 0.37f, 1, 0),
              -0.58782959f);
}

TEST(CatchCurveSamples, TransformAndTemporalWeights) {
    std::vector<std::vector<double>> f = {{1, 10}, {3, 30}};
    auto pct = f;
    TransformSamples(pct, CcTransform::Percent);
    EXPECT_DOUBLE_EQ(pct[0][0], 25);
    EXPECT_DOUBLE_EQ(pct[1][1], 75);
    auto root = f;
    TransformSamples(root, CcTransform::SquareRoot);
    EXPECT_DOUBLE_EQ(root[1][0], 300 / 2.0);

    // One sample on 15 March: prev 0, next its own day plus 365; the nearer is day 74.
    const auto one = TemporalWeights(MakeLfq(10, 1, {{1, 2, 3}}, {15}, {3}));
    ASSERT_EQ(one.size(), 1u);
    EXPECT_DOUBLE_EQ(one[0], std::sqrt(74.0));
    // 10 January and 20 December: the last wraps to the first plus 365.
    const auto two = TemporalWeights(MakeLfq(10, 1, {{1, 2, 3}, {1, 2, 3}}, {10, 20}, {1, 12}));
    EXPECT_DOUBLE_EQ(two[0], std::sqrt(10.0));
    EXPECT_DOUBLE_EQ(two[1], std::sqrt(21.0));
}

TEST(CatchCurveValidation, GrowthParamsStopAtFirstFault) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    // Optional parameters left out are 0.
    EXPECT_TRUE(ValidateGrowthParams(Growth(50, 0.5f)).ok());
    // A required parameter left out, or one that is no number, is refused.
    auto o = ValidateGrowthParams(Growth(0, 0.5f));
    EXPECT_FALSE(o.ok());
    ASSERT_EQ(o.notices.size(), 1u);
    EXPECT_EQ(o.notices[0].text, kCcInvalidLooText);
    EXPECT_EQ(o.notices[0].icon, Icon::Warning);
    EXPECT_EQ(RefusalText(ValidateGrowthParams(Growth(50, nan, 0, 0, nan))), kCcInvalidKText);
    EXPECT_EQ(RefusalText(ValidateGrowthParams(Growth(50, 1, 2))), kCcInvalidCText);
    EXPECT_EQ(RefusalText(ValidateGrowthParams(Growth(50, 1, 0, 1.5f))), kCcInvalidWpText);
    EXPECT_EQ(RefusalText(ValidateGrowthParams(Growth(50, 1, 2, 0, -101))), kCcInvalidT0Text);
    // The limits themselves pass, also where they are not exact in 32 bits.
    EXPECT_TRUE(ValidateGrowthParams(Growth(1e6f, 1e-6f, 1, 1, -100)).ok());
}

TEST(CatchCurveRefusals, CutAtLooAndTooFewClasses) {
    // Every class lies above 99.9% of Loo.
    auto run = CatchCurveMethod(MakeLfq(20, 0.02, {{5, 4, 3}}), Plain(20, 1));
    EXPECT_FALSE(run.ok());
    ASSERT_NE(run.refusal(), nullptr);
    EXPECT_EQ(run.refusal()->text, kCcNoLineFromDataText);
    EXPECT_EQ(run.refusal()->title, kCcNotEnoughDataTitle);
    // Upper limits 4, 8, 12 of Loo 10: two classes survive the cut.
    run = CatchCurveMethod(MakeLfq(2, 4, {{9, 8, 7, 6, 5}}), Plain(10, 1));
    EXPECT_FALSE(run.ok());
    EXPECT_EQ(run.lastClass, 2);
    EXPECT_EQ(RefusalText(run), kCcFewerThanThreeText);
    // First midlength above Loo.
    EXPECT_EQ(RefusalText(CatchCurveMethod(MakeLfq(30, 1, {{1, 2, 3}}), Plain(20, 1))),
              kCcLooBelowDataText);
    // Nothing selected.
    auto o = Plain(100, 0.5);
    o.selected = {false};
    EXPECT_EQ(RefusalText(CatchCurveMethod(MakeLfq(10, 5, {{1, 2, 3}}), o)), kCcNoDataSelectedText);
    // A sample without fish cannot be expressed as a percentage, even when not selected.
    o.selected = {true, false};
    o.transform = CcTransform::Percent;
    EXPECT_EQ(RefusalText(CatchCurveMethod(MakeLfq(10, 5, {{1, 2, 3}, {0, 0, 0}}), o)),
              EmptySampleText(2));
}

TEST(CatchCurveZeros, SingleZeroAndRunOfThree) {
    const double lower = 10, w = 5, loo = 100, k = 0.5;
    const auto dt = ClassDurations(lower, w, loo, k);
    {
        auto run = CatchCurveMethod(MakeLfq(12.5, w, {{100, 80, 0, 50, 30, 20}}), Plain(loo, k));
        ASSERT_TRUE(run.ok());
        EXPECT_EQ(Texts(run), std::vector<std::string>{ZeroCompensationText(3)});
        EXPECT_FLOAT_EQ(run.N[2], 60);
        EXPECT_FLOAT_EQ(run.N[4], 37.5);
        EXPECT_FLOAT_EQ(run.N[3], 32.5);
        EXPECT_NEAR(std::exp(run.Y[2]), 0.75 * 80 / dt[2], 1e-3 * 80 / dt[2]);
        EXPECT_NEAR(std::exp(run.Y[3]), (80 / dt[2] + 50 / dt[4]) / 4, 1e-3 * 80 / dt[2]);
    }
    {
        auto run = CatchCurveMethod(MakeLfq(12.5, w, {{100, 80, 0, 0, 0, 40, 30}}), Plain(loo, k));
        ASSERT_TRUE(run.ok());
        EXPECT_EQ(Texts(run), std::vector<std::string>{ZeroCompensationText(3)});
        for (int i = 3; i <= 5; ++i) EXPECT_FLOAT_EQ(run.N[i], 10);
        EXPECT_FLOAT_EQ(run.N[6], 30);
    }
}

TEST(CatchCurveRun, LeadingAndTrailingZerosBoundTheClasses) {
    auto run = CatchCurveMethod(MakeLfq(12.5, 5, {{0, 0, 90, 70, 40, 20, 0}}), Plain(100, 0.5));
    ASSERT_TRUE(run.ok());
    EXPECT_EQ(run.firstClass, 3);
    EXPECT_EQ(run.lastClass, 6);
    EXPECT_TRUE(run.notices.empty());
}

TEST(CatchCurveDefaultPoints, RisingCurveLeavesPointsUnset) {
    auto run =
        CatchCurveMethod(MakeLfq(12.5, 5, {{1, 10, 100, 1000, 10000, 100000}}), Plain(100, 0.5));
    ASSERT_TRUE(run.ok());
    ComputeDefaultPoints(run);
    EXPECT_EQ(run.firstPoint, 0);
    EXPECT_EQ(run.lastPoint, 0);
}

TEST(CatchCurveRun, TZeroShiftsAgesAndLabel) {
    const auto file = MakeLfq(12.5, 5, {{100, 80, 60, 40, 30, 20}});
    auto plain = CatchCurveMethod(file, Plain(100, 0.5, 0));
    auto shifted = CatchCurveMethod(file, Plain(100, 0.5, 1));
    for (int i = 1; i <= 6; ++i) {
        EXPECT_NEAR(shifted.X[i], plain.X[i] - 1, 1e-5);
        EXPECT_FLOAT_EQ(shifted.Y[i], plain.Y[i]);
    }
    EXPECT_STREQ(CatchCurveXLabel(1), "Absolute age (years)");
    EXPECT_STREQ(CatchCurveXLabel(0), "Relative age (years-t0)");
}

TEST(CatchCurveSeasonal, UsesDeselectedSamplesAndRefusesExtrapolation) {
    const auto file = MakeLfq(12.5, 5, {{5, 30, 60, 40, 20, 10, 5}, {2, 20, 50, 50, 30, 10, 2}},
                              {15, 15}, {3, 9});
    auto o = Plain(100, 0.5);
    o.growth.c = 0.5;
    o.growth.wp = 0.2f;
    auto all = CatchCurveMethod(file, o);
    o.selected = {true, false};
    auto one = CatchCurveMethod(file, o);
    ASSERT_TRUE(all.ok());
    EXPECT_TRUE(all.seasonal);
    EXPECT_EQ(all.lastClass, one.lastClass);
    for (int i = all.firstClass; i <= all.lastClass; ++i) EXPECT_FLOAT_EQ(all.Y[i], one.Y[i]);
    EXPECT_FLOAT_EQ(all.X[1], 0);
    EXPECT_STREQ(CatchCurveYLabel(0.5), "ln(N)");
    EXPECT_EQ(SeasonalExtrapolationText(0.8),
              "Estimation of probability of capture not applicable. To estimate probabilities of "
              "capture redo analysis, with C = 0, but enter Z=0.80 when this input is "
              "requested.");
}

TEST(CatchCurveMortality, TemperatureAndPauly) {
    EXPECT_NEAR(PaulyTemperature(2), 6.3885032, 1e-6);
    EXPECT_DOUBLE_EQ(PaulyTemperature(20), 20);
    EXPECT_NEAR(PaulyM(30, 0.5, 20), 0.97099382, 1e-7);
    EXPECT_EQ(RefusalText(CheckTemperature(-2.5)), kCcTooColdText);
    EXPECT_EQ(RefusalText(CheckTemperature(31.5)), kCcTooWarmText);
    EXPECT_TRUE(CheckTemperature(31).ok());
    EXPECT_TRUE(CheckTemperature(31).notices.empty());
    EXPECT_EQ(RefusalText(CheckMortalities(0, 0.5)), kCcMissingInputText);
    // M above Z warns and lets the run go on.
    const auto warned = CheckMortalities(0.5, 0.8);
    EXPECT_TRUE(warned.ok());
    ASSERT_EQ(warned.notices.size(), 1u);
    EXPECT_EQ(warned.notices[0].text, kCcMAboveZText);
    EXPECT_TRUE(CheckMortalities(0.8, 0.5).notices.empty());
}

TEST(CatchCurveExtrapolation, BackwardFromFirstPoint) {
    auto run =
        CatchCurveMethod(MakeLfq(12.5, 5, {{20, 60, 100, 80, 60, 40, 30, 20}}), Plain(100, 0.5));
    ASSERT_TRUE(run.ok());
    ComputeDefaultPoints(run);
    ASSERT_GE(run.firstPoint, 2);
    FitPoints(run);
    const double z = CatchCurveZ(run);
    EXPECT_GT(z, 0);
    const double m = z / 2;
    const auto e = ExtrapolateProb(run, z, m, 20);
    const int f = run.firstPoint;
    EXPECT_NEAR(e.ne[f], std::exp(-z * run.X[f] + run.fit.a()) * run.dt[f], 1e-6 * e.ne[f]);
    // The ramp runs from M at class 0 up to Z at the first point.
    const double step = (z - m) / f;
    const double zmid = ((f * step + m) + ((f - 1) * step + m)) / 2;
    EXPECT_NEAR(e.ne[f - 1], e.ne[f] * std::exp((run.X[f] - run.X[f - 1]) * zmid),
                1e-6 * e.ne[f - 1]);
    for (int i = f; i <= run.nC; ++i) EXPECT_EQ(e.probability[i], 1.f);
    for (int i = 1; i < f; ++i) {
        EXPECT_NEAR(e.probability[i], std::exp(run.Y[i]) * run.dt[i] / e.ne[i], 1e-5);
        EXPECT_LT(e.probability[i], 1.f);
    }
    Extrapolation shown;
    shown.z = 1.2;
    shown.m = 0.4;
    shown.t = 25;
    EXPECT_EQ(ExtrapolationSubtitle(shown),
              "(for Z=1.20; M (at 25.0\u00baC)=0.40; F=0.80; E=0.67)");
}

TEST(CatchCurveExtrapolation, RedrawsTheStretchFromItsNumbersWith32BitEntries) {
    // Class 5 is empty: it borrows from classes 4 and 6, so its Y no longer matches its N.
    auto run =
        CatchCurveMethod(MakeLfq(12.5, 5, {{20, 60, 100, 80, 0, 60, 40, 30, 20}}), Plain(100, 0.5));
    ASSERT_TRUE(run.ok());
    run.firstPoint = 3;
    run.lastPoint = 9;
    FitPoints(run);
    const double z = 1.234567891, m = 0.3333333333, t = 21.111111111;
    const auto e = ExtrapolateProb(run, z, m, t);
    EXPECT_EQ(e.z, static_cast<double>(static_cast<float>(z)));
    EXPECT_EQ(e.m, static_cast<double>(static_cast<float>(m)));
    EXPECT_EQ(e.t, static_cast<double>(static_cast<float>(t)));
    EXPECT_NEAR(e.ne[3], std::exp(-e.z * run.X[3] + run.fit.a()) * run.dt[3], 1e-9 * e.ne[3]);
    // Classes 3..8 are rebuilt as ln(N/dt); the last point of the stretch keeps its Y.
    for (int i = 3; i <= 8; ++i)
        EXPECT_EQ(e.yWorking[i], static_cast<float>(std::log(run.N[i] / run.dt[i]))) << i;
    EXPECT_EQ(e.yWorking[9], 0.f);
    EXPECT_GT(std::fabs(e.yWorking[5] - run.Y[5]), 0.01);
    // The redrawn points stand at the rebuilt ordinates.
    const CcScale s = CatchCurveScale(run, e.yExtra);
    const auto before = CatchCurvePointPositions(run, s);
    const auto after = CatchCurvePointPositions(run, s, &e);
    EXPECT_EQ(after[5].y, 85 - (e.yWorking[5] - s.yMin) * s.yScale);
    EXPECT_NE(after[5].y, before[5].y);
    EXPECT_EQ(after[9].y, before[9].y);
    EXPECT_EQ(after[2].y, before[2].y);
}

// A stock with constant recruitment, knife-edge selection and known Z gives that Z back.
TEST(CatchCurveMeaning, SimulatedStockGivesItsZ) {
    SimulationInputs in = DefaultSimulationInputs();
    in.samples = 12;
    in.fishPerSample = 1500;
    in.classInterval = 1;
    in.ageGroups = 6;
    in.loo = 60;
    in.looCv = 0;
    in.k = 0.5;
    in.kCv = 0;
    in.recruitment.fill(1.0);
    in.yearClasses = ResizeYearClasses({}, 6);
    for (auto& yc : in.yearClasses) {
        yc.strength = 1;
        yc.mortality = 0.4;
    }
    in.selection = {SelectionRow{"A", 20.0, 20.01, 0, 0, 0.6, true}};
    ASSERT_FALSE(CheckSimulationInputs(in).has_value());
    const auto result = Simulate(in);
    const auto table = LengthFreq(result, SimSet::Catch);

    LfqData d;
    d.smallestMl = table.smallestMl;
    d.classInterval = table.classInterval;
    d.noOfClasses = table.classes;
    d.noOfSamples = in.samples;
    d.freq = table.freq;
    for (const auto& date : result.dates) {
        d.day.push_back(static_cast<int16_t>(date.day));
        d.month.push_back(static_cast<int16_t>(date.month));
        d.year.push_back(static_cast<int16_t>(date.year));
    }
    auto run = CatchCurveMethod(d, Plain(60, 0.5));
    ASSERT_TRUE(run.ok());
    ComputeDefaultPoints(run);
    ASSERT_GT(run.firstPoint, 0);
    FitPoints(run);
    EXPECT_NEAR(CatchCurveZ(run), 1.0, 0.1);
}

}  // namespace
}  // namespace norvo
