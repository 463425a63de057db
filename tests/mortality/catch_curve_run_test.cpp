// The catch curve in one call and in the screen's steps: both give the same figures.
#include "mortality/catch_curve_run.h"

#include <gtest/gtest.h>

#include "make_lfq.h"
#include "mortality/pauly_m.h"

namespace norvo {
namespace {

// A rising left limb, a zero at class 6 and a falling right limb; Loo 100, K 0.5.
LfqData Curve() {
    return test::MakeLfq(12.5, 5, {{10, 60, 120, 100, 70, 0, 35, 22, 14, 8, 5}});
}

CatchCurveOptions Options(float loo = 100, float k = 0.5f) {
    CatchCurveOptions o;
    o.growth.loo = loo;
    o.growth.k = k;
    return o;
}

std::string RefusalText(const Outcome& o) {
    return o.refusal() ? o.refusal()->text : "";
}

std::vector<std::string> Texts(const Outcome& o) {
    std::vector<std::string> t;
    for (const auto& n : o.notices) t.push_back(n.text);
    return t;
}

TEST(RunCatchCurve, DefaultStretchIsFittedAsTheStepsFitIt) {
    const auto run = RunCatchCurve(Curve(), Options());
    ASSERT_TRUE(run.ok());
    EXPECT_EQ(Texts(run), std::vector<std::string>{ZeroCompensationText(6)});
    EXPECT_EQ(run.firstClass, 1);
    EXPECT_GE(run.defaultPoints.last - run.defaultPoints.first, 2);
    EXPECT_EQ(run.defaultPoints, (PointRange{run.firstPoint, run.lastPoint}));
    EXPECT_FALSE(run.extrapolation.has_value());

    auto steps = CatchCurveMethod(Curve(), Options());
    ComputeDefaultPoints(steps);
    FitPoints(steps);
    EXPECT_EQ(CatchCurveZ(run), CatchCurveZ(steps));
    EXPECT_GT(CatchCurveZ(run), 0);
    EXPECT_LE(-run.fit[RegressionResult::kBHigh], -run.fit[RegressionResult::kBLow]);
}

TEST(RunCatchCurve, ChosenStretchInEitherOrderAndItsRefusals) {
    auto o = Options();
    o.points = PointRange{10, 4};
    auto run = RunCatchCurve(Curve(), o);
    ASSERT_TRUE(run.ok());
    EXPECT_EQ(run.firstPoint, 4);
    EXPECT_EQ(run.lastPoint, 10);

    o.points = PointRange{4, 5};
    run = RunCatchCurve(Curve(), o);
    EXPECT_EQ(RefusalText(run), kCcTooFewPickedText);
    EXPECT_EQ(run.refusal()->title, kCcInvalidActionTitle);
    o.points = PointRange{0, 5};
    EXPECT_EQ(RefusalText(RunCatchCurve(Curve(), o)), kCcNoSelectionText);

    // A refused choice leaves the run as it was.
    auto kept = RunCatchCurve(Curve(), Options());
    const PointRange before{kept.firstPoint, kept.lastPoint};
    EXPECT_FALSE(ChoosePoints(kept, 7, 8).ok());
    EXPECT_EQ((PointRange{kept.firstPoint, kept.lastPoint}), before);
}

TEST(RunCatchCurve, GrowthRefusalsPointToTheDataTab) {
    auto run = RunCatchCurve(Curve(), Options(10));
    EXPECT_EQ(RefusalText(run), kCcLooBelowDataText);
    EXPECT_TRUE(run.growthRefused);
    run = RunCatchCurve(Curve(), Options(100, 0));
    EXPECT_EQ(RefusalText(run), kCcInvalidKText);
    EXPECT_TRUE(run.growthRefused);
    // Nothing to work on (no file): the data is refused, not the parameters.
    run = RunCatchCurve(LfqData{}, Options());
    EXPECT_EQ(RefusalText(run), kCcNoDataSelectedText);
    EXPECT_FALSE(run.growthRefused);
}

TEST(RunCatchCurve, ExtrapolationFromTheTemperatureAsTheDialogueShowsIt) {
    auto o = Options();
    o.points = PointRange{4, 10};
    o.extrapolate = MortalityOptions{{}, {}, 20.0};
    const auto run = RunCatchCurve(Curve(), o);
    ASSERT_TRUE(run.ok());
    ASSERT_TRUE(run.extrapolation.has_value());
    const Extrapolation& e = *run.extrapolation;
    // Z as the dialogue's box holds it (two decimals), stored in 32 bits, as on the screen.
    EXPECT_NE(ZAsShownInDialog(CatchCurveZ(run)), CatchCurveZ(run));
    EXPECT_EQ(e.z, static_cast<float>(ZAsShownInDialog(CatchCurveZ(run))));
    EXPECT_EQ(e.m, static_cast<float>(AsShownInDialog(PaulyM(100, 0.5, 20))));
    EXPECT_NEAR(e.m, PaulyM(100, 0.5, 20), 5e-4);
    ASSERT_EQ(e.probability.size(), 12u);
    EXPECT_EQ(e.probability[4], 1.f);
    EXPECT_LT(e.probability[1], 1.f);

    // The screen's steps: choose, check, M from the temperature, then extrapolate.
    auto steps = RunCatchCurve(Curve(), Options());
    ASSERT_TRUE(ChoosePoints(steps, 4, 10).ok());
    ASSERT_TRUE(CheckExtrapolation(steps).ok());
    const auto tm = MortalityAtTemperature(20, steps.growth);
    const auto same = ExtrapolateWith(steps, ZAsShownInDialog(CatchCurveZ(steps)),
                                      AsShownInDialog(tm.m), AsShownInDialog(tm.t));
    EXPECT_EQ(same.probability, e.probability);
    EXPECT_EQ(same.ne, e.ne);
}

TEST(RunCatchCurve, ColdWaterTakesTheCorrectedTemperatureAndMFromIt) {
    const auto tm = MortalityAtTemperature(2, Options().growth);
    ASSERT_TRUE(tm.ok());
    EXPECT_NEAR(tm.t, 6.3885032, 1e-6);
    EXPECT_EQ(tm.m, PaulyM(100, 0.5, PaulyTemperature(2)));
    EXPECT_EQ(AsShownInDialog(tm.t), 6.389);
    EXPECT_EQ(RefusalText(MortalityAtTemperature(31.5, Options().growth)), kCcTooWarmText);

    auto o = Options();
    o.extrapolate = MortalityOptions{{}, {}, 2.0};
    const auto run = RunCatchCurve(Curve(), o);
    ASSERT_TRUE(run.extrapolation.has_value());
    EXPECT_EQ(run.extrapolation->t, 6.389f);
    EXPECT_EQ(run.extrapolation->m, static_cast<float>(AsShownInDialog(tm.m)));
}

TEST(RunCatchCurve, ExtrapolationChecksAndTheirNotices) {
    auto o = Options();
    o.extrapolate = MortalityOptions{{}, {}, 40.0};
    EXPECT_EQ(RefusalText(RunCatchCurve(Curve(), o)), kCcTooWarmText);
    o.extrapolate = MortalityOptions{0.0, 0.3, {}};
    EXPECT_EQ(RefusalText(RunCatchCurve(Curve(), o)), kCcMissingInputText);

    // M above Z warns: the notice is the extrapolation's and the run's, after the curve's own.
    o.extrapolate = MortalityOptions{0.2, 0.3, {}};
    const auto warned = RunCatchCurve(Curve(), o);
    ASSERT_TRUE(warned.ok());
    ASSERT_TRUE(warned.extrapolation.has_value());
    EXPECT_EQ(Texts(*warned.extrapolation), std::vector<std::string>{kCcMAboveZText});
    EXPECT_EQ(Texts(warned), (std::vector<std::string>{ZeroCompensationText(6), kCcMAboveZText}));

    // Nothing fitted, or a seasonal curve: no extrapolation.
    auto rising = Options();
    rising.extrapolate = MortalityOptions{{}, 0.3, {}};
    const auto risingRun =
        RunCatchCurve(test::MakeLfq(12.5, 5, {{1, 10, 100, 1000, 10000, 100000}}), rising);
    EXPECT_EQ(RefusalText(risingRun), kCcSelectingText);
    EXPECT_EQ(risingRun.refusal()->title, kCcSelectingTitle);
    CatchCurveRun seasonal;
    seasonal.seasonal = true;
    seasonal.firstPoint = 2;
    seasonal.lastPoint = 5;
    seasonal.fit[RegressionResult::kB] = -0.8f;
    EXPECT_EQ(RefusalText(CheckExtrapolation(seasonal)), SeasonalExtrapolationText(0.8));
    seasonal.seasonal = false;
    EXPECT_TRUE(CheckExtrapolation(seasonal).ok());
}

}  // namespace
}  // namespace norvo
