#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/test_paths.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

std::string SimTag() {
    return (test::BinDir() / "Data" / "SimTag.GIN").string();
}

TEST(GinGrowthCli, EachMethodPrintsItsEstimatesAndPlot) {
    test::TempDir dir;
    const auto before = fs::last_write_time(SimTag());
    for (const std::string cmd : {"gulland", "munro", "fabens"}) {
        const std::string plot = dir.file(cmd + ".png");
        const auto r = test::RunCli("--json " + cmd + " " + SimTag() + " --plot " + plot);
        ASSERT_EQ(r.exitCode, 0) << cmd << r.err;
        const auto j = nlohmann::json::parse(r.out);
        EXPECT_GT(j["estimates"]["Loo"].get<double>(), 30) << cmd;
        EXPECT_GT(j["estimates"]["K"].get<double>(), 0) << cmd;
        EXPECT_TRUE(j["notices"].is_array());
        EXPECT_GT(fs::file_size(plot), 1000u);
    }
    EXPECT_EQ(fs::last_write_time(SimTag()), before);  // the file is only read
    const auto g = nlohmann::json::parse(test::RunCli("--json gulland " + SimTag()).out);
    EXPECT_EQ(g["regression"].size(), 17u);
    EXPECT_EQ(g["regression"]["n"], g["n"]);
    EXPECT_TRUE(g["seasonal"].contains("winter_point"));
    const auto m = nlohmann::json::parse(test::RunCli("--json munro " + SimTag()).out);
    EXPECT_GT(m["passes"].get<int>(), 0);
    EXPECT_FALSE(m["gh_equivalent"]["refused"].get<bool>());
    const auto f = nlohmann::json::parse(test::RunCli("--json fabens " + SimTag()).out);
    EXPECT_TRUE(f["converged"].get<bool>());
    EXPECT_EQ(f["iterations"].get<int>(), 4);
}

TEST(GinGrowthCli, RefusalsAndTheSilentNoResult) {
    // A fixed Loo of 0: the notice and exit 2.
    auto r = test::RunCli("--json gulland " + SimTag() + " --fixed-loo 0");
    EXPECT_EQ(r.exitCode, 2);
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["refused"]["title"], "Invalid Action...");
    // Fewer than 3 rows: no notice, no result, exit 2.
    std::string many;
    for (int i = 3; i <= 40; ++i) many += fmt::format("{}{}", many.empty() ? "" : ",", i);
    r = test::RunCli("--json gulland " + SimTag() + " --deselect " + many);
    EXPECT_EQ(r.exitCode, 2);
    j = nlohmann::json::parse(r.out);
    EXPECT_TRUE(j["no_result"].get<bool>());
    EXPECT_TRUE(j["notices"].empty());
    // Munro with a fixed Loo below Lmax: the notice comes first, then the search.
    r = test::RunCli("--json munro " + SimTag() + " --fixed-loo 20");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["notices"].size(), 1u);
    EXPECT_GT(j["passes"].get<int>(), 0);
    // A row that is not in the file.
    EXPECT_EQ(test::RunCli("fabens " + SimTag() + " --deselect 99").exitCode, 2);
}

}  // namespace
}  // namespace norvo
