#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "data/write_notices.h"
#include "mortality/catch_curve.h"
#include "mortality/pauly_m.h"
#include "selection/selection.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

// One sample: a rising left limb, a zero at class 6 and a falling right limb; Loo 100, K 0.5.
std::string WriteCurveLfq(const test::TempDir& dir) {
    return test::MakeLfqFile(dir.file("curve.lfq"), test::LfqHeaderOf("Curve fish", "cm", 12.5, 5),
                             {test::SampleOn(1, 15, 6, 2001)},
                             test::ByClass({{10, 60, 120, 100, 70, 0, 35, 22, 14, 8, 5}}));
}

TEST(CatchCurveCli, FitExtrapolationAndRefusal) {
    test::TempDir dir;
    const auto path = WriteCurveLfq(dir);
    auto r = test::RunCli("--json catchcurve " + path + " --loo 100 --k 0.5");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_TRUE(j["usable"].get<bool>());
    EXPECT_EQ(j["first_class"], 1);
    EXPECT_EQ(j["notices"], nlohmann::json::array({ZeroCompensationText(6)}));
    const int first = j["default_points"][0], last = j["default_points"][1];
    EXPECT_GE(last - first, 2);
    EXPECT_EQ(j["points"], j["default_points"]);
    EXPECT_GT(j["Z"].get<double>(), 0);
    EXPECT_NEAR(j["Z"].get<double>(), -j["fit"]["b"].get<double>(), 1e-6);
    EXPECT_LE(j["Z_low"].get<double>(), j["Z_high"].get<double>());

    r = test::RunCli("--json catchcurve " + path +
                     " --loo 100 --k 0.5 --points 4:10 --extrapolate --temperature 20");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["points"], nlohmann::json::array({4, 10}));
    const auto& ex = j["extrapolation"];
    EXPECT_NEAR(ex["m"].get<double>(), PaulyM(100, 0.5, 20), 5e-4);
    // Z as the screen's box holds it: two decimals (then stored in 32 bits).
    const double zBox = std::round(j["Z"].get<double>() * 100) / 100;
    EXPECT_EQ(ex["z"].get<double>(), static_cast<double>(static_cast<float>(zBox)));
    ASSERT_EQ(ex["probability"].size(), 11u);
    EXPECT_EQ(ex["probability"][3], 1.0);
    EXPECT_LT(ex["probability"][0].get<double>(), 1.0);

    // Too few points and a Loo below the first class are refused.
    r = test::RunCli("--json catchcurve " + path + " --loo 100 --k 0.5 --points 4:5");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"], kCcTooFewPickedText);
    r = test::RunCli("catchcurve " + path + " --loo 10 --k 0.5");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find(kCcLooBelowDataText), std::string::npos);
}

TEST(SelectionCli, LogitRunningAverageAndSave) {
    test::TempDir dir;
    const auto prb = dir.file("in.prb");
    SelectionInput in;
    in.probability = {0, 0.02f, 0.1f, 0.35f, 0.7f, 0.9f, 1, 1, 1};
    in.nC = 8;
    in.w = 2;
    in.firstMid = 10;
    SaveProbabilities(prb, test::BinDir().string(), {"Sel fish", "x", "cm"}, in);

    auto r = test::RunCli("--json selection " + prb + " --logit");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_GT(j["b"].get<double>(), 0);
    EXPECT_NEAR(j["L50"].get<double>(), -j["a"].get<double>() / j["b"].get<double>(), 1e-3);
    EXPECT_GT(j["L50"].get<double>(), 14);
    EXPECT_LT(j["L50"].get<double>(), 18);

    const auto out = dir.file("out.prb");
    r = test::RunCli("--json selection " + prb + " --running-average --save " + out);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    j = nlohmann::json::parse(r.out);
    EXPECT_LT(j["L25"].get<double>(), j["L75"].get<double>());
    EXPECT_TRUE(fs::exists(out));
    // A second save keeps the file it would replace, unless forced.
    r = test::RunCli("--json selection " + prb + " --logit --save " + out);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"], FileExistsText(out));
    EXPECT_EQ(test::RunCli("selection " + prb + " --logit --save " + out + " --force").exitCode, 0);

    r = test::RunCli("--json selection " + prb + " --logit --select 2,3");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"], kSelTooFewPointsText);
}

}  // namespace
}  // namespace norvo
