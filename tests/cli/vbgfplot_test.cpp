#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/test_paths.h"

namespace norvo::test {
namespace {

TEST(VbgfPlotCli, DrawsTheSimulatedFileAndRefusesBadStartingPoints) {
    TempDir dir;
    const std::string lfq = (dir.path() / "sim.lfq").string();
    ASSERT_EQ(RunCli("simulate " + lfq + " " + (dir.path() / "catch.lfq").string()).exitCode, 0);
    const std::string svg = (dir.path() / "plot.svg").string();
    const auto ok = RunCli("--json vbgfplot " + lfq + " --loo 60 --k 0.8 --ss 1 --sl 20 --plot " +
                           svg + " --display-all");
    ASSERT_EQ(ok.exitCode, 0) << ok.err;
    EXPECT_TRUE(std::filesystem::file_size(svg) > 0);
    const auto j = nlohmann::json::parse(ok.out);
    EXPECT_GE(j["cohorts"].size(), 1u);
    EXPECT_LE(j["cohorts"].size(), 12u);

    const auto refused =
        RunCli("vbgfplot " + lfq + " --loo 60 --k 0.8 --ss 0 --sl 20 --plot " + svg);
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_NE(refused.err.find("The sample number introduced is not valid."), std::string::npos);
}

}  // namespace
}  // namespace norvo::test
