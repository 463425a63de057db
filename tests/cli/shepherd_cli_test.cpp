#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "data/lfq_file.h"
#include "growth/shepherd_search.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

// Six monthly samples of two modes that move up the classes 5..60 by 5.
std::string WriteModesLfq(const test::TempDir& dir) {
    std::vector<std::vector<double>> bySample;
    for (int m = 0; m < 6; ++m) {
        std::vector<double> f(12, 0);
        f[static_cast<size_t>(1 + m / 2)] = 40;
        f[static_cast<size_t>(6 + m / 3)] = 20;
        bySample.push_back(f);
    }
    return test::MakeLfqFile(dir.file("modes.lfq"), test::LfqHeaderOf("Modes", "cm", 5, 5),
                             test::MonthlySamples(6, 15, 2001), test::ByClass(bySample));
}

TEST(ShepherdCli, ScoreKScanAndSurfaceAgreeWithTheCore) {
    test::TempDir dir;
    const auto path = WriteModesLfq(dir);
    const ShepherdData d = ShepherdDataOf(*ReadLFQ(path));

    auto r = test::RunCli("--json shepherd score " + path + " --loo 70 --k 0.5");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    const ShepherdScoreParts p = ShepherdScoreOf(d, 70, 0.5f);
    EXPECT_EQ(j["score"].get<float>(), p.score);
    EXPECT_EQ(j["s1"].get<double>(), p.s1);
    EXPECT_EQ(j["s2"].get<double>(), p.s2);
    EXPECT_EQ(j["notices"], nlohmann::json::array());

    const auto plot = dir.file("kscan.png");
    r = test::RunCli("--json shepherd kscan " + path + " --loo 70 --plot " + plot);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    j = nlohmann::json::parse(r.out);
    const auto& rows = j["kscan"]["rows"];
    ASSERT_EQ(rows.size(), 190u);
    const int best = j["kscan"]["best_col"];
    const float bestK = rows[best - 1]["k"].get<float>();
    EXPECT_EQ(rows[best - 1]["score"].get<float>(), ShepherdScore(d, 70, bestK));
    for (const auto& row : rows)
        EXPECT_LE(row["score"].get<double>(), rows[best - 1]["score"].get<double>());
    const double phase = ShepherdScoreOf(d, 70, bestK).phase();
    EXPECT_EQ(j["start_length"].get<float>(), *ShepherdStartLength(d, 70, bestK, phase));
    EXPECT_GT(fs::file_size(plot), 0u);

    // The plot is not replaced unasked; with --force it is.
    const auto before = fs::last_write_time(plot);
    r = test::RunCli("--json shepherd kscan " + path + " --loo 70 --plot " + plot);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(fs::last_write_time(plot), before);
    r = test::RunCli("shepherd kscan " + path + " --loo 70 --plot " + plot + " --force");
    EXPECT_EQ(r.exitCode, 0) << r.err;

    // Below the top midlength there is no starting length.
    r = test::RunCli("--json shepherd kscan " + path + " --loo 50");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_TRUE(nlohmann::json::parse(r.out)["start_length"].is_null());

    r = test::RunCli("--json shepherd surface " + path + " --loo 50:80 --k 0.2:1.2");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    j = nlohmann::json::parse(r.out);
    ASSERT_EQ(j["grid"].size(), 21u);
    EXPECT_EQ(j["grid"][0][0].get<float>(), ShepherdScore(d, 50, 0.2f));
    EXPECT_EQ(j["loo"][20].get<double>(), 80.0);
    EXPECT_LE(j["min"].get<double>(), j["max"].get<double>());
}

TEST(ShepherdCli, RefusalsAndFaults) {
    test::TempDir dir;
    const auto path = WriteModesLfq(dir);
    auto r = test::RunCli("--json shepherd surface " + path + " --loo 0:80 --k 0.2:1.2");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"], kShepherdInvalidLoo);
    r = test::RunCli("--json shepherd surface " + path + " --loo 60:60 --k 0.2:1.2");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"], kMsgLooFixed);
    r = test::RunCli("--json shepherd kscan " + path + " --loo -3");
    EXPECT_EQ(r.exitCode, 2);
    // K of 0 divides by zero.
    r = test::RunCli("--json shepherd score " + path + " --loo 70 --k 0");
    EXPECT_EQ(r.exitCode, 3);
    EXPECT_TRUE(nlohmann::json::parse(r.out).contains("fault"));
    r = test::RunCli("shepherd score " + path + " --loo 70");
    EXPECT_EQ(r.exitCode, 1);
}

}  // namespace
}  // namespace norvo
