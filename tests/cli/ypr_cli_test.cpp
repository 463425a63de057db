#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "selection/selection.h"
#include "stock/relative_ypr_knife.h"
#include "stock/relative_ypr_ogive.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

// Classes 10, 12, ..., 40 with a logistic rise around 20.
std::string WriteSelectionFile(const test::TempDir& dir, const std::vector<float>& prob) {
    const auto path = dir.file("sel.prb");
    SelectionInput in;
    in.probability.push_back(0);
    for (float p : prob) in.probability.push_back(p);
    in.nC = int(prob.size());
    in.w = 2;
    in.firstMid = 10;
    SaveProbabilities(path, test::BinDir().string(), {"Sel fish", "x", "cm"}, in);
    return path;
}

TEST(YprCli, KnifePointsTableCurvesAndSurface) {
    auto r = test::RunCli("--json ypr knife --mk 1 --lc 0.5 --e 0.5,1 --surface");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const auto j = nlohmann::json::parse(r.out);
    EXPECT_NEAR(j["points"][0]["y"].get<double>(), 0.08125, 1e-9);
    EXPECT_NEAR(j["points"][0]["b"].get<double>(), 0.5 * 0.325 / 0.46875, 1e-9);
    // E = 1 leaves the guard at 0.99999; the unguarded form computes E = 1: U (1 - U)^3.
    EXPECT_FLOAT_EQ(j["points"][1]["e_after"].get<float>(), 0.99999f);
    EXPECT_NEAR(j["points"][1]["y_at"].get<double>(), 0.5 * 0.125, 1e-12);
    ASSERT_EQ(j["table"]["y"].size(), 21u);
    EXPECT_EQ(j["table"]["e"][20], 0.99);
    EXPECT_EQ(j["report"].size(), 10u);
    ASSERT_EQ(j["curve_y"].size(), 11u);
    EXPECT_FLOAT_EQ(j["curve_y"][10][0].get<float>(), 0.99999f);
    const KnifeAnalysis a = AnalyseKnife(1, 0.5f);
    EXPECT_EQ(j["e10"].get<double>(), a.e10);
    EXPECT_EQ(j["emax"].get<double>(), a.eMax);
    EXPECT_FLOAT_EQ(j["yprime_max_2d"].get<float>(), FindYPrimeMaxKnife(1));
    ASSERT_EQ(j["grid_y"].size(), 10u);
    EXPECT_FLOAT_EQ(j["grid_b"][9]["e"].get<float>(), 0.99999f);
    EXPECT_EQ(j["grid_y"][0]["values"].size(), 10u);
}

TEST(YprCli, RefusalsAndPictures) {
    auto r = test::RunCli("--json ypr knife --mk 0 --lc 0.5");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"], kYprMkText);

    test::TempDir dir;
    const auto flat = dir.file("ypr.png"), surface = dir.file("surface.png");
    r = test::RunCli("ypr knife --mk 1 --lc 0.3 --plot " + flat);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_GT(fs::file_size(flat), 1000u);
    r = test::RunCli("ypr knife --mk 1 --lc 0.3 --surface --biomass --rotation 200 --plot " +
                     surface);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_GT(fs::file_size(surface), 1000u);
}

TEST(YprCli, OgiveFromAProbabilitiesFile) {
    test::TempDir dir;
    const auto prb = WriteSelectionFile(
        dir, {0.02f, 0.1f, 0.3f, 0.6f, 0.8f, 0.95f, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1});
    auto r = test::RunCli("--json ypr ogive --mk 1.5 --table " + prb + " --e 1 --surface");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const auto j = nlohmann::json::parse(r.out);
    // L-50 between 14 (0.3) and 16 (0.6); L-75 between 16 and 18 (0.8).
    EXPECT_NEAR(j["l50_found"].get<double>(), 16 - (2 / 0.3) * 0.1, 1e-5);
    EXPECT_EQ(j["l50_text"], "15.33");
    EXPECT_EQ(j["l75_text"], "17.50");
    EXPECT_EQ(j["loo_text"], "42.00");
    EXPECT_FLOAT_EQ(j["points"][0]["e_after_y"].get<float>(), 0.99f);
    EXPECT_FLOAT_EQ(j["points"][0]["e_after_b"].get<float>(), 0.99999f);
    EXPECT_EQ(j["grid_y"].size(), 20u);
    EXPECT_EQ(j["grid_y"][0]["values"].size(), 20u);
    EXPECT_GT(j["yprime_max"].get<double>(), 0);

    // Typed lengths and Loo win over the table's.
    r = test::RunCli("--json ypr ogive --mk 1.5 --table " + prb +
                     " --l50 20 --l75 24 --loo 60 --l50loo 0.4");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const auto t = nlohmann::json::parse(r.out);
    EXPECT_EQ(t["l50_text"], "20.00");
    EXPECT_EQ(t["loo"], 60.0);
}

TEST(YprCli, OgiveRefusesWithoutLFiftyAndFaultsBeyondLoo) {
    test::TempDir dir;
    const auto low = WriteSelectionFile(dir, {0.1f, 0.2f, 0.3f, 0.4f});
    auto r = test::RunCli("--json ypr ogive --mk 1 --table " + low);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"], kOgiveL50Text);

    const auto prb = dir.file("sel.prb");
    // Loo below the classes: a negative 1 - L/Loo to a fractional M/K.
    r = test::RunCli("--json ypr ogive --mk 1.5 --table " + prb + " --l50 12 --l75 14 --loo 15");
    EXPECT_EQ(r.exitCode, 3);
}

}  // namespace
}  // namespace norvo
