#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/test_paths.h"

namespace norvo {
namespace {

using test::RunCli;
using test::TempDir;

// A small simulated file of six monthly samples.
std::string SmallFile(const TempDir& dir) {
    const std::string path = dir.file("s.lfq");
    auto r = RunCli("simulate " + path + " " + dir.file("c.lfq") +
                    " --seed 11 --samples 6 --fish 300 --loo 30 --k 1 --interval 1");
    EXPECT_EQ(r.exitCode, 0) << r.err;
    return path;
}

TEST(CliElefanSearch, KScanJsonLayoutThreadsAndPlot) {
    TempDir dir;
    const std::string file = SmallFile(dir);
    const std::string png = dir.file("k.png");
    auto r = RunCli("--json elefan kscan " + file + " --loo 31 --threads 2 --plot " + png);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const auto j = nlohmann::json::parse(r.out);
    ASSERT_EQ(j["rows"].size(), 190u);
    EXPECT_DOUBLE_EQ(j["rows"][0]["k"].get<double>(), 0.01);
    EXPECT_DOUBLE_EQ(j["rows"][99]["k"].get<double>(), 1.0);
    EXPECT_DOUBLE_EQ(j["rows"][100]["k"].get<double>(), 1.1);
    EXPECT_DOUBLE_EQ(j["rows"][189]["k"].get<double>(), 10.0);
    double top = -1;
    for (const auto& row : j["rows"]) top = std::max(top, row["rn"].get<double>());
    const auto& best = j["best"];
    EXPECT_DOUBLE_EQ(best["rn"].get<double>(), top);
    EXPECT_DOUBLE_EQ(best["loo"].get<double>(), 31.0);
    for (const char* key : {"k", "c", "wp", "ss", "sl"}) EXPECT_TRUE(best.contains(key)) << key;
    EXPECT_GT(std::filesystem::file_size(png), 1000u);

    auto one = RunCli("--json elefan kscan " + file + " --loo 31 --threads 1");
    ASSERT_EQ(one.exitCode, 0) << one.err;
    EXPECT_EQ(nlohmann::json::parse(one.out), j);

    // A fixed starting point is scored at that point in every column.
    auto fixed = RunCli("--json elefan kscan " + file + " --loo 31 --ss 2 --sl 10.5 --fixed-sp");
    ASSERT_EQ(fixed.exitCode, 0) << fixed.err;
    const auto fixedJson = nlohmann::json::parse(fixed.out);
    for (const auto& row : fixedJson["rows"]) {
        EXPECT_EQ(row["ss"], 2);
        EXPECT_EQ(row["sl"], 10.5);
    }
}

TEST(CliElefanSearch, SurfaceTableAndRefusals) {
    TempDir dir;
    const std::string file = SmallFile(dir);
    auto r = RunCli("--json elefan surface " + file + " --loo 25:35 --k 0.5:1.5 --ss 1 --sl 8");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const auto j = nlohmann::json::parse(r.out);
    ASSERT_EQ(j["k"].size(), 21u);
    ASSERT_EQ(j["loo"].size(), 21u);
    ASSERT_EQ(j["grid"].size(), 21u);
    EXPECT_EQ(j["grid"][20].size(), 21u);
    EXPECT_DOUBLE_EQ(j["k"][20].get<double>(), 1.5);
    EXPECT_DOUBLE_EQ(j["loo"][10].get<double>(), 30.0);
    EXPECT_LE(j["min"].get<double>(), j["max"].get<double>());

    auto text = RunCli("elefan surface " + file + " --loo 25:35 --k 0.5:1.5 --ss 1 --sl 8");
    ASSERT_EQ(text.exitCode, 0) << text.err;
    EXPECT_EQ(text.out.rfind("K\\Loo", 0), 0u);

    auto fixedLoo = RunCli("elefan surface " + file + " --loo 30:30 --k 0.5:1.5 --ss 1 --sl 8");
    EXPECT_EQ(fixedLoo.exitCode, 2);
    EXPECT_NE(fixedLoo.err.find("Invalid Input: ERROR! The asymptotic length (Loo) cannot be "
                                "fixed. Please adjust parameters."),
              std::string::npos);
    auto noStart = RunCli("--json elefan surface " + file + " --loo 25:35 --k 0.5:1.5");
    EXPECT_EQ(noStart.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(noStart.out)["refused"]["title"], "Invalid Action");
}

TEST(CliElefanSearch, SearchRowsAndSeedRefusal) {
    TempDir dir;
    const std::string file = SmallFile(dir);
    auto r = RunCli("--json elefan search " + file + " --loo 32:0.5 --k 0.8:0.05 --ss 1 --sl 8");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const auto rows = nlohmann::json::parse(r.out)["rows"];
    ASSERT_GE(rows.size(), 1u);
    EXPECT_EQ(rows[0]["row"], 1);
    EXPECT_DOUBLE_EQ(rows[0]["loo"].get<double>(), 32.0);
    for (const auto& row : rows) {
        EXPECT_EQ(row["ss"], 1);
        EXPECT_EQ(row["sl"], 8);
    }
    auto refused = RunCli("elefan search " + file + " --loo 32:0.5 --k 0.01:0.05");
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_NE(refused.err.find("Please check your input for K (0.01 to 10.0)."), std::string::npos);
}

}  // namespace
}  // namespace norvo
