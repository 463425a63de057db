#include "selection/selection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "data/sample_readers.h"
#include "data/store_routines.h"
#include "data/write_notices.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

SelectionInput Input(std::vector<float> p, int firstClass, int firstPoint, double w = 2,
                     double firstMid = 10) {
    SelectionInput in;
    in.nC = static_cast<int>(p.size());
    in.probability = {0.f};
    in.probability.insert(in.probability.end(), p.begin(), p.end());
    in.firstClass = firstClass;
    in.firstPoint = firstPoint;
    in.w = w;
    in.firstMid = firstMid;
    return in;
}

TEST(SelectionLogits, EdgeProbabilitiesAndLeadingPoint) {
    auto in = Input({0, 0.2f, 0.5f, 1, 1}, 1, 4);
    const auto pts = MakeLogitPoints(in);
    EXPECT_EQ(pts.logit[1], 0.f);  // p = 0: no fault
    EXPECT_NEAR(pts.logit[2], std::log(0.25), 1e-6);
    EXPECT_NEAR(pts.logit[4], 11.5129, 1e-3);
    EXPECT_FLOAT_EQ(in.probability[4], 0.99999f);  // stored back
    EXPECT_FLOAT_EQ(pts.x[0], 8);
    EXPECT_FLOAT_EQ(pts.x[3], 14);
    EXPECT_EQ(pts.selected, (std::vector<bool>{false, true, true, true, false, false}));
}

TEST(SelectionLogits, FitRefusesFlatOrFallingSlopeAndKeepsThreePoints) {
    auto in = Input({0.1f, 0.1f, 0.1f, 1}, 1, 4);
    auto pts = MakeLogitPoints(in);
    const auto flat = Regress1(pts);  // b = 0
    EXPECT_FALSE(flat.ok());
    ASSERT_NE(flat.refusal(), nullptr);
    EXPECT_EQ(flat.refusal()->text, kSelPositiveSlopeText);
    EXPECT_EQ(flat.refusal()->title, "Norvo II");
    EXPECT_FLOAT_EQ(flat.fit.b(), 0);  // the refused fit carries nothing

    auto rising = Input({0.05f, 0.2f, 0.5f, 0.8f, 1}, 1, 5);
    pts = MakeLogitPoints(rising);
    const auto fitted = Regress1(pts);
    ASSERT_TRUE(fitted.ok());
    EXPECT_GT(fitted.fit.b(), 0);
    EXPECT_TRUE(TogglePoint(pts, 4).ok());  // four selected down to three
    const auto kept = TogglePoint(pts, 3);  // would leave two
    EXPECT_FALSE(kept.ok());
    EXPECT_TRUE(pts.selected[3]);
    ASSERT_EQ(kept.notices.size(), 1u);
    EXPECT_EQ(kept.notices[0].text, kSelTooFewPointsText);
    EXPECT_EQ(kept.notices[0].title, kSelInvalidActionTitle);
}

TEST(SelectionLogits, LogisticCurveLengths) {
    auto in = Input({0.05f, 0.2f, 0.5f, 0.8f, 1}, 1, 5);
    const auto pts = MakeLogitPoints(in);
    // P(L) = 1/(1 + exp(-(L - 14))): L50 at 14, the quartiles ln 3 either side.
    const auto c = LogisticCurve(in, pts, -14, 1);
    EXPECT_FLOAT_EQ(c.l50, 14);
    EXPECT_NEAR(c.l25, 14 - std::log(3.0), 1e-5);
    EXPECT_NEAR(c.l75, 14 + std::log(3.0), 1e-5);
    EXPECT_NEAR(c.smoothed[3], 0.5, 1e-6);
    EXPECT_NEAR(c.smoothedEdge[3], 1 / (1 + std::exp(1.0)), 1e-6);
    EXPECT_NEAR(c.smoothed[0], 1 / (1 + std::exp(6.0)), 1e-6);
}

TEST(SelectionRunningAverage, HalfClassInterpolation) {
    auto in = Input({0.3f, 0.1f, 0.2f, 0.4f, 0.9f, 1}, 2, 3);
    const auto c = RunningAverage(in);
    // Forced ones at the first point and the two after it, a zero before the first class.
    EXPECT_EQ(in.probability[1], 0.f);
    EXPECT_EQ(in.probability[5], 1.f);
    EXPECT_NEAR(c.smoothed[2], 1.1 / 3, 1e-6);
    EXPECT_NEAR(c.smoothedEdge[2], 0.2, 1e-6);
    EXPECT_NEAR(c.smoothedEdge[4], 0.85, 1e-6);
    EXPECT_NEAR(c.l25, 12.3, 1e-4);
    EXPECT_NEAR(c.l50, 13.8, 1e-4);
    EXPECT_NEAR(c.l75, 15 + 1.0 / 3, 1e-4);
}

TEST(SelectionRunningAverage, FirstPointAtFirstClassUsesForcedOnesAlone) {
    auto in = Input({0.7f, 0.2f, 0.1f, 0.5f}, 2, 2);
    const auto c = RunningAverage(in);
    // The steep step puts L25 and L50 in the same half-class below the first point's midlength.
    EXPECT_NEAR(c.l25, 11.5, 1e-5);
    EXPECT_NEAR(c.l50, 12, 1e-5);
    EXPECT_NEAR(c.l75, 13.5, 1e-5);
}

TEST(SelectionSave, WritesAProbabilitiesFile) {
    test::TempDir dir;
    const auto path = dir.file("out.prb");
    auto in = Input({0.25f, 0.5f, 1}, 1, 3, 2.5, 7.5);
    EXPECT_TRUE(
        SaveProbabilities(path, test::BinDir().string(), {"Sardine", "S-1", "cm"}, in).ok());
    const auto read = ReadPRB(path);
    ASSERT_TRUE(read.ok());
    const PrbData& prb = read.value();
    EXPECT_EQ(prb.length, (std::vector<float>{7.5f, 10, 12.5f}));
    EXPECT_EQ(prb.probability, (std::vector<float>{0.25f, 0.5f, 1}));
    EXPECT_EQ(prb.header.speciesname, "Sardine");
    EXPECT_EQ(prb.header.remarks, kSelPrbRemarks);
}

// A path of another kind would make a file the program cannot open; an unwritable place (here
// inside a plain file, which stops root too) is told, and nothing is written either way.
TEST(SelectionSave, OtherKindsAndUnwritablePlacesAreRefused) {
    test::TempDir dir;
    auto in = Input({0.25f, 0.5f, 1}, 1, 3, 2.5, 7.5);
    const Outcome txt =
        SaveProbabilities(dir.file("out.txt"), test::BinDir().string(), {"S", "", "cm"}, in);
    ASSERT_FALSE(txt.ok());
    EXPECT_EQ(txt.refusal()->text, "Wrong file type defined. Please check and try again.");
    EXPECT_FALSE(std::filesystem::exists(dir.file("out.txt")));

    std::ofstream(dir.file("plain")) << "x";
    const std::string inside = dir.file("plain") + "/out.prb";
    const Outcome blocked = SaveProbabilities(inside, test::BinDir().string(), {"S", "", "cm"}, in);
    ASSERT_FALSE(blocked.ok());
    EXPECT_EQ(blocked.refusal()->text, CannotWriteText(inside));
}

}  // namespace
}  // namespace norvo
