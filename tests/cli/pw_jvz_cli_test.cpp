#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "growth/powell_wetherall.h"
#include "mortality/jones_van_zalinge.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

// Two samples over classes 11..25 (width 2); the top class of the file is empty.
std::string WriteLfq(const test::TempDir& dir) {
    return test::MakeLfqFile(
        dir.file("fish.lfq"), test::LfqHeaderOf("Fish", "cm", 11, 2),
        test::MonthlySamples(2, 15, 2001),
        test::ByClass({{40, 30, 22, 15, 10, 6, 3, 1, 0}, {20, 16, 12, 8, 5, 3, 2, 1, 0}}));
}

// The same without the empty top class.
std::string WriteCutLfq(const test::TempDir& dir) {
    return test::MakeLfqFile(dir.file("cut.lfq"), test::LfqHeaderOf("Fish", "cm", 11, 2),
                             test::MonthlySamples(1, 15, 2001),
                             test::ByClass({{40, 30, 22, 15, 10, 6, 3, 1}}));
}

TEST(PwCli, FitPlotAndRefusals) {
    test::TempDir dir;
    const auto path = WriteLfq(dir);
    auto r = test::RunCli("--json pw " + path + " --first 2 --samples 1");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["last_class"], 8);
    EXPECT_EQ(j["cumf"].size(), 8u);
    EXPECT_EQ(j["cumf"][0], 127);
    EXPECT_EQ(j["cutoff"][1], 12);
    const auto& fit = j["fit"];
    EXPECT_LT(fit["b"].get<double>(), 0);
    EXPECT_NEAR(fit["loo"].get<double>(), fit["a"].get<double>() / -fit["b"].get<double>(), 1e-4);
    EXPECT_TRUE(fit["zk_text"].is_null());
    EXPECT_TRUE(fit["notice"].is_null());
    EXPECT_EQ(fit["function"].get<std::string>().rfind("Y =", 0), 0u);

    // The plot and its pseudo-catch curve; a second run leaves them alone unless forced.
    const auto plot = dir.file("pw.png");
    r = test::RunCli("pw " + path + " --first 2 --plot " + plot);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_TRUE(fs::exists(plot));
    EXPECT_TRUE(fs::exists(dir.file("pw_pseudo.png")));
    EXPECT_EQ(test::RunCli("pw " + path + " --first 2 --plot " + plot).exitCode, 2);
    EXPECT_EQ(test::RunCli("pw " + path + " --first 2 --force --plot " + plot).exitCode, 0);

    r = test::RunCli("--json pw " + path + " --first 7");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"], kPwTooFewText);
    EXPECT_EQ(test::RunCli("pw " + path + " --first 2 --transform cube").exitCode, 1);
    EXPECT_EQ(test::RunCli("pw " + path).exitCode, 1);
}

TEST(JvzCli, FitRefusalsAndTheEmptyTop) {
    test::TempDir dir;
    const auto cut = WriteCutLfq(dir);
    auto r = test::RunCli("--json jvz " + cut + " --loo 30 --k 0.4 --points 5:2");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["usable"], 8);
    EXPECT_EQ(j["first"], 2);
    EXPECT_EQ(j["last"], 5);
    EXPECT_EQ(j["log_cum"].size(), 8u);
    EXPECT_EQ(j["regression"]["n"], 4);
    EXPECT_EQ(j["zk"], j["regression"]["b"]);
    EXPECT_LE(j["zk_low"].get<double>(), j["zk_high"].get<double>());

    auto refusal = [](const test::CommandResult& res) {
        return nlohmann::json::parse(res.out)["refused"]["message"].get<std::string>();
    };
    r = test::RunCli("--json jvz " + cut + " --loo 17 --k 0.4 --points 1:3");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(refusal(r), kJvzTooSmallText);
    // Loo 20 leaves five classes: class 6 is no point to pick.
    r = test::RunCli("--json jvz " + cut + " --loo 20 --k 0.4 --points 2:6");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(refusal(r), kCcNoSelectionText);
    r = test::RunCli("--json jvz " + WriteLfq(dir) + " --loo 30 --k 0.4 --points 1:5");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(refusal(r), JvzEmptyTopText(9, 9));
    EXPECT_EQ(test::RunCli("jvz " + cut + " --loo 30 --k 0.4 --points 2-5").exitCode, 1);
}

}  // namespace
}  // namespace norvo
